#include "record/wholeFile.h"
#include "support/fileContent.h"
#include "support/SmallFiles.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <sys/stat.h>

/// Files that are there completely or not at all.
class tst_wholeFile : public QObject
{
    Q_OBJECT

private slots:
    void writesAndReplaces();
    void tellsWhyNot_data();
    void tellsWhyNot();
    void leavesTheEarlierFileWhenTheDiskIsFull_data();
    void leavesTheEarlierFileWhenTheDiskIsFull();
};

void tst_wholeFile::writesAndReplaces()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("记录.json"));
    QCOMPARE(writeWholeFile(path, QByteArray(100000, 'a')), QString());
    QCOMPARE(fileContent(path), QByteArray(100000, 'a'));
    QCOMPARE(writeWholeFile(path, "b\n"), QString());
    QCOMPARE(fileContent(path), QByteArray("b\n"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("记录.json")});
}

void tst_wholeFile::tellsWhyNot_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("reason");
    QTest::newRow("no such folder") << "none/record.json"
                                    << "No such file or directory";
    QTest::newRow("below a file") << "file/record.json"
                                  << "Not a directory";
    QTest::newRow("a pipe has the name") << "pipe"
                                         << "Not a regular file";
    QTest::newRow("a folder has the name") << "folder"
                                           << "Filename refers to a directory";
}

void tst_wholeFile::tellsWhyNot()
{
    QFETCH(QString, path);
    const QTemporaryDir folder;
    QVERIFY(QDir(folder.path()).mkdir(QStringLiteral("folder")));
    QFile file(folder.filePath(QStringLiteral("file")));
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(mkfifo(QFile::encodeName(folder.filePath(QStringLiteral("pipe"))).constData(), 0600), 0);
    QTEST(writeWholeFile(folder.filePath(path), "a"), "reason");
    QCOMPARE(QDir(folder.path()).entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot),
             QStringList({QStringLiteral("file"), QStringLiteral("folder"), QStringLiteral("pipe")}));
}

void tst_wholeFile::leavesTheEarlierFileWhenTheDiskIsFull_data()
{
    QTest::addColumn<int>("size");
    QTest::newRow("a few bytes over") << 5000;
    QTest::newRow("much over") << 100000;
}

void tst_wholeFile::leavesTheEarlierFileWhenTheDiskIsFull()
{
    QFETCH(int, size);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("record.json"));
    QCOMPARE(writeWholeFile(path, "earlier"), QString());
    const SmallFiles limit(4096);
    QCOMPARE(writeWholeFile(path, QByteArray(size, 'a')), QStringLiteral("File too large"));
    QCOMPARE(fileContent(path), QByteArray("earlier"));
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("record.json")});
}

QTEST_GUILESS_MAIN(tst_wholeFile)
#include "tst_wholeFile.moc"
