#include "history/address/StoreAddress.h"

#include <algorithm>
#include <array>
#include <QCoreApplication>
#include <QDir>
#include <QList>
#include <QPair>
#include <QStringList>
#include <QUrl>
#include <QUrlQuery>

namespace {
constexpr std::array schemes = {"postgresql://", "postgres://"};
constexpr std::array secrets = {"password", "sslpassword"};

/// So that a server that has gone is noticed soon, where the address says nothing else. The user time-out counts
/// milliseconds, the others seconds.
constexpr std::array defaults = {
    std::array{"connect_timeout", "3"},  std::array{"tcp_user_timeout", "5000"},
    std::array{"keepalives_idle", "10"}, std::array{"keepalives_interval", "5"},
    std::array{"keepalives_count", "3"}, std::array{"application_name", "KestDetector"},
};

QString translated(const char *text)
{
    return QCoreApplication::translate("StoreAddress", text);
}

QString decoded(const QString &text)
{
    return QUrl::fromPercentEncoding(text.toUtf8());
}

QString quoted(QString value)
{
    value.replace(QLatin1Char('\\'), QStringLiteral("\\\\")).replace(QLatin1Char('\''), QStringLiteral("\\'"));
    return QLatin1Char('\'') + value + QLatin1Char('\'');
}

using Options = QList<QPair<QString, QString>>;

bool contains(const Options &options, const QString &key)
{
    return std::any_of(options.begin(), options.end(), [&key](const auto &option) { return option.first == key; });
}

void addGiven(Options *options, const char *key, const QString &value)
{
    if (!value.isEmpty()) {
        options->append({QString::fromLatin1(key), decoded(value)});
    }
}

/// "one:5432,[::1]:5433" as the two lists that libpq wants.
void addHosts(Options *options, const QString &text)
{
    QStringList hosts;
    QStringList ports;
    const QStringList entries = text.split(QLatin1Char(','));
    for (const QString &entry : entries) {
        const auto colon = static_cast<int>(entry.indexOf(QLatin1Char(':'), entry.lastIndexOf(QLatin1Char(']')) + 1));
        QString host = entry.left(colon);
        if (host.startsWith(QLatin1Char('[')) && host.endsWith(QLatin1Char(']'))) {
            host = host.mid(1, host.size() - 2);
        }
        hosts.append(host);
        ports.append(colon < 0 ? QString() : entry.mid(colon + 1));
    }
    const auto given = [](const QStringList &list) {
        return list.join(QString()).isEmpty() ? QString() : list.join(QLatin1Char(','));
    };
    addGiven(options, "host", given(hosts));
    addGiven(options, "port", given(ports));
}
} // namespace

StoreAddress StoreAddress::file(const QString &path)
{
    return {Engine::Sqlite, path, {}, QDir::toNativeSeparators(path)};
}

std::optional<StoreAddress> StoreAddress::server(const QString &url, QString *error)
{
    const auto refuse = [error](const char *reason) {
        *error = translated(reason);
        return std::nullopt;
    };
    const auto scheme = std::find_if(schemes.begin(), schemes.end(),
                                     [&url](const char *known) { return url.startsWith(QLatin1String(known)); });
    if (scheme == schemes.end()) {
        return refuse(QT_TRANSLATE_NOOP("StoreAddress", "not of the form postgresql://user@host/database"));
    }
    const QString rest = url.mid(QLatin1String(*scheme).size());
    const QString place = rest.section(QLatin1Char('?'), 0, 0);
    const QString authority = place.section(QLatin1Char('/'), 0, 0);
    const auto at = static_cast<int>(authority.lastIndexOf(QLatin1Char('@')));
    const QString user = authority.left(std::max(at, 0));

    Options options;
    const QUrlQuery query(rest.section(QLatin1Char('?'), 1));
    const QList<QPair<QString, QString>> items = query.queryItems(QUrl::FullyDecoded);
    for (const auto &[key, value] : items) {
        options.append({key, value});
    }
    const bool secret = std::any_of(secrets.begin(), secrets.end(),
                                    [&](const char *key) { return contains(options, QLatin1String(key)); });
    if (secret || user.contains(QLatin1Char(':'))) {
        return refuse(QT_TRANSLATE_NOOP("StoreAddress", "a password does not belong here: put it into .pgpass"));
    }
    addGiven(&options, "user", user);
    addHosts(&options, authority.mid(at + 1));
    addGiven(&options, "dbname", place.section(QLatin1Char('/'), 1));
    for (const auto &[key, value] : defaults) {
        if (!contains(options, QLatin1String(key))) {
            options.append({QLatin1String(key), QLatin1String(value)});
        }
    }

    StoreAddress address{Engine::PostgreSql, {}, {}, url};
    for (const auto &[key, value] : std::as_const(options)) {
        const bool isWord = !key.isEmpty() && std::all_of(key.begin(), key.end(), [](QChar letter) {
            return letter == QLatin1Char('_') || (letter >= QLatin1Char('a') && letter <= QLatin1Char('z'));
        });
        // Qt's driver takes a semicolon for the end of an option.
        if (!isWord || value.contains(QLatin1Char(';')) || value.contains(QChar(0))) {
            return refuse(QT_TRANSLATE_NOOP("StoreAddress", "holds an option that cannot be passed on"));
        }
        address.conninfo += QStringLiteral("%1%2=%3").arg(address.conninfo.isEmpty() ? QString() : QStringLiteral(" "),
                                                          key, quoted(value));
    }
    return address;
}
