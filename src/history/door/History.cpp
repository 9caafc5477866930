#include "history/door/History.h"

#include "history/door/ForwardProcess.h"
#include "record/recordNames.h"

#include <QSqlDatabase>

namespace {
KnownCamera known(const QString &mac, const CameraRow &row)
{
    KnownCamera camera;
    camera.mac = mac;
    camera.runs = row.runs;
    if (row.runs > 0) {
        camera.lastBegin = QDateTime::fromMSecsSinceEpoch(row.lastBeginMs);
        camera.lastOutcome = valueOfName<Outcome>(row.lastOutcome).value_or(Outcome::Error);
    }
    return camera;
}

/// Qt looks for its drivers once, on the first question.
StoreAddress withDriversFound(const QString &file)
{
    QSqlDatabase::drivers();
    return StoreAddress::file(file);
}
} // namespace

History::History(const QString &file, const QString &server)
    : m_writer(withDriversFound(file), {[this](const QString &text) { post([this, text] { emit problem(text); }); },
                                        [this] { post([this] { emit stored(); }); },
                                        [this](const QString &mac, const CameraRow &row) {
                                            post([this, camera = known(mac, row)] { emit cameraKnown(camera); });
                                        }})
{
    if (!server.isEmpty()) {
        m_forwarding = std::make_unique<ForwardProcess>(file, server);
        connect(this, &History::stored, this, [this] { m_forwarding->wake(); });
    }
}

History::~History() = default;

template <class Work>
void History::post(Work work)
{
    QMetaObject::invokeMethod(this, work, Qt::QueuedConnection);
}

void History::keep(const RunRecord &run)
{
    m_writer.keep(run);
}

void History::ask(const QString &mac)
{
    m_writer.ask(mac);
}
