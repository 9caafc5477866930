#pragma once

#include "camera/client/Camera.h"
#include "camera/client/UDPTransciever.h"
#include "detector/store/KestDetectorFace.h"

#include <QString>
#include <QtGlobal>

/// A camera client of the test's own, with its transceiver on the station's port: no supervisor beside it makes
/// requests, prints or changes addresses, and it goes with its owner.
class OwnClient
{
    Q_DISABLE_COPY(OwnClient)

public:
    explicit OwnClient(const QString &peer = QStringLiteral("127.0.0.10"), quint16 localPort = 7777)
        : camera([this](KestDataPacket &packet) { return transciever.sendPacket(packet); }),
          transciever(nullptr, argsFor(peer, localPort), [this](const Reply &reply) { camera.handleReply(reply); })
    {
    }

    Camera camera;
    UDPTransciever transciever; ///< goes first: its thread calls the client

private:
    static UDPortArgs argsFor(const QString &peer, quint16 localPort)
    {
        KestDetectorFace::Get()->cameraAddress = peer;
        return {localPort, 9999, "192.168.88.10"};
    }
};
