#pragma once

#include "telnet/engine/KestTelnetAuth.h"

/// The method NULL: tells the server that there is no authentication, which always succeeds.
class KestTelnetAuthNull final : public KestTelnetAuth
{
public:
    QByteArray authStep(const QByteArray &data) override;
};
