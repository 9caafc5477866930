#include "history/store/StoreError.h"

#include <algorithm>
#include <array>
#include <QCoreApplication>

namespace {
using Kind = StoreError::Kind;

struct Code
{
    const char *begin; ///< of the engine's code
    Kind kind;
};

/// SQLite's result codes.
constexpr std::array sqliteCodes = {
    Code{"3", Kind::Forbidden},  Code{"5", Kind::Busy},       Code{"6", Kind::Busy},
    Code{"8", Kind::Forbidden},  Code{"11", Kind::Damaged},   Code{"13", Kind::Full},
    Code{"14", Kind::Forbidden}, Code{"23", Kind::Forbidden}, Code{"26", Kind::Damaged},
};

/// The first characters of an SQLSTATE; a server that has gone leaves none.
constexpr std::array serverCodes = {
    Code{"40", Kind::Busy},           Code{"55P03", Kind::Busy},        Code{"53100", Kind::Full},
    Code{"42501", Kind::Forbidden},   Code{"25006", Kind::Forbidden},   Code{"08", Kind::Unreachable},
    Code{"57P", Kind::Unreachable},   Code{"53300", Kind::Unreachable}, Code{"28", Kind::Unreachable},
    Code{"3D000", Kind::Unreachable},
};

constexpr int sqlStateLength = 5;

Kind kindOf(const QSqlError &error)
{
    const QString code = error.nativeErrorCode();
    if (code.size() == sqlStateLength) {
        const auto found = std::find_if(serverCodes.begin(), serverCodes.end(), [&code](const Code &known) {
            return code.startsWith(QLatin1String(known.begin));
        });
        return found == serverCodes.end() ? Kind::Other : found->kind;
    }
    if (error.type() == QSqlError::ConnectionError && error.driverText().contains(QLatin1String("not loaded"))) {
        return Kind::Missing;
    }
    const auto found = std::find_if(sqliteCodes.begin(), sqliteCodes.end(),
                                    [&code](const Code &known) { return code == QLatin1String(known.begin); });
    if (found != sqliteCodes.end()) {
        return found->kind;
    }
    return error.type() == QSqlError::ConnectionError ? Kind::Unreachable : Kind::Other;
}

const char *wordsOf(Kind kind)
{
    switch (kind) {
    case Kind::Busy:
        return QT_TRANSLATE_NOOP("StoreError", "another program is writing to it");
    case Kind::Full:
        return QT_TRANSLATE_NOOP("StoreError", "the disk is full");
    case Kind::Damaged:
        return QT_TRANSLATE_NOOP("StoreError", "the file is damaged");
    case Kind::Newer:
        return QT_TRANSLATE_NOOP("StoreError", "it was made by a newer version of this program");
    case Kind::Foreign:
        return QT_TRANSLATE_NOOP("StoreError", "the file is a database of another program");
    case Kind::Forbidden:
        return QT_TRANSLATE_NOOP("StoreError", "it cannot be opened or written to");
    case Kind::Missing:
        return QT_TRANSLATE_NOOP("StoreError", "not there");
    case Kind::Unreachable:
        return QT_TRANSLATE_NOOP("StoreError", "the server cannot be reached");
    case Kind::Unfit:
        return QT_TRANSLATE_NOOP("StoreError", "the record cannot be kept");
    case Kind::None:
    case Kind::Other:
        break;
    }
    return QT_TRANSLATE_NOOP("StoreError", "it does not work");
}
} // namespace

StoreError storeError(Kind kind, const QString &store, const QString &detail)
{
    QString text = QStringLiteral("%1: %2").arg(store, QCoreApplication::translate("StoreError", wordsOf(kind)));
    if (!detail.isEmpty()) {
        text += QStringLiteral(" (%1)").arg(detail);
    }
    return {kind, text};
}

StoreError storeError(const QSqlError &error, const QString &store)
{
    const QString words = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return storeError(kindOf(error), store, words.simplified());
}
