#pragma once

/// Stops the receive thread, the camera supervisor and the runner, in this order, and returns once they have ended.
/// Whatever they wait for gives up first, so that no thread of theirs can keep the caller waiting: the GUI thread
/// serves their shell and file requests and would otherwise wait for threads that wait for it.
void stopServices();
