// option.ini as it may lie there: edited by hand, half written, binary.

#include "detector/store/Settings.h"
#include "require.h"

#include <QCoreApplication>
#include <QFile>
#include <QTemporaryDir>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static int argc = 1;
    static char name[] = "fuzz_option_ini";
    static char *argv[] = {name, nullptr};
    static const QCoreApplication application(argc, argv);
    static const QTemporaryDir folder;
    static int round = 0;
    // Settings are cached by file name, size and time: each input gets a file of its own.
    const QString path = folder.filePath(QStringLiteral("%1.ini").arg(++round));
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) ||
        file.write(reinterpret_cast<const char *>(data), static_cast<qint64>(size)) < 0) {
        return 0;
    }
    file.close();
    const Settings settings = readSettings(path);
    require(settings.statusBitList.size() == 64, "64 status bits whatever the file holds");
    QFile::remove(path);
    return 0;
}
