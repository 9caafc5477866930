#pragma once

#include <QString>
#include <QTest>

/// Rows "text" and what a rendering in JSON ("json") and in XML ("xml") makes of it.
inline void addHostileTexts()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("json");
    QTest::addColumn<QString>("xml");
    const auto row = [](const char *title, const QString &text, const QString &json, const QString &xml) {
        QTest::newRow(title) << text << json << xml;
    };
    const auto kept = [&row](const char *title, const QString &text) { row(title, text, text, text); };
    kept("plain", QStringLiteral("Camera-5F2A"));
    kept("quotes and backslashes", QStringLiteral("a\"b'c\\d\\\"e"));
    kept("a word of SQL", QStringLiteral("NULL"));
    kept("an array of SQL", QStringLiteral("{a,\"b\",NULL}'),\\"));
    kept("markup", QStringLiteral("</failure></testsuites><!-- ]]> &amp; &#0; <?x?>"));
    kept("tab and line breaks", QStringLiteral("a\tb\nc\r\nd\re"));
    kept("blanks at its ends", QStringLiteral("  a  b  "));
    kept("Chinese and a pair of surrogates", QStringLiteral(u"相机\U0001F3A5"));
    kept("line separators of JavaScript", QStringLiteral(u"a\u2028b\u2029c"));
    kept("byte order mark", QStringLiteral(u"\uFEFFa"));
    kept("64 KiB", QString(65536, QLatin1Char('x')) + QStringLiteral("\"<end>"));
    const QString controls = QStringLiteral(u"a\u0001b\u001Fc\u000Bd");
    row("control characters", controls, controls, QStringLiteral(u"a\uFFFDb\uFFFDc\uFFFDd"));
    const QString zero = QStringLiteral("a") + QChar(0) + QStringLiteral("b");
    row("zero", zero, zero, QStringLiteral(u"a\uFFFDb"));
    const QString noCharacter = QStringLiteral("a") + QChar(0xFFFE) + QChar(0xFFFF);
    row("no characters", noCharacter, noCharacter, QStringLiteral(u"a\uFFFD\uFFFD"));
    const auto replaced = [&row](const char *title, const QString &text, const QString &result) {
        row(title, text, result, result);
    };
    replaced("first half of a pair at the end", QStringLiteral("a") + QChar(0xD83C), QStringLiteral(u"a\uFFFD"));
    replaced("first half of a pair before a letter", QString(QChar(0xD83C)) + QLatin1Char('a'),
             QStringLiteral(u"\uFFFDa"));
    replaced("second half of a pair", QStringLiteral("a") + QChar(0xDFA5), QStringLiteral(u"a\uFFFD"));
    replaced("the halves the wrong way round", QString(QChar(0xDFA5)) + QChar(0xD83C), QStringLiteral(u"\uFFFD\uFFFD"));
    replaced("bytes that are no UTF-8", QString::fromUtf8("a\xC3(\xFF"), QStringLiteral(u"a\uFFFD(\uFFFD"));
}
