#include "telnet/session/redactSecrets.h"

#include <algorithm>
#include <array>
#include <QLatin1String>

namespace {
QString dots()
{
    constexpr int count = 8;
    constexpr QChar bullet(0x2022);
    return QString(count, bullet);
}

/// What the names of secret settings have in common, in hostapd's files and others.
constexpr std::array secretNames = {"passphrase", "password", "passwd", "psk", "wep_key", "secret"};

constexpr std::array lineEnds = {QLatin1Char('\r'), QLatin1Char('\n')};

/// Replaces the values of the settings whose names contain `name`. Each line is looked at once, whatever is in it.
QString redactValues(const QString &text, QLatin1String name)
{
    QString redacted;
    int taken = 0;
    for (auto at = static_cast<int>(text.indexOf(name)); at != -1; at = static_cast<int>(text.indexOf(name, at))) {
        const auto *const from = text.cbegin() + at;
        const auto *const lineEnd = std::find_first_of(from, text.cend(), lineEnds.begin(), lineEnds.end());
        const auto *const equals = std::find(from, lineEnd, QLatin1Char('='));
        at = static_cast<int>(lineEnd - text.cbegin());
        if (lineEnd - equals > 1) {
            redacted.append(text.constData() + taken, static_cast<int>(equals + 1 - text.cbegin()) - taken);
            redacted += dots();
            taken = at;
        }
    }
    return taken == 0 ? text : redacted + text.mid(taken);
}
} // namespace

QString redactSecrets(const QString &text, const QStringList &known)
{
    QString redacted = text;
    for (const QString &secret : known) {
        if (!secret.isEmpty()) {
            redacted.replace(secret, dots());
        }
    }
    for (const char *name : secretNames) {
        redacted = redactValues(redacted, QLatin1String(name));
    }
    return redacted;
}
