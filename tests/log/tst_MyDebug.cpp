#include "log/MyDebug.h"
#include "support/fileContent.h"

#include <functional>
#include <limits>
#include <QCoreApplication>
#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QPoint>
#include <QPointF>
#include <QProcess>
#include <QRect>
#include <QRectF>
#include <QtTest>
#include <sys/stat.h>

using Insertion = std::function<void()>;
Q_DECLARE_METATYPE(Insertion)
Q_DECLARE_METATYPE(MyDebug::Readers)

namespace {
constexpr int stampSize = 19;
constexpr char writeRecordArgument[] = "--write-record";

QString logPath()
{
    return QCoreApplication::applicationDirPath() + QStringLiteral("/log.txt");
}

QByteArray logBytes()
{
    return fileContent(logPath());
}

void putLogBytes(const QByteArray &bytes)
{
    QFile file(logPath());
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), qint64(bytes.size()));
}

/// `size` bytes in lines of 10 that tell their position: "000000000\n000000001\n" and so on.
QByteArray numberedBytes(int size)
{
    QByteArray bytes;
    bytes.reserve(size + 10);
    for (int line = 0; bytes.size() < size; ++line) {
        bytes += QByteArray::number(line).rightJustified(9, '0') + '\n';
    }
    bytes.truncate(size);
    return bytes;
}

/// The one record in the log, behind its time stamp.
QByteArray soleRecord()
{
    const QByteArray bytes = logBytes();
    return bytes.count("$#$\r\n") == 1 ? bytes.mid(stampSize) : "not one record: " + bytes;
}
} // namespace

class tst_MyDebug : public QObject
{
    Q_OBJECT

private slots:
    void init();
    void cleanup();
    void formatsArgument_data();
    void formatsArgument();
    void terminatorAloneWritesEmptyRecord();
    void nothingIsWrittenWithoutTerminator();
    void everyPieceIsFollowedByTwoBlanks();
    void recordIsUtf8();
    void stampIsLocalTime();
    void terminatorWithinChainRepeatsEarlierPieces();
    void namedLoggerKeepsItsPieces();
    void write2LogWritesForTerminatorOnly();
    void recordsAreAppended();
    void longChainKeepsEveryPiece();
    void trimsAboveLimit_data();
    void trimsAboveLimit();
    void recordsLongerThanTheLimitDoNotPileUp();
    void staysWithinLimitOverManyRecords();
    void unusableFileIsIgnored();
    void readers_data();
    void readers();
    void worksInDirectoryWithBlanks();
};

void tst_MyDebug::init()
{
    QFile::remove(logPath());
}

void tst_MyDebug::cleanup()
{
    QFile::remove(logPath());
    QDir().rmdir(logPath());
}

void tst_MyDebug::formatsArgument_data()
{
    QTest::addColumn<Insertion>("insert");
    QTest::addColumn<QByteArray>("text");
    const auto row = [](const char *name, auto value, const char *text) {
        QTest::newRow(name) << Insertion([value] { MyDebug() << value << MyDebug::terminator(); }) << QByteArray(text);
    };
    row("QString", QStringLiteral("a %1 b"), "a %1 b");
    row("empty QString", QString(), "");
    row("true", true, "true");
    row("false", false, "false");
    row("char", 'x', "x");
    row("percent sign as a char", '%', "%");
    row("short", std::numeric_limits<short>::min(), "-32768");
    row("unsigned short", std::numeric_limits<unsigned short>::max(), "65535");
    row("int", std::numeric_limits<int>::min(), "-2147483648");
    row("unsigned int", std::numeric_limits<unsigned int>::max(), "4294967295");
    row("long", -7L, "-7");
    row("unsigned long", 7UL, "7");
    row("long long", std::numeric_limits<long long>::min(), "-9223372036854775808");
    row("unsigned long long", std::numeric_limits<unsigned long long>::max(), "18446744073709551615");
    row("float", 0.5F, "0.5");
    row("double", -1.25, "-1.25");
    row("double with more digits than are shown", 3.14159265, "3.14159");
    row("large double", 1e20, "1e+20");
    row("C string", "plain", "plain");
    row("null C string", static_cast<const char *>(nullptr), "");
    row("C string with a byte above 127", "caf\xE9", "caf\xC3\xA9");
    row("byte array", QByteArray("bytes"), "bytes");
    row("byte array with bytes above 127", QByteArray("\xE7\x9B\xB8\xFF"), "\xC3\xA7\xC2\x9B\xC2\xB8\xC3\xBF");
    row("char above 127", '\xE9', "\xC3\xA9");
    row("QPoint", QPoint(-3, 4), "(-3, 4)");
    row("QPointF", QPointF(0.5, 1e20), "(0.5, 1e+20)");
    row("QRect from (0, 0) to (9, 4)", QRect(QPoint(0, 0), QPoint(9, 4)), "(0, 0, 10 x 5)");
    row("QRect off the origin", QRect(QPoint(-2, 7), QPoint(-2, 6)), "(-2, 7, 1 x 0)");
    row("QRectF", QRectF(0.25, -1, 2.5, 3), "(0.25, -1, 2.5 x 3)");
    static const int target = 0;
    const QByteArray address = "0x" + QByteArray::number(reinterpret_cast<quintptr>(&target), 16);
    row("pointer", static_cast<const void *>(&target), address.constData());
    row("pointer of another type", &target, address.constData());
    row("null pointer", static_cast<const void *>(nullptr), "(nil)");
}

void tst_MyDebug::formatsArgument()
{
    QFETCH(Insertion, insert);
    QFETCH(QByteArray, text);
    insert();
    QCOMPARE(soleRecord(), QByteArray(" : ") + text + "  $#$\r\n");
}

void tst_MyDebug::terminatorAloneWritesEmptyRecord()
{
    MyDebug() << MyDebug::terminator();
    QCOMPARE(soleRecord(), QByteArray(" : $#$\r\n"));
}

void tst_MyDebug::nothingIsWrittenWithoutTerminator()
{
    MyDebug() << "a" << QStringLiteral("$#$") << QStringLiteral("$#$\r\n ") << QStringLiteral("\r\n");
    QVERIFY(!QFile::exists(logPath()));
}

void tst_MyDebug::everyPieceIsFollowedByTwoBlanks()
{
    MyDebug() << "A" << QString() << 12 << "$#$\r\n";
    QCOMPARE(soleRecord(), QByteArray(" : A    12  $#$\r\n"));
}

void tst_MyDebug::recordIsUtf8()
{
    MyDebug() << QString::fromUtf8("相机 é") << MyDebug::terminator();
    QCOMPARE(soleRecord(), QByteArray(" : \xE7\x9B\xB8\xE6\x9C\xBA \xC3\xA9  $#$\r\n"));
}

void tst_MyDebug::stampIsLocalTime()
{
    const QDateTime before = QDateTime::currentDateTime().addMSecs(-999);
    MyDebug() << MyDebug::terminator();
    const QDateTime after = QDateTime::currentDateTime();
    const QString stamp = QString::fromLatin1(logBytes().left(stampSize));
    const QRegularExpression form(QStringLiteral("^\\d{4}\\.\\d\\d\\.\\d\\d \\d\\d:\\d\\d:\\d\\d$"));
    QVERIFY2(form.match(stamp).hasMatch(), qPrintable(stamp));
    const QDateTime written = QDateTime::fromString(stamp, QStringLiteral("yyyy.MM.dd hh:mm:ss"));
    QVERIFY2(before <= written && written <= after, qPrintable(stamp));
}

void tst_MyDebug::terminatorWithinChainRepeatsEarlierPieces()
{
    MyDebug() << "A" << MyDebug::terminator() << "B" << MyDebug::terminator();
    const QByteArray bytes = logBytes();
    const auto first = static_cast<int>(bytes.indexOf("$#$\r\n") + 5);
    QCOMPARE(bytes.left(first).mid(stampSize), QByteArray(" : A  $#$\r\n"));
    QCOMPARE(bytes.mid(first + stampSize), QByteArray(" : A  B  $#$\r\n"));
}

void tst_MyDebug::namedLoggerKeepsItsPieces()
{
    MyDebug logger;
    logger << "A";
    const MyDebug copy = logger << "B";
    MyDebug other = copy;
    other << "C" << MyDebug::terminator();
    QCOMPARE(soleRecord(), QByteArray(" : A  B  C  $#$\r\n"));
    QFile::remove(logPath());
    logger << MyDebug::terminator();
    QCOMPARE(soleRecord(), QByteArray(" : A  B  $#$\r\n"));
}

void tst_MyDebug::write2LogWritesForTerminatorOnly()
{
    MyDebug logger;
    logger.Write(QStringLiteral("A"));
    logger.write2Log(QStringLiteral("B"));
    QVERIFY(!QFile::exists(logPath()));
    logger.write2Log(QStringLiteral("$#$\r\n"));
    QCOMPARE(soleRecord(), QByteArray(" : A  $#$\r\n"));
}

void tst_MyDebug::recordsAreAppended()
{
    putLogBytes("old text without an end");
    MyDebug() << 1 << MyDebug::terminator();
    MyDebug() << 2 << MyDebug::terminator();
    const QByteArray bytes = logBytes();
    QVERIFY(bytes.startsWith("old text without an end"));
    const QByteArray first = bytes.mid(23, stampSize + 11);
    QCOMPARE(first.mid(stampSize), QByteArray(" : 1  $#$\r\n"));
    QCOMPARE(bytes.mid(23 + first.size() + stampSize), QByteArray(" : 2  $#$\r\n"));
}

void tst_MyDebug::longChainKeepsEveryPiece()
{
    MyDebug logger;
    const QString reply(1 << 20, QLatin1Char('x'));
    logger << reply;
    for (int i = 0; i < 10000; ++i) {
        logger.Write(QStringLiteral("y"));
    }
    logger << MyDebug::terminator();
    const QByteArray record = soleRecord();
    QCOMPARE(record.size(), 3 + (1 << 20) + 2 + 10000 * 3 + 5);
    QVERIFY(record.endsWith("y  y  $#$\r\n"));
}

void tst_MyDebug::trimsAboveLimit_data()
{
    QTest::addColumn<int>("size");
    QTest::addColumn<int>("kept");
    QTest::addColumn<QByteArray>("firstLine");
    QTest::newRow("one byte below the limit") << 2047999 << 2047999 << QByteArray("000000000\n");
    QTest::newRow("at the limit") << 2048000 << 2048000 << QByteArray("000000000\n");
    QTest::newRow("one byte above the limit") << 2048001 << 1024001 << QByteArray("000102400\n");
    QTest::newRow("a long record above the limit") << 3000000 << 1976000 << QByteArray("000102400\n");
    QTest::newRow("more than one part above the limit") << 3072001 << 1024001 << QByteArray("000204800\n");
    QTest::newRow("far above the limit") << 9000000 << 1832000 << QByteArray("000716800\n");
}

void tst_MyDebug::trimsAboveLimit()
{
    QFETCH(int, size);
    QFETCH(int, kept);
    QFETCH(QByteArray, firstLine);
    const QByteArray before = numberedBytes(size);
    putLogBytes(before);
    MyDebug() << "new" << MyDebug::terminator();

    const QByteArray after = logBytes();
    QCOMPARE(after.size(), kept + stampSize + 13);
    QCOMPARE(after.left(10), firstLine);
    QVERIFY(after.left(kept) == before.right(kept));
    QCOMPARE(after.mid(kept + stampSize), QByteArray(" : new  $#$\r\n"));
    const QStringList files = QFileInfo(logPath()).dir().entryList({QStringLiteral("*log.txt*")}, QDir::Files);
    QCOMPARE(files, QStringList{QStringLiteral("log.txt")});
}

void tst_MyDebug::recordsLongerThanTheLimitDoNotPileUp()
{
    const QString piece(3000000, QLatin1Char('z'));
    for (int i = 0; i < 5; ++i) {
        MyDebug() << piece << MyDebug::terminator();
        QVERIFY(logBytes().size() <= 2048000 + 3000100);
    }
}

void tst_MyDebug::staysWithinLimitOverManyRecords()
{
    const QString piece(100000, QLatin1Char('z'));
    for (int i = 0; i < 60; ++i) {
        MyDebug() << i << piece << MyDebug::terminator();
        QVERIFY(logBytes().size() <= 2048000 + 100100);
    }
    QVERIFY(logBytes().size() > 1024000);
    QVERIFY(logBytes().contains(" : 59  zzz"));
}

void tst_MyDebug::unusableFileIsIgnored()
{
    QVERIFY(QDir().mkdir(logPath()));
    MyDebug() << "lost" << MyDebug::terminator();
    QVERIFY(QFileInfo(logPath()).isDir());
    QVERIFY(QDir(logPath()).isEmpty());
}

void tst_MyDebug::readers_data()
{
    QTest::addColumn<int>("before");
    QTest::addColumn<MyDebug::Readers>("who");
    QTest::addColumn<int>("permissions");
    constexpr int none = -1;
    constexpr int all = 0x6644;
    constexpr int owner = 0x6600;
    QTest::newRow("new file for anybody") << none << MyDebug::Readers::Anybody << all;
    QTest::newRow("new file for its owner") << none << MyDebug::Readers::Owner << owner;
    QTest::newRow("open file for anybody") << all << MyDebug::Readers::Anybody << all;
    QTest::newRow("open file for its owner") << all << MyDebug::Readers::Owner << owner;
    QTest::newRow("closed file for anybody") << owner << MyDebug::Readers::Anybody << owner;
}

void tst_MyDebug::readers()
{
    QFETCH(int, before);
    QFETCH(MyDebug::Readers, who);
    QFETCH(int, permissions);
    const mode_t mask = umask(022);
    if (before != -1) {
        putLogBytes("earlier\n");
        QVERIFY(QFile::setPermissions(logPath(), QFile::Permissions(before)));
    }
    MyDebug(who) << "A" << 1 << MyDebug::terminator();
    umask(mask);
    QVERIFY(logBytes().contains("A  1  $#$\r\n"));
    QCOMPARE(int(QFile::permissions(logPath())), permissions);
}

void tst_MyDebug::worksInDirectoryWithBlanks()
{
    // The log lies beside the executable: a copy of this program runs in a directory of such a name.
    QTemporaryDir parent;
    const QString directory = parent.filePath(QStringLiteral("a directory with blanks"));
    QVERIFY(QDir().mkdir(directory));
    const QString program = directory + QStringLiteral("/copy of the test");
    QVERIFY(QFile::copy(QCoreApplication::applicationFilePath(), program));
    QFile log(directory + QStringLiteral("/log.txt"));
    QVERIFY(log.open(QIODevice::ReadWrite));
    QVERIFY(log.write(numberedBytes(2048001)) == 2048001);
    log.close();

    QCOMPARE(QProcess::execute(program, {QString::fromLatin1(writeRecordArgument)}), 0);

    const QByteArray bytes = fileContent(log.fileName());
    QCOMPARE(bytes.size(), 1024001 + stampSize + 13);
    QVERIFY(bytes.endsWith(" : new  $#$\r\n"));
}

int main(int argc, char *argv[])
{
    QCoreApplication application(argc, argv);
    if (QCoreApplication::arguments().mid(1) == QStringList{QString::fromLatin1(writeRecordArgument)}) {
        MyDebug() << "new" << MyDebug::terminator();
        return 0;
    }
    tst_MyDebug test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_MyDebug.moc"
