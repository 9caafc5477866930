#pragma once

#include <QByteArray>
#include <QTest>

/// Rows "json", which is no record at all, and the "error" that is told.
inline void addTextsThatAreNoJson()
{
    QTest::addColumn<QByteArray>("json");
    QTest::addColumn<QString>("error");
    QTest::newRow("nothing") << QByteArray() << "not JSON: illegal value at byte 0";
    QTest::newRow("a list") << QByteArray("[]") << "not a JSON object";
    QTest::newRow("two records") << QByteArray("{}{}") << "not JSON: garbage at the end of the document at byte 2";
    QTest::newRow("a number that nothing holds")
        << QByteArray("{\"schema\": 1e400}") << "not JSON: illegal number at byte 16";
    QTest::newRow("a byte that is no UTF-8")
        << QByteArray("{\"id\": \"\xFF\"}") << "not JSON: invalid UTF8 string at byte 8";
    QTest::newRow("lists without end") << QByteArray("{\"plan\": ") + QByteArray(100000, '[')
                                       << "not JSON: too deeply nested document at byte 1033";
    QTest::newRow("half a record") << QByteArray("{\"schema\": 1,") << "not JSON: unterminated object at byte 13";
}
