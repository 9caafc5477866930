#include "app/station/AutoStart.h"

#include "detector/run/KestDetectorRt.h"
#include "detector/store/KestDetectorFace.h"
#include "ui/window/KestDetectorUI.h"

#include <algorithm>
#include <QAbstractButton>
#include <QCheckBox>

namespace {
void pressStart(const KestDetectorUI *window)
{
    const QList<QCheckBox *> boxes = window->findChildren<QCheckBox *>();
    if (std::any_of(boxes.begin(), boxes.end(), [](const QCheckBox *box) { return box->isChecked(); })) {
        window->findChild<QAbstractButton *>(QStringLiteral("tbStart"))->click();
    }
}
} // namespace

AutoStart::AutoStart(KestDetectorUI *window) : m_handsFree([window] { pressStart(window); })
{
    const KestDetectorFace *face = KestDetectorFace::Get();
    connect(face, &KestDetectorFace::signal_setConnectStatus, this,
            [this](bool connected) { m_handsFree.linkIs(connected); });
    connect(face, &KestDetectorFace::signal_setMacAddress, this,
            [this](const QString &mac) { m_handsFree.cameraIs(mac); });
    connect(face, &KestDetectorFace::signal_setButtonEnable, this, [this](bool enabled) {
        if (!enabled) {
            m_handsFree.runBegins();
        }
    });
    connect(KestDetectorRt::Get().get(), &KestDetectorRt::signal_runEnded, this, [this] {
        const RunEnd end = KestDetectorRt::Get()->lastRun().end;
        m_handsFree.runEnds(end.identity.macAddress, end.camera == RunEnd::Camera::Kept);
    });
}
