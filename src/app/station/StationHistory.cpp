#include "app/station/StationHistory.h"

#include "detector/run/KestDetectorRt.h"
#include "detector/store/KestDetectorFace.h"
#include "language/Language.h"
#include "places/Places.h"
#include "ui/window/KestDetectorUI.h"

#include <array>
#include <QAction>
#include <QCoreApplication>
#include <QDir>
#include <QKeySequence>
#include <QProcess>

namespace {
struct OutcomeWords
{
    Outcome outcome;
    const char *words;
};

constexpr std::array outcomeWords = {
    OutcomeWords{Outcome::Passed, QT_TRANSLATE_NOOP("StationHistory", "passed")},
    OutcomeWords{Outcome::Failed, QT_TRANSLATE_NOOP("StationHistory", "failed")},
    OutcomeWords{Outcome::Stopped, QT_TRANSLATE_NOOP("StationHistory", "stopped")},
    OutcomeWords{Outcome::Error, QT_TRANSLATE_NOOP("StationHistory", "without a verdict")},
};

QString wordsOf(Outcome outcome)
{
    for (const OutcomeWords &row : outcomeWords) {
        if (row.outcome == outcome) {
            return QCoreApplication::translate("StationHistory", row.words);
        }
    }
    return {};
}
} // namespace

std::unique_ptr<StationHistory> StationHistory::begin(KestDetectorUI *window)
{
    const Settings &settings = KestDetectorFace::Get()->settings();
    if (settings.historyFile.isEmpty() && settings.historyServer.isEmpty()) {
        return nullptr;
    }
    const QString file = settings.historyFile.isEmpty() ? QLatin1String(usualHistoryFile) : settings.historyFile;
    const QDir folder(Places::ofProgram().state());
    return std::unique_ptr<StationHistory>(
        new StationHistory(folder.absoluteFilePath(file), settings.historyServer, window));
}

StationHistory::StationHistory(const QString &file, const QString &server, KestDetectorUI *window)
    : m_window(window), m_history(file, server)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    connect(&m_history, &History::problem, this, [face](const QString &text) {
        face->notices.withdraw(Notice::Kind::History);
        if (!text.isEmpty()) {
            face->notices.tell(Notices::history(text));
        }
    });
    connect(&m_history, &History::cameraKnown, this, &StationHistory::show);
    connect(&m_history, &History::stored, this, [this] { ask(m_mac); });
    connect(face, &KestDetectorFace::signal_setMacAddress, this, &StationHistory::ask);
    // On the runner's thread: a run is handed over before the next one can begin.
    connect(
        KestDetectorRt::Get().get(), &KestDetectorRt::signal_runRecorded, this,
        [this](const RunRecord &run) { m_history.keep(run); }, Qt::DirectConnection);
    addAction();
}

void StationHistory::addAction()
{
    auto *action = new QAction(tr("History of this camera"), m_window);
    action->setObjectName(QStringLiteral("actionHistory"));
    action->setShortcut(QKeySequence(QStringLiteral("Ctrl+H")));
    connect(action, &QAction::triggered, this, &StationHistory::openWindow);
    m_window->addAction(action); // its context menu shows it
}

void StationHistory::openWindow() const
{
    const QString program = QCoreApplication::applicationDirPath() + QStringLiteral("/KestHistory");
    QStringList arguments;
    if (!m_mac.isEmpty()) {
        arguments = QStringList{QStringLiteral("--mac"), m_mac};
    }
    arguments += {QStringLiteral("--results"), KestDetectorFace::Get()->savePath.get()};
    const QString language = installedLanguageName();
    if (!language.isEmpty()) {
        arguments += {QStringLiteral("--language"), language};
    }
    if (!QProcess::startDetached(program, arguments)) {
        KestDetectorFace::Get()->notices.tell(Notices::history(tr("%1 cannot be started").arg(program)));
    }
}

void StationHistory::ask(const QString &mac)
{
    if (!mac.isEmpty()) {
        m_mac = mac;
        m_history.ask(mac);
    }
}

void StationHistory::show(const KnownCamera &camera) const
{
    if (camera.mac != m_mac) {
        return;
    }
    if (camera.runs == 0) {
        m_window->setCameraHistory(tr("Not tested before"));
        return;
    }
    m_window->setCameraHistory(
        tr("Runs so far: %1\nThe last one: %2, %3")
            .arg(camera.runs)
            .arg(shownLocale().toString(camera.lastBegin, QLocale::ShortFormat), wordsOf(camera.lastOutcome)));
}
