#pragma once

/// Chooses, by way of the environment, how Qt is to reach a display; to be called before the application is made, with
/// the arguments of `main`. What the environment already says stays.
/// - An unattended run, and a text on standard output, do without a display where there is none (QT_QPA_PLATFORM).
/// - X11 is used without OpenGL (QT_XCB_GL_INTEGRATION): nothing here is drawn with it, and loading its drivers would
///   take longer than the rest of the program's start.
void choosePlatform(int argc, char *argv[]);
