#include "history/door/History.h"

#include "history/door/ForwardProcess.h"
#include "record/recordNames.h"

#include <QSqlDatabase>
#include <utility>

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

} // namespace

History::History(const QString &file, const QString &server)
{
    // Qt looks for its drivers once, on the first question.
    QSqlDatabase::drivers();
    connect(this, &History::posted, this, &History::deliver, Qt::QueuedConnection);
    if (!server.isEmpty()) {
        m_forwarding = std::make_unique<ForwardProcess>(file, server);
        connect(this, &History::stored, this, [this] { m_forwarding->wake(); });
    }
    HistoryWriter::Listener listener;
    listener.problem = [this](const QString &text) { post([this, text] { emit problem(text); }); };
    listener.stored = [this] { post([this] { emit stored(); }); };
    listener.camera = [this](const QString &mac, const CameraRow &row) {
        post([this, camera = known(mac, row)] { emit cameraKnown(camera); });
    };
    m_writer = std::make_unique<HistoryWriter>(StoreAddress::file(file), listener);
}

History::~History() = default;

void History::post(std::function<void()> work)
{
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        m_posted.push_back(std::move(work));
    }
    emit posted();
}

void History::deliver()
{
    std::vector<std::function<void()>> works;
    {
        const std::lock_guard<std::mutex> lock(m_mutex);
        works.swap(m_posted);
    }
    for (const auto &work : works) {
        work();
    }
}

void History::keep(const RunRecord &run)
{
    m_writer->keep(run);
}

void History::ask(const QString &mac)
{
    m_writer->ask(mac);
}
