#include "log/MyDebug.h"

#include "places/Places.h"

#include <array>
#include <cstdio>
#include <QByteArray>
#include <QDateTime>
#include <QFile>
#include <QPoint>
#include <QPointF>
#include <QRect>
#include <QRectF>

namespace {
constexpr qint64 maxFileSize = 2048000;
constexpr qint64 trimmedPartSize = 1024000;

template <class Value>
QString formatted(Value value)
{
    return QStringLiteral("%1").arg(value);
}

template <class Point>
QString formattedPoint(const Point &point)
{
    return QStringLiteral("(%1, %2)").arg(point.x()).arg(point.y());
}

template <class Rectangle>
QString formattedRectangle(const Rectangle &rectangle)
{
    return QStringLiteral("(%1, %2, %3 x %4)")
        .arg(rectangle.x())
        .arg(rectangle.y())
        .arg(rectangle.width())
        .arg(rectangle.height());
}

/// Copies all from `position` on to the file's front, block by block: half the file in one piece would stay with the
/// process as memory that it hardly ever needs. Returns the number of bytes, or -1.
qint64 copyToFront(QFile &file, qint64 position)
{
    constexpr qint64 blockSize = 65536;
    const qint64 length = file.size() - position;
    for (qint64 copied = 0; copied < length;) {
        if (!file.seek(position + copied)) {
            return -1;
        }
        const QByteArray block = file.read(blockSize);
        if (block.isEmpty() || !file.seek(copied) || file.write(block) != block.size()) {
            return -1;
        }
        copied += block.size();
    }
    return length;
}

/// Removes the oldest parts of a file that has grown too large: one, unless single records are larger than a part. The
/// newest part is copied to the front before the file is cut, so that a process that dies in between loses none of it.
bool trim(QFile &file)
{
    const qint64 excess = file.size() - maxFileSize;
    if (excess <= 0) {
        return true;
    }
    const qint64 parts = (excess + trimmedPartSize - 1) / trimmedPartSize;
    const qint64 kept = copyToFront(file, parts * trimmedPartSize);
    return kept >= 0 && file.resize(kept);
}

/// As far as the file system has permissions at all.
void closeToOthers(QFile &file)
{
    constexpr QFile::Permissions others =
        QFile::ReadGroup | QFile::WriteGroup | QFile::ExeGroup | QFile::ReadOther | QFile::WriteOther | QFile::ExeOther;
    if (file.permissions() & others) {
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner);
    }
}
} // namespace

void MyDebug::Write(const QString &piece)
{
    if (piece != terminator()) {
        m_text += piece;
        m_text += QLatin1String("  ");
    }
    write2Log(piece);
}

void MyDebug::write2Log(const QString &piece)
{
    if (piece != terminator()) {
        return;
    }
    QFile file(Places::ofProgram().state() + QStringLiteral("/log.txt"));
    if (!file.open(QIODevice::ReadWrite | QIODevice::Unbuffered)) {
        return;
    }
    if (m_readers == Readers::Owner) {
        closeToOthers(file);
    }
    if (!trim(file) || !file.seek(file.size())) {
        return;
    }
    const QString time = QDateTime::currentDateTime().toString(QStringLiteral("yyyy.MM.dd hh:mm:ss"));
    // Encoded part by part: joining long texts first would copy them at twice the size.
    QByteArray record = (time + QStringLiteral(" : ")).toUtf8();
    record += m_text.toUtf8();
    record += terminator().toUtf8();
    file.write(record);
}

QString MyDebug::toText(bool value)
{
    return value ? QStringLiteral("true") : QStringLiteral("false");
}

QString MyDebug::toText(char character)
{
    return formatted(QLatin1Char(character));
}

QString MyDebug::toText(short number)
{
    return formatted(number);
}

QString MyDebug::toText(unsigned short number)
{
    return formatted(number);
}

QString MyDebug::toText(int number)
{
    return formatted(number);
}

QString MyDebug::toText(unsigned int number)
{
    return formatted(number);
}

QString MyDebug::toText(long number)
{
    return formatted(number);
}

QString MyDebug::toText(unsigned long number)
{
    return formatted(number);
}

QString MyDebug::toText(long long number)
{
    return formatted(number);
}

QString MyDebug::toText(unsigned long long number)
{
    return formatted(number);
}

QString MyDebug::toText(float number)
{
    return formatted(static_cast<double>(number));
}

QString MyDebug::toText(double number)
{
    return formatted(number);
}

QString MyDebug::toText(const char *text)
{
    return QString::fromLatin1(text);
}

QString MyDebug::toText(const QByteArray &bytes)
{
    return QString::fromLatin1(bytes.constData(), bytes.size());
}

QString MyDebug::toText(const QPoint &point)
{
    return formattedPoint(point);
}

QString MyDebug::toText(const QPointF &point)
{
    return formattedPoint(point);
}

QString MyDebug::toText(const QRect &rectangle)
{
    return formattedRectangle(rectangle);
}

QString MyDebug::toText(const QRectF &rectangle)
{
    return formattedRectangle(rectangle);
}

QString MyDebug::toText(const void *pointer)
{
    // The C library's own form, "(nil)" included.
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%p", pointer);
    return QString::fromLatin1(text.data());
}
