#include "emulator/services/RootFileSystem.h"

#include "emulator/cage/CagedLogin.h"
#include "emulator/services/generatedFiles.h"

#include <array>
#include <crypt.h>
#include <fcntl.h>
#include <filesystem>
#include <memory>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <sys/stat.h>
#include <sys/sysmacros.h>
#include <unistd.h>

static void loadTemplate() // Q_INIT_RESOURCE must not stand in a namespace
{
    Q_INIT_RESOURCE(rootfs);
}

namespace emulator {

namespace {
constexpr std::array<const char *, 9> directories{
    "/bin", "/sbin", "/usr/bin", "/etc", "/dev", "/root", "/mnt/sdcard", "/tmp/archive", "/data",
};

/// What the shell's user may write to, and all below.
constexpr std::array<const char *, 4> writable{"/root", "/tmp", "/data", "/mnt/sdcard"};

/// The camera's applets; those that would need a real device, a kernel or root are left out.
constexpr std::array<const char *, 78> applets{
    "[",        "ash",    "awk",   "basename", "bunzip2", "bzcat",  "cat",     "chmod",     "clear",  "cmp",
    "cp",       "cut",    "date",  "dd",       "df",      "diff",   "dirname", "du",        "echo",   "egrep",
    "env",      "expr",   "false", "fgrep",    "find",    "grep",   "gunzip",  "gzip",      "head",   "hexdump",
    "hostname", "id",     "kill",  "killall",  "less",    "ln",     "login",   "ls",        "md5sum", "mkdir",
    "mkfifo",   "mktemp", "more",  "mv",       "nice",    "nohup",  "od",      "printf",    "pwd",    "readlink",
    "realpath", "rm",     "rmdir", "sed",      "seq",     "setsid", "sh",      "sha256sum", "sleep",  "sort",
    "stat",     "stty",   "sync",  "tail",     "tar",     "tee",    "test",    "time",      "touch",  "tr",
    "true",     "tty",    "uname", "uniq",     "vi",      "wc",     "which",   "xargs",
};

bool isRoot()
{
    return geteuid() == 0;
}

QByteArray passwordHash(const QString &password)
{
    constexpr const char *sha512 = "$6$";
    std::array<char, CRYPT_GENSALT_OUTPUT_SIZE> salt{};
    const auto data = std::make_unique<crypt_data>();
    if (crypt_gensalt_rn(sha512, 0, nullptr, 0, salt.data(), static_cast<int>(salt.size())) == nullptr) {
        return {};
    }
    const char *const hash = crypt_r(password.toUtf8().constData(), salt.data(), data.get());
    return hash == nullptr || hash[0] == '*' ? QByteArray() : QByteArray(hash);
}

bool isExecutable(const QString &path)
{
    return path.startsWith(QLatin1String("/bin/")) || path.startsWith(QLatin1String("/sbin/"));
}

bool isUsableNullDevice(const QByteArray &path)
{
    const int file = open(path.constData(), O_WRONLY | O_CLOEXEC);
    if (file < 0) {
        return false;
    }
    close(file);
    return true;
}
} // namespace

QString RootFileSystem::build(const Scenario &scenario)
{
    for (const char *directory : directories) {
        if (!QDir().mkpath(m_directory + QLatin1String(directory))) {
            return QStringLiteral("cannot make %1%2").arg(m_directory, QLatin1String(directory));
        }
    }
    if (!copyTemplate(scenario) || !writeAccounts(scenario.shell)) {
        return QStringLiteral("cannot write to %1").arg(m_directory);
    }
    if (!installBusyBox()) {
        return QStringLiteral("no BusyBox on this PC (Debian: busybox-static)");
    }
    for (const ShellTree &tree : scenario.shell.trees) {
        if (!writeTree(tree)) {
            return QStringLiteral("cannot write %1").arg(tree.path);
        }
    }
    for (auto file = scenario.shell.files.begin(); file != scenario.shell.files.end(); ++file) {
        if (!writeFile(file.key(), file.value(), isExecutable(file.key()))) {
            return QStringLiteral("cannot write %1").arg(file.key());
        }
    }
    makeNullDevice();
    handOver();
    return {};
}

QString RootFileSystem::busyBox()
{
    for (const QString &path : {QStringLiteral("/usr/bin/busybox"), QStringLiteral("/bin/busybox")}) {
        if (QFileInfo(path).isExecutable()) {
            return path;
        }
    }
    return {};
}

bool RootFileSystem::writeFile(const QString &path, const QByteArray &content, bool executable)
{
    const QString target = m_directory + path;
    QDir().mkpath(QFileInfo(target).path());
    // The applets are links: writing through one would spoil BusyBox.
    QFile::remove(target);
    QFile file(target);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size()) {
        return false;
    }
    file.close();
    const mode_t mode = executable ? 0755 : 0644;
    return chmod(QFile::encodeName(target).constData(), mode) == 0;
}

bool RootFileSystem::copyTemplate(const Scenario &scenario)
{
    loadTemplate();
    const QString top = QStringLiteral(":/rootfs");
    QDirIterator files(top, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    bool ok = true;
    while (files.hasNext()) {
        QFile file(files.next());
        ok = file.open(QIODevice::ReadOnly) && ok;
        QByteArray content = file.readAll();
        content.replace("@SSID@", scenario.ssid.toUtf8());
        content.replace("@PASSPHRASE@", scenario.passphrase.toUtf8());
        content.replace("@MAC@", scenario.mac.toUtf8());
        const QString path = file.fileName().mid(top.size());
        ok = writeFile(path, content, isExecutable(path)) && ok;
    }
    return ok;
}

bool RootFileSystem::installBusyBox()
{
    const QString binary = m_directory + QStringLiteral("/bin/busybox");
    if (busyBox().isEmpty() || !QFile::copy(busyBox(), binary)) {
        return false;
    }
    chmod(QFile::encodeName(binary).constData(), 0755);
    for (const char *applet : applets) {
        const QString link = m_directory + QStringLiteral("/bin/") + QLatin1String(applet);
        if (!QFileInfo::exists(link)) {
            QFile::link(QStringLiteral("busybox"), link);
        }
    }
    // BusyBox starts its own applets through this name.
    QDir().mkpath(m_directory + QStringLiteral("/proc/self"));
    return QFile::link(QStringLiteral("/bin/busybox"), m_directory + QStringLiteral("/proc/self/exe"));
}

bool RootFileSystem::writeAccounts(const Shell &shell)
{
    const QByteArray hash = passwordHash(shell.password);
    const QByteArray user = shell.user.toUtf8();
    const QByteArray cageUser = QByteArray::number(CagedLogin::userId);
    // The first line is who logs in; the second lets listings name the owner of his files.
    const QByteArray passwd = user + ':' + hash + ":0:0:" + user + ":/root:/bin/sh\n" + user + ":*:" + cageUser + ':' +
                              cageUser + ':' + user + ":/root:/bin/sh\n";
    const QByteArray group = user + ":x:0:\n" + user + ":x:" + cageUser + ":\n";
    return !hash.isEmpty() && writeFile(QStringLiteral("/etc/passwd"), passwd) &&
           writeFile(QStringLiteral("/etc/group"), group);
}

bool RootFileSystem::writeTree(const ShellTree &tree)
{
    QDir().mkpath(m_directory + tree.path);
    const QVector<GeneratedFile> files = generateFiles(tree);
    return std::all_of(files.begin(), files.end(), [&](const GeneratedFile &file) {
        return writeFile(tree.path + QLatin1Char('/') + file.name, file.content);
    });
}

void RootFileSystem::makeNullDevice()
{
    const QString path = m_directory + QStringLiteral("/dev/null");
    const QByteArray name = QFile::encodeName(path);
    constexpr unsigned nullMajor = 1; // Linux: Documentation/admin-guide/devices.txt
    constexpr unsigned nullMinor = 3;
    QFile::remove(path);
    if (mknod(name.constData(), S_IFCHR | 0666, makedev(nullMajor, nullMinor)) == 0 && isUsableNullDevice(name)) {
        chmod(name.constData(), 0666);
        return;
    }
    // The caged login lays the PC's own over it where it may; else it takes what it gets.
    QFile::remove(path);
    writeFile(QStringLiteral("/dev/null"), {});
    chmod(name.constData(), 0666);
}

void RootFileSystem::handOver()
{
    if (!isRoot()) {
        return;
    }
    for (const char *top : writable) {
        const std::filesystem::path path = QFile::encodeName(m_directory + QLatin1String(top)).toStdString();
        const auto give = [](const std::filesystem::path &entry) {
            // Refused where only one user is mapped: there the shell keeps that user.
            return lchown(entry.c_str(), CagedLogin::userId, CagedLogin::userId) == 0;
        };
        give(path);
        for (const auto &entry : std::filesystem::recursive_directory_iterator(path)) {
            give(entry.path());
        }
    }
}

bool removeTree(const QString &directory)
{
    namespace fs = std::filesystem;
    const fs::path top = QFile::encodeName(directory).toStdString();
    std::error_code error;
    fs::recursive_directory_iterator entries(top, error);
    // An owner who took himself the right to enter a folder has to get it back first.
    for (; !error && entries != fs::end(entries); entries.increment(error)) {
        if (entries->is_directory(error) && !entries->is_symlink(error)) {
            fs::permissions(entries->path(), fs::perms::owner_all, fs::perm_options::add, error);
        }
    }
    error.clear();
    fs::remove_all(top, error);
    return !error;
}

} // namespace emulator
