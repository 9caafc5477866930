#pragma once

#include <string>

/// Downloads one file of the camera's FTP server (RFC 959, passive) over plain sockets, with no command too many.
/// Returns its size.
std::size_t rawFtpDownload(const std::string &name, const std::string &localFile);
