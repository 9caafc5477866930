#pragma once

#include <QString>

/// What the supervisor asks of the camera client: the two commands that make and keep a link. Both block like every
/// request, and return a `requestResult` or the camera's code.
class LinkCommands
{
public:
    virtual int registerPC(const QString &ip) = 0;
    virtual int Ping() = 0;
    /// Whether the program is closing: what fails from now on says nothing about the camera.
    virtual bool requestsAbandoned() const = 0;

protected:
    ~LinkCommands() = default;
};
