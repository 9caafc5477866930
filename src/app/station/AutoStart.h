#pragma once

#include "app/station/HandsFree.h"

#include <QObject>

class KestDetectorUI;

/// Presses the window's Start for each camera that connects, where something is ticked. Lives on the GUI thread; to be
/// made after the window and before the services, so that it misses no signal.
class AutoStart : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(AutoStart)

public:
    explicit AutoStart(KestDetectorUI *window);

private:
    HandsFree m_handsFree;
};
