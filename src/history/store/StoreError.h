#pragma once

#include <QSqlError>
#include <QString>

/// Why a store did not do what it was asked.
struct StoreError
{
    enum class Kind {
        None,
        Busy,        ///< another program is writing; or two writers met, and this one gave way
        Full,        ///< the disk
        Damaged,     ///< the file is no store any more
        Newer,       ///< the schema is one that this program does not know
        Foreign,     ///< the file is a database, but none of ours
        Forbidden,   ///< it cannot be opened or written to: no permission, or no such folder
        Missing,     ///< there is no such file, or no driver for the engine
        Unreachable, ///< the server does not answer, or does not let us in
        Unfit,       ///< the record cannot be kept: it has no id or no time
        Other,
    };

    Kind kind = Kind::None;
    QString text;     ///< for people, of one line, translated; with the engine's own words where it has some
    QString keptText; ///< the same not translated, to be kept where programs of every language read it

    bool isError() const { return kind != Kind::None; }
    /// Whether the same may succeed a moment later, without anybody's help.
    bool isPassing() const { return kind == Kind::Busy; }
};

/// What `error` means; `store` is the store's name for people.
StoreError storeError(const QSqlError &error, const QString &store);
/// An error of this kind, in the words that are always used for it.
StoreError storeError(StoreError::Kind kind, const QString &store, const QString &detail = {});

/// An error that was kept, translated as far as it is in the words that are always used.
QString translatedError(const QString &keptText);
