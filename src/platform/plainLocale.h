#pragma once

/// Whether the texts of the locale are plain ASCII, as in the locale "C". To be asked once the locale has been set up,
/// and before there is another thread.
bool localeIsPlain();
