#include "detector/store/KestDetectorFace.h"
#include "detector/store/loadSettings.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

namespace {
using TextField = QString KestDetectorFace::*;

QList<int> setBits(const QList<bool> &bits)
{
    QList<int> positions;
    for (int i = 0; i < bits.size(); ++i) {
        if (bits.at(i)) {
            positions.append(i);
        }
    }
    return positions;
}
} // namespace
Q_DECLARE_METATYPE(TextField)

class tst_loadSettings : public QObject
{
    Q_OBJECT

private slots:
    void textKeys_data();
    void textKeys();
    void statusWord_data();
    void statusWord();
    void noFileEmptiesEverySetting();
    void nothingIsWrittenBack();

private:
    void load(const QByteArray &content);

    QTemporaryDir m_folder;
};

void tst_loadSettings::load(const QByteArray &content)
{
    // One file for each call: settings are cached by path.
    static int count = 0;
    const QString path = m_folder.filePath(QStringLiteral("option%1.ini").arg(++count));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write(content);
    file.close();
    loadSettings(path, KestDetectorFace::Get());
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), content);
}

void tst_loadSettings::textKeys_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<TextField>("field");
    QTest::addColumn<QString>("value");

    using Face = KestDetectorFace;
    const auto row = [](const char *content, TextField field, const char *value) {
        QTest::newRow(content) << QByteArray(content) << field << QString::fromLatin1(value);
    };
    row("[BaseOption]\nusername=root\n", &Face::username, "root");
    row("[BaseOption]\npassword=secret word\n", &Face::password, "secret word");
    row("[BaseOption]\nftpName=ftp\n", &Face::ftpName, "ftp");
    row("[BaseOption]\nftpPsw=psw\n", &Face::ftpPsw, "psw");
    row("[BaseOption]\nftpPort=0021\n", &Face::ftpPort, "0021");
    row("[DownloadLogSrcPath]\nLogPath=/a/log\n", &Face::logPath, "/a/log");
    row("[DownloadLogSrcPath]\nPrivatePath=/a/private\n", &Face::privatePath, "/a/private");
    row("[DownloadLogSrcPath]\nVersionPath=/a/version\n", &Face::versionPath, "/a/version");
    row("[DownloadLogSrcPath]\nNetconfPath=/a/netconf\n", &Face::netconfPath, "/a/netconf");
    row("[DownloadLogSrcPath]\nMciInfoPath=/a/mci\n", &Face::mciInfoPath, "/a/mci");
    row("[DownloadLogSrcPath]\nSharefsPath=/a/share\n", &Face::sharefsPath, "/a/share");
    row("[ZipLogPath]\nZipLogTargetPath=/tmp/zip\n", &Face::zipLogTargetPath, "/tmp/zip");
    row("[SystemLogPath]\nHostApdUrl=/etc/ap\n", &Face::hostApdUrl, "/etc/ap");
    row("[SystemLogPath]\nMacAddressUrl=/sys/mac\n", &Face::macAddressUrl, "/sys/mac");
    row("[SystemLogPath]\nTFCardInfoUrl=/proc/card\n", &Face::tfCardInfoUrl, "/proc/card");
}

void tst_loadSettings::textKeys()
{
    QFETCH(const QByteArray, content);
    QFETCH(const TextField, field);
    QFETCH(const QString, value);
    KestDetectorFace::Get()->*field = QStringLiteral("from before");
    load(content);
    QCOMPARE(KestDetectorFace::Get()->*field, value);
    load("[Other]\nkey=1\n");
    QCOMPARE(KestDetectorFace::Get()->*field, QString());
}

void tst_loadSettings::statusWord_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<quint64>("mask");
    QTest::addColumn<QList<int>>("bits");

    const quint64 ones = 0xFFFFFFFFFFFFFFFFU;
    const QList<int> none;
    QTest::newRow("highest and lowest status bit alone")
        << QByteArray("[CameraStatus]\nstatusBits=8000000000000001\n") << ones << QList<int>{0, 63};
    QTest::newRow("expected value 0") << QByteArray("[CameraStatus]\nexpectedVal=0\n") << ones << none;
    QTest::newRow("expected value of sixteen F")
        << QByteArray("[CameraStatus]\nexpectedVal=FFFFFFFFFFFFFFFF\n") << quint64{0} << none;
    QTest::newRow("both, lower case") << QByteArray("[CameraStatus]\nexpectedVal=8000a\nstatusBits=8000a\n")
                                      << quint64{0xFFFFFFFFFFF7FFF5U} << QList<int>{1, 3, 19};
    QTest::newRow("with the prefix 0x") << QByteArray("[CameraStatus]\nexpectedVal=0x01\nstatusBits=0x02\n")
                                        << quint64{0xFFFFFFFFFFFFFFFEU} << QList<int>{1};
    QTest::newRow("not a number") << QByteArray("[CameraStatus]\nexpectedVal=ten\nstatusBits=xyz\n") << ones << none;
    QTest::newRow("seventeen digits") << QByteArray("[CameraStatus]\nexpectedVal=1FFFFFFFFFFFFFFFF\n") << ones << none;
    QTest::newRow("empty file") << QByteArray() << ones << none;
}

void tst_loadSettings::statusWord()
{
    QFETCH(const QByteArray, content);
    QFETCH(const quint64, mask);
    QFETCH(const QList<int>, bits);
    load(content);
    QCOMPARE(KestDetectorFace::Get()->cameraStatusMask, mask);
    QCOMPARE(KestDetectorFace::Get()->statusBitList.size(), 64);
    QCOMPARE(setBits(KestDetectorFace::Get()->statusBitList), bits);
}

void tst_loadSettings::noFileEmptiesEverySetting()
{
    load("[BaseOption]\nusername=root\n[CameraStatus]\nexpectedVal=1\nstatusBits=1\n");
    loadSettings(m_folder.filePath(QStringLiteral("missing.ini")), KestDetectorFace::Get());
    QCOMPARE(KestDetectorFace::Get()->username, QString());
    QCOMPARE(KestDetectorFace::Get()->cameraStatusMask, quint64{0xFFFFFFFFFFFFFFFFU});
    QCOMPARE(KestDetectorFace::Get()->statusBitList.size(), 64);
    QCOMPARE(setBits(KestDetectorFace::Get()->statusBitList), QList<int>());
}

void tst_loadSettings::nothingIsWrittenBack()
{
    const QString path = m_folder.filePath(QStringLiteral("untouched.ini"));
    loadSettings(path, KestDetectorFace::Get());
    QVERIFY(!QFile::exists(path));
}

QTEST_MAIN(tst_loadSettings)
#include "tst_loadSettings.moc"
