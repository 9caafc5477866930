#include "detector/checks/firmwareText.h"

#include <array>
#include <QRegularExpression>
#include <QStringList>

namespace {
/// The lines of the file itself that say something.
QStringList fileLines(const QString &reply)
{
    QStringList lines = reply.split(QStringLiteral("\r\n"));
    lines.removeFirst(); // the echo of the command
    QStringList saying;
    for (const QString &line : qAsConst(lines)) {
        // Behind a file without a line break at its end the prompt stands in the last line.
        const QString text = line.left(line.lastIndexOf(QStringLiteral("~ # "))).trimmed();
        if (!text.isEmpty()) {
            saying.append(text);
        }
    }
    return saying;
}
} // namespace

QString firmwareText(const QString &reply)
{
    static const QRegularExpression error(QStringLiteral("^-?(cat|sh): "));
    static const std::array labels = {
        QRegularExpression(QStringLiteral("^(firmware|fw)[a-z_ ]*[:=]\\s*(?<value>\\S.*)$"),
                           QRegularExpression::CaseInsensitiveOption),
        QRegularExpression(QStringLiteral("^version\\s*[:=]\\s*(?<value>\\S.*)$"),
                           QRegularExpression::CaseInsensitiveOption),
    };
    const QStringList lines = fileLines(reply);
    if (lines.isEmpty() || lines.constFirst().contains(error)) {
        return {};
    }
    for (const QRegularExpression &label : labels) {
        for (const QString &line : lines) {
            const QRegularExpressionMatch match = label.match(line);
            if (match.hasMatch()) {
                return match.captured(QStringLiteral("value"));
            }
        }
    }
    return lines.constFirst();
}
