#pragma once

#include "history/door/History.h"

#include <memory>
#include <QObject>
#include <QString>

class KestDetectorUI;

/// Hands the station's runs over to the history, tells the operator when it takes none, shows in the window what it
/// knows of the connected camera, and opens the history's own window (Ctrl+H and the context menu). Lives on the GUI
/// thread, which waits for it only at the end of the program: until every run is on the disk.
class StationHistory : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(StationHistory)

public:
    /// Null where the settings name no history: then nothing of it is loaded. To be called before the first run begins.
    static std::unique_ptr<StationHistory> begin(KestDetectorUI *window);

private:
    StationHistory(const QString &file, const QString &server, KestDetectorUI *window);

    void ask(const QString &mac);
    void show(const KnownCamera &camera) const;
    void addAction();
    /// The history of the connected camera, in a program of its own: whatever it does, the station is not disturbed.
    void openWindow() const;

    KestDetectorUI *const m_window;
    QString m_mac; ///< of the camera that is connected, or was last
    History m_history;
};
