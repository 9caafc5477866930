#include "history/address/StoreAddress.h"

#include <QTest>

class tst_StoreAddress : public QObject
{
    Q_OBJECT

private slots:
    void server_data();
    void server();
    void refused_data();
    void refused();
    void file();
};

namespace {
const QString usual =
    QStringLiteral(" connect_timeout='3' tcp_user_timeout='5000' keepalives_idle='10' keepalives_interval='5' "
                   "keepalives_count='3' application_name='KestDetector'");
}

void tst_StoreAddress::server_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("conninfo");
    const auto row = [](const char *title, const char *url, const char *options) {
        QTest::newRow(title) << QString::fromUtf8(url) << QString::fromUtf8(options) + usual;
    };
    row("user, host and database", "postgresql://line@db/runs", "user='line' host='db' dbname='runs'");
    row("port", "postgresql://line@db:5433/runs", "user='line' host='db' port='5433' dbname='runs'");
    row("the other name", "postgres://db/runs", "host='db' dbname='runs'");
    row("IPv6", "postgresql://line@[::1]:5433/runs", "user='line' host='::1' port='5433' dbname='runs'");
    row("IPv6 without a port", "postgresql://[fe80::1]/runs", "host='fe80::1' dbname='runs'");
    row("several hosts", "postgresql://line@one:1,two/runs", "user='line' host='one,two' port='1,' dbname='runs'");
    row("socket folder", "postgresql://%2Fvar%2Frun/runs", "host='/var/run' dbname='runs'");
    row("option", "postgresql://db/runs?sslmode=verify-full&sslrootcert=/a%20b",
        "sslmode='verify-full' sslrootcert='/a b' host='db' dbname='runs'");
    row("service alone", "postgresql://?service=plant", "service='plant'");
    row("quotes and backslashes", "postgresql://o'neil@db/a\\b", "user='o\\'neil' host='db' dbname='a\\\\b'");
    row("escaped at sign", "postgresql://a%40b@db/runs", "user='a@b' host='db' dbname='runs'");
    QTest::newRow("what it says itself")
        << QStringLiteral("postgresql://db/runs?connect_timeout=30&application_name=x")
        << QStringLiteral("connect_timeout='30' application_name='x' host='db' dbname='runs' tcp_user_timeout='5000' "
                          "keepalives_idle='10' keepalives_interval='5' keepalives_count='3'");
    QTest::newRow("nothing") << QStringLiteral("postgresql://") << usual.mid(1);
}

void tst_StoreAddress::server()
{
    QFETCH(QString, url);
    QString error;
    const std::optional<StoreAddress> address = StoreAddress::server(url, &error);
    QVERIFY2(address, qUtf8Printable(error));
    QVERIFY(address->engine == StoreAddress::Engine::PostgreSql);
    QTEST(address->conninfo, "conninfo");
    QCOMPARE(address->name, url);
}

void tst_StoreAddress::refused_data()
{
    QTest::addColumn<QString>("url");
    QTest::addColumn<QString>("reason");
    const QString form = QStringLiteral("not of the form postgresql://user@host/database");
    const QString password = QStringLiteral("a password does not belong here: put it into .pgpass");
    const QString option = QStringLiteral("holds an option that cannot be passed on");
    QTest::newRow("empty") << QString() << form;
    QTest::newRow("a host") << QStringLiteral("db") << form;
    QTest::newRow("another scheme") << QStringLiteral("mysql://db/runs") << form;
    QTest::newRow("password") << QStringLiteral("postgresql://line:secret@db/runs") << password;
    QTest::newRow("empty password") << QStringLiteral("postgresql://line:@db/runs") << password;
    QTest::newRow("password with an at sign") << QStringLiteral("postgresql://line:a@b@db/runs") << password;
    QTest::newRow("password as an option") << QStringLiteral("postgresql://db/runs?password=secret") << password;
    QTest::newRow("password of a key") << QStringLiteral("postgresql://db/runs?sslpassword=secret") << password;
    QTest::newRow("escaped key") << QStringLiteral("postgresql://db/runs?pass%77ord=secret") << password;
    QTest::newRow("semicolon") << QStringLiteral("postgresql://db/runs?options=a%3Bpassword=b") << option;
    QTest::newRow("key with a blank") << QStringLiteral("postgresql://db/runs?a%20password=b") << option;
    QTest::newRow("key in capitals") << QStringLiteral("postgresql://db/runs?PASSWORD=b") << option;
}

void tst_StoreAddress::refused()
{
    QFETCH(QString, url);
    QString error;
    QVERIFY(!StoreAddress::server(url, &error));
    QTEST(error, "reason");
}

void tst_StoreAddress::file()
{
    const StoreAddress address = StoreAddress::file(QStringLiteral("a/历史.sqlite"));
    QVERIFY(address.engine == StoreAddress::Engine::Sqlite);
    QCOMPARE(address.path, QStringLiteral("a/历史.sqlite"));
    QCOMPARE(address.name, QStringLiteral("a/历史.sqlite"));
    QCOMPARE(address.conninfo, QString());
}

QTEST_GUILESS_MAIN(tst_StoreAddress)
#include "tst_StoreAddress.moc"
