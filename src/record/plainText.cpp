#include "record/plainText.h"

#include <QChar>

namespace {
bool isXml(QChar c)
{
    switch (c.unicode()) {
    case '\t':
    case '\n':
    case '\r':
        return true;
    case 0xFFFE:
    case 0xFFFF:
        return false;
    default:
        return c.unicode() >= 0x20;
    }
}

/// Copies the text only if something in it has to be replaced.
template <class IsCarried>
QString carried(const QString &text, IsCarried isCarried)
{
    QString result = text;
    for (int i = 0; i < text.size(); ++i) {
        const QChar c = text.at(i);
        if (c.isHighSurrogate() && i + 1 < text.size() && text.at(i + 1).isLowSurrogate()) {
            ++i;
        } else if (c.isSurrogate() || !isCarried(c)) {
            result[i] = QChar(QChar::ReplacementCharacter);
        }
    }
    return result;
}
} // namespace

QString wellFormed(const QString &text)
{
    return carried(text, [](QChar) { return true; });
}

QString xmlText(const QString &text)
{
    return carried(text, isXml);
}
