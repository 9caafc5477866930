#include "StationProcess.h"

#include "support/fileContent.h"
#include "waiting.h"

#include <csignal>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QtDebug>
#include <sys/prctl.h>
#include <unistd.h>

namespace {
constexpr char nineteenKeys[] = "[BaseOption]\n"
                                "wifi=127.0.0.10\n"
                                "usb=127.0.0.10\n"
                                "username=root\n"
                                "password=camera\n"
                                "ftpName=camera\n"
                                "ftpPsw=camera\n"
                                "ftpPort=2121\n"
                                "\n"
                                "[SystemLogPath]\n"
                                "HostApdUrl=/data/netconf/hostapd.conf\n"
                                "MacAddressUrl=/data/netconf/mac_addr\n"
                                "TFCardInfoUrl=/proc/mci/mci_info\n"
                                "\n"
                                "[ZipLogPath]\n"
                                "ZipLogTargetPath=/tmp/archive\n"
                                "\n"
                                "[DownloadLogSrcPath]\n"
                                "LogPath=/data/log\n"
                                "PrivatePath=/data/private\n"
                                "VersionPath=/etc/kest_version\n"
                                "NetconfPath=/data/netconf\n"
                                "MciInfoPath=/proc/mci/mci_info\n"
                                "SharefsPath=/data/sharefs\n"
                                "\n"
                                "[CameraStatus]\n"
                                "expectedVal=8001A\n"
                                "statusBits=8001A\n";

QString iniPath(const QString &folder)
{
    return folder + QStringLiteral("/option.ini");
}
} // namespace

bool StationProcess::startsAsShipped()
{
    return qEnvironmentVariable("KEST_E2E_SETTINGS") == QLatin1String("shipped");
}

// Dies with the test, should that be killed: a station that is left behind keeps its port.
StationProcess::StationProcess() : m_process([] { prctl(PR_SET_PDEATHSIG, SIGKILL); })
{
    const QString program = m_folder.filePath(QStringLiteral("KestDetector"));
    // A hard link is enough where the file system allows it: the program looks for its files where it was started.
    const QByteArray original = QByteArrayLiteral(KEST_BIN_DIR "/KestDetector");
    if (link(original.constData(), QFile::encodeName(program).constData()) != 0 &&
        !QFile::copy(QString::fromLocal8Bit(original), program)) {
        qWarning("The station cannot be put into %s", qPrintable(m_folder.path()));
    }
    writeOptionIni(startsAsShipped() ? fileContent(QStringLiteral(KEST_SOURCE_DIR "/emulator/option.ini"))
                                     : QByteArray(nineteenKeys));
    setVariable(QStringLiteral("TMPDIR"), m_temporary.path());
    // Qt would make one of its own among the temporary files.
    setVariable(QStringLiteral("XDG_RUNTIME_DIR"), m_capture.path());
}

StationProcess::~StationProcess()
{
    if (m_process.state() != QProcess::NotRunning) {
        m_process.kill();
        m_process.waitForFinished();
    }
}

void StationProcess::letClockJump(int seconds, const QString &file)
{
    setVariable(QStringLiteral("LD_PRELOAD"), QStringLiteral(KEST_CLOCK_JUMP));
    setVariable(QStringLiteral("KEST_CLOCK_JUMP"), QString::number(seconds));
    setVariable(QStringLiteral("KEST_CLOCK_JUMP_FILE"), file);
    // The address sanitizer wants to be loaded before everything else; nothing of the preloaded library minds.
    setVariable(QStringLiteral("ASAN_OPTIONS"),
                QString::fromLocal8Bit(qgetenv("ASAN_OPTIONS")) + QStringLiteral(":verify_asan_link_order=0"));
}

void StationProcess::writeOptionIni(const QByteArray &content) const
{
    QFile file(iniPath(folder()));
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        qWarning("option.ini cannot be written: %s", qPrintable(file.errorString()));
    }
}

void StationProcess::addSafeguards() const
{
    writeOptionIni(optionIni() + "\n[Station]\nsafeguards=true\n");
}

void StationProcess::removeOptionIni() const
{
    QFile::remove(iniPath(folder()));
}

QByteArray StationProcess::optionIni() const
{
    return fileContent(iniPath(folder()), {});
}

void StationProcess::launch(const QStringList &arguments)
{
    m_process.setProcessEnvironment(m_environment);
    m_process.setStandardOutputFile(m_output.path());
    m_process.setStandardErrorFile(m_debugOutput.path());
    m_process.start(m_folder.filePath(QStringLiteral("KestDetector")),
                    QStringList{QStringLiteral("-platform"), QStringLiteral("offscreen")} + arguments);
    m_process.waitForStarted();
}

void StationProcess::start(const QString &components, const QStringList &options)
{
    launch(QStringList{QStringLiteral("--run"), components, QStringLiteral("--save-path"), savePath()} + options);
}

void StationProcess::openWindow()
{
    setSavePath(folder());
    setVariable(QStringLiteral("QT_PLUGIN_PATH"), QStringLiteral(KEST_HAND_DIR));
    setVariable(QStringLiteral("QT_QPA_GENERIC_PLUGINS"), QStringLiteral("operatorhand"));
    launch({});
}

void StationProcess::tell(const QByteArray &order)
{
    m_process.write(order + '\n');
    m_process.waitForBytesWritten();
}

bool StationProcess::waitForLabel(const QByteArray &name, const QByteArray &text, int limitMs)
{
    const auto shows = [&] {
        tell("read " + name);
        QThread::msleep(100); // an answer's time, so that not hundreds of them pile up
        return m_output.content().contains(name + ": " + text);
    };
    return waitUntil(shows, limitMs);
}

void StationProcess::signal(int number) const
{
    if (m_process.state() != QProcess::NotRunning) { // its number would be 0, which is the test and all of its kind
        ::kill(static_cast<pid_t>(m_process.processId()), number);
    }
}

bool StationProcess::isRunning()
{
    m_process.waitForFinished(0);
    return m_process.state() != QProcess::NotRunning;
}

int StationProcess::finish(int limitMs)
{
    if (!m_process.waitForFinished(limitMs) && m_process.state() != QProcess::NotRunning) {
        qWarning("The station does not end");
        m_process.kill();
        m_process.waitForFinished();
        return -1;
    }
    return m_process.exitStatus() == QProcess::NormalExit ? m_process.exitCode() : -1;
}

int StationProcess::run(const QString &components, const QStringList &options)
{
    start(components, options);
    return finish();
}

QStringList StationProcess::verdicts() const
{
    static const QRegularExpression verdict(QStringLiteral("^[A-Za-z ]+: (OK|NG|warning|not tested)$"));
    const QStringList lines = QString::fromUtf8(m_output.content()).split(QLatin1Char('\n'));
    const auto end = static_cast<int>(lines.lastIndexOf(QRegularExpression(QStringLiteral("^Result: .*$"))));
    int begin = end;
    while (begin > 0 && verdict.match(lines.at(begin - 1)).hasMatch()) {
        --begin;
    }
    return end < 0 ? QStringList() : lines.mid(begin, end - begin + 1);
}

QString StationProcess::runFolder() const
{
    const QDir logs(savePath() + QStringLiteral("/log"));
    const QStringList folders = logs.entryList(QDir::Dirs | QDir::NoDotAndDotDot);
    return folders.size() == 1 ? logs.filePath(folders.constFirst()) : QString();
}

QByteArray StationProcess::saved(const QString &fileName) const
{
    return fileContent(runFolder() + QLatin1Char('/') + fileName);
}

LogFile StationProcess::diagnosticLog() const
{
    return LogFile(folder() + QStringLiteral("/log.txt"));
}

QMap<QString, QByteArray> StationProcess::allSaved() const
{
    static const QRegularExpression date(QStringLiteral("^[0-9]{4}-[0-9]{2}-[0-9]{2}_"));
    const QDir logs(savePath() + QStringLiteral("/log"));
    QMap<QString, QByteArray> files;
    QDirIterator entries(logs.path(), QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (entries.hasNext()) {
        const QString path = entries.next();
        files.insert(logs.relativeFilePath(path).remove(date), fileContent(path));
    }
    return files;
}

QStringList StationProcess::leftovers() const
{
    constexpr auto everything = QDir::AllEntries | QDir::Hidden | QDir::System | QDir::NoDotAndDotDot;
    QStringList names = QDir(folder()).entryList(everything) + QDir(m_temporary.path()).entryList(everything);
    for (const char *expected : {"KestDetector", "option.ini", "log.txt", "saved"}) {
        names.removeAll(QLatin1String(expected));
    }
    if (startsAsShipped()) {
        names.removeAll(QStringLiteral("history.sqlite"));
    }
    return names;
}
