#pragma once

#include <functional>
#include <QString>

/// Decides when a station that works by itself begins a run: once for each camera that connects, as soon as its MAC
/// address is known, and once more when it has been away or another one was there. Told by its owner what happens; a
/// plain object, for one thread.
class HandsFree
{
public:
    /// `start` begins a run of the camera that is there. It may come to nothing: the camera then counts as served.
    explicit HandsFree(std::function<void()> start) : m_start(std::move(start)) {}

    void linkIs(bool connected);
    /// Empty: not known (yet, or any more).
    void cameraIs(const QString &macAddress);
    /// Whoever has begun it.
    void runBegins() { m_busy = true; }
    /// `macAddress`: whose run it was; `kept`: whether the run had that camera from its begin to its end.
    void runEnds(const QString &macAddress, bool kept);

private:
    void consider();

    const std::function<void()> m_start;
    bool m_connected = false;
    bool m_busy = false; ///< a run is under way
    QString m_present;   ///< the camera that is there
    QString m_served;    ///< the camera that has had its run and has not been away since
};
