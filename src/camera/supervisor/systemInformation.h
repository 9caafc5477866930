#pragma once

// WiFi name, passphrase and MAC address, read over the camera's shell, kept in the facade and shown through its
// signals. A run under way is told which camera answers. They block like every shell call, never to be called from the
// GUI thread, and return whether every call of the shell came through.

/// What could not be read is shown as empty; of the MAC address the facade then keeps what it had.
bool publishSystemInformation();

/// For a camera that is known already: what could not be read stays as it was.
bool refreshSystemInformation();
