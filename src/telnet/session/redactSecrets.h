#pragma once

#include <QString>
#include <QStringList>

/// A text of the shell with dots in place of its secrets: wherever one of the `known` stands, and what follows the
/// equals sign of a setting that is called a passphrase, a password or the like ("wpa_passphrase=..."), up to the
/// line's end. The dots do not tell how long a secret was. Takes a millisecond or so for a mebibyte.
QString redactSecrets(const QString &text, const QStringList &known);
