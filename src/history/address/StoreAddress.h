#pragma once

#include <optional>
#include <QString>

/// Where a store of runs lies: in a file of its own, or on a server that many stations write to. A plain value, for any
/// thread. It never holds a password.
struct StoreAddress
{
    enum class Engine { Sqlite, PostgreSql };

    Engine engine = Engine::Sqlite;
    QString path;     ///< of the file
    QString conninfo; ///< of the server, as libpq takes it: "user='line' host='db' dbname='runs'"
    QString name;     ///< for people: the path, or the server's address

    /// The store in the file at `path`.
    static StoreAddress file(const QString &path);
    /// The store on the server that `url` names by libpq's conventions:
    /// postgresql://user@host:port/database?sslmode=... What it leaves out, libpq takes from its environment (PGHOST,
    /// PGSERVICE, .pgpass). Nothing if that is no such address or if it holds a password; `error` then tells why,
    /// without the password.
    static std::optional<StoreAddress> server(const QString &url, QString *error);
};
