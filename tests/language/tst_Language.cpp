#include "language/Language.h"
#include "language/languageOption.h"

#include <QCommandLineParser>
#include <QDate>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>
#include <QTranslator>

Q_DECLARE_METATYPE(Language)

/// Which language a program speaks, and what it is told that knows none of the name.
class tst_Language : public QObject
{
    Q_OBJECT

private slots:
    void names_data();
    void names();
    void chosen_data();
    void chosen();
    void noSettingsFile();
    void problems_data();
    void problems();
    void textsOfALanguage_data();
    void textsOfALanguage();

private:
    QTemporaryDir m_folder;
};

void tst_Language::names_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("isKnown");
    QTest::addColumn<Language>("language");

    QTest::newRow("no name") << QString() << true << Language::AsWritten;
    QTest::newRow("English") << "en" << true << Language::English;
    QTest::newRow("Simplified Chinese") << "zh_CN" << true << Language::Chinese;
    QTest::newRow("another one") << "de" << false << Language::AsWritten;
    QTest::newRow("another case") << "EN" << false << Language::AsWritten;
    QTest::newRow("a country more") << "en_GB" << false << Language::AsWritten;
}

void tst_Language::names()
{
    QFETCH(const QString, name);
    bool isKnown = false;
    const Language language = languageNamed(name, &isKnown);
    QTEST(isKnown, "isKnown");
    QTEST(language, "language");
}

void tst_Language::chosen_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QByteArray>("settings");
    QTest::addColumn<Language>("language");

    const QByteArray english("[Interface]\nlanguage=en\n");
    QTest::newRow("nothing said") << QStringList() << QByteArray("[BaseOption]\nusb=\n") << Language::AsWritten;
    QTest::newRow("by the setting") << QStringList() << english << Language::English;
    QTest::newRow("setting of another kind")
        << QStringList() << QByteArray("[Interface]\nlanguage=english\n") << Language::AsWritten;
    QTest::newRow("by the option") << QStringList{"--run", "all", "--language", "zh_CN"} << QByteArray()
                                   << Language::Chinese;
    QTest::newRow("by the option, joined") << QStringList{"--language=en"} << QByteArray() << Language::English;
    QTest::newRow("the option wins") << QStringList{"--language", "zh_CN"} << english << Language::Chinese;
    QTest::newRow("the last option wins")
        << QStringList{"--language", "zh_CN", "--language=en"} << QByteArray() << Language::English;
    QTest::newRow("wrong option") << QStringList{"--language", "de"} << english << Language::English;
    QTest::newRow("option without a value") << QStringList{"--language"} << english << Language::English;
    QTest::newRow("behind the options") << QStringList{"--", "--language", "zh_CN"} << QByteArray()
                                        << Language::AsWritten;
}

void tst_Language::chosen()
{
    QFETCH(const QStringList, arguments);
    QFETCH(const QByteArray, settings);
    // One file for each row: settings are cached by path.
    const QString path =
        m_folder.filePath(QString::fromUtf8(QTest::currentDataTag()).replace(QLatin1Char(' '), QLatin1Char('_')));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    QCOMPARE(file.write(settings), settings.size());
    file.close();
    QTEST(chosenLanguage(QStringList{QStringLiteral("program")} + arguments, path), "language");
}

void tst_Language::noSettingsFile()
{
    const QString path = m_folder.filePath(QStringLiteral("missing.ini"));
    QVERIFY(chosenLanguage({QStringLiteral("program")}, path) == Language::AsWritten);
    QVERIFY(!QFile::exists(path));
}

void tst_Language::problems_data()
{
    QTest::addColumn<QString>("argument");
    QTest::addColumn<QString>("problem");

    QTest::newRow("not given") << "--other" << QString();
    QTest::newRow("English") << "--language=en" << QString();
    QTest::newRow("unknown") << "--language=de"
                             << "--language: \"de\" is neither en nor zh_CN";
    QTest::newRow("empty") << "--language="
                           << "--language: \"\" is neither en nor zh_CN";
}

void tst_Language::problems()
{
    QFETCH(const QString, argument);
    const QCommandLineOption option = languageOption();
    QCommandLineParser parser;
    parser.addOptions({option, QCommandLineOption(QStringLiteral("other"))});
    QVERIFY(parser.parse({QStringLiteral("program"), argument}));
    QTEST(languageProblem(parser, option), "problem");
}

void tst_Language::textsOfALanguage_data()
{
    const QDate someDay(2026, 11, 21);
    QTest::addColumn<Language>("language");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("answered");
    QTest::addColumn<QString>("yaw");
    QTest::addColumn<QString>("pitch");
    QTest::addColumn<QString>("unknown");
    QTest::addColumn<QString>("date");

    QTest::newRow("as written") << Language::AsWritten << QString() << "获取电池信息成功\n"
                                << "Pitch轴运动检测NG\n"
                                << "Pitch轴运动检测NG\n"
                                << "a text of nobody" << QLocale().toString(someDay, QLocale::ShortFormat);
    QTest::newRow("English") << Language::English << "en"
                             << "Battery information read\n"
                             << "Yaw axis motion NG\n"
                             << "Pitch axis motion NG\n"
                             << "a text of nobody"
                             << "21 Nov 2026";
    QTest::newRow("Chinese") << Language::Chinese << "zh_CN"
                             << "获取电池信息成功\n"
                             << "偏航轴运动检测NG\n"
                             << "俯仰轴运动检测NG\n"
                             << "a text of nobody"
                             << "2026/11/21";
}

void tst_Language::textsOfALanguage()
{
    QFETCH(const Language, language);
    installLanguage(*QCoreApplication::instance(), language);
    QTEST(installedLanguageName(), "name");
    QTEST(QCoreApplication::translate("QObject", "获取电池信息成功\n"), "answered");
    QTEST(QCoreApplication::translate("QObject", "Pitch轴运动检测NG\n", "of the yaw axis"), "yaw");
    QTEST(QCoreApplication::translate("QObject", "Pitch轴运动检测NG\n"), "pitch");
    QTEST(QCoreApplication::translate("QObject", "a text of nobody"), "unknown");
    QTEST(shownLocale().toString(QDate(2026, 11, 21), QLocale::ShortFormat), "date");
    QCOMPARE(QString::number(1.5), QStringLiteral("1.5"));
    QCOMPARE(QStringLiteral("%1").arg(1234.5), QStringLiteral("1234.5"));
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>());
    QCOMPARE(QCoreApplication::translate("QObject", "获取电池信息成功\n"), QStringLiteral("获取电池信息成功\n"));
}

QTEST_GUILESS_MAIN(tst_Language)
#include "tst_Language.moc"
