#include "emulator/services/generatedFiles.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <random>

namespace emulator {

namespace {
constexpr int textFileSize = 512 * 1024;
constexpr int binaryFileSize = 48 * 1024;

constexpr std::array<const char *, 8> logLines{
    "camera_service[171]: capture: frame queue length %u",
    "camera_service[171]: encoder: bit rate %u kbit/s",
    "camera_service[171]: gimbal_link: answer after %u us",
    "camera_service[171]: battery_poll: %u mV",
    "camera_service[171]: command_server: request %u served",
    "hostapd: ap0: STA 3c:84:6a:11:20:7e IEEE 802.11: rekeyed, counter %u",
    "kernel: mmc0: tuning window %u",
    "udhcpd[160]: lease renewed, %u s left",
};

constexpr std::array<const char *, 6> binaryNames{
    "calibration/imu table.bin", "calibration/镜头 校准.dat", "用户设置/default profile.bin",
    "用户设置/夜景.bin",         "thumbs/IMG 0001.thm",       "thumbs/IMG 0002.thm",
};

QString numbered(const QString &name, int round)
{
    return round == 0 ? name : QStringLiteral("%1.%2").arg(name).arg(round);
}

GeneratedFile logFile(int index, int size, std::mt19937 &random)
{
    QByteArray content;
    content.reserve(size + 128);
    unsigned seconds = static_cast<unsigned>(index) * 7200;
    while (content.size() < size) {
        seconds += static_cast<unsigned>(random() % 3);
        std::array<char, 160> line{};
        const int prefix = std::snprintf(line.data(), line.size(), "May  1 %02u:%02u:%02u camera ", seconds / 3600 % 24,
                                         seconds / 60 % 60, seconds % 60);
        const char *const format = logLines[random() % logLines.size()];
        QString text = QString::fromLatin1(format);
        text.replace(QLatin1String("%u"), QString::number(random() % 10000));
        content += QByteArray(line.data(), prefix) + text.toLatin1() + '\n';
    }
    content.truncate(size);
    const QString name = index == 0 ? QStringLiteral("messages") : QStringLiteral("archive/messages.%1").arg(index);
    return {name, content};
}

GeneratedFile binaryFile(int index, int size, std::mt19937 &random)
{
    QByteArray content(size, '\0');
    std::generate(content.begin(), content.end(), [&random] { return static_cast<char>(random() & 0xFF); });
    const auto names = static_cast<int>(binaryNames.size());
    const char *const name = binaryNames[static_cast<std::size_t>(index % names)];
    return {numbered(QString::fromUtf8(name), index / names), content};
}
} // namespace

QVector<GeneratedFile> generateFiles(const ShellTree &tree)
{
    const bool text = tree.kind == ShellTree::Kind::text;
    const int fileSize = text ? textFileSize : binaryFileSize;
    std::mt19937 random(tree.seed); // NOLINT(cert-msc32-c,cert-msc51-cpp): the same every time, on purpose
    QVector<GeneratedFile> files;
    for (int left = tree.size; left > 0; left -= fileSize) {
        const int size = std::min(left, fileSize);
        files.append(text ? logFile(static_cast<int>(files.size()), size, random)
                          : binaryFile(static_cast<int>(files.size()), size, random));
    }
    return files;
}

} // namespace emulator
