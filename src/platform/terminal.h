#pragma once

/// Whether a person sees standard error as it is written. False where nobody can tell.
bool isErrorOutputTerminal();
