#include "telnet/engine/KestTelnetAuth.h"

KestTelnetAuth::~KestTelnetAuth() = default;
