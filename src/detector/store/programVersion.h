#pragma once

/// The program's version as its project file has it: "1.0.3".
const char *programVersion();
