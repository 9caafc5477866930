#pragma once

#include <chrono>
#include <functional>
#include <QString>

/// How long a shell that has gone is waited for: a login that comes too early takes 5 s, and the next one is tried a
/// few seconds later.
constexpr std::chrono::milliseconds shellPatience{15000};

/// Waits for the camera's shell where it was there on this link and has gone: it will be back, and without it a healthy
/// camera looks broken. One that has never been there is not waited for, nor is one that has used up the patience,
/// until it is back. Ends early once `cutShort()` is true, or when the program closes. On a run's thread; the operator
/// is told.
void awaitShell(const std::function<bool()> &cutShort);

/// A shell command of an item or of the log collection, as by `TelnetInteractiveFace::telnet`, once the shell is there.
int shellCall(const QString &command, int step, QString *reply);
