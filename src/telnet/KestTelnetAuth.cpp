#include "telnet/KestTelnetAuth.h"

KestTelnetAuth::~KestTelnetAuth() = default;
