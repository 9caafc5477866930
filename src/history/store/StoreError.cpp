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

struct Words
{
    Kind kind;
    const char *text;
};

constexpr std::array allWords = {
    Words{Kind::Busy, QT_TRANSLATE_NOOP("StoreError", "another program is writing to it")},
    Words{Kind::Full, QT_TRANSLATE_NOOP("StoreError", "the disk is full")},
    Words{Kind::Damaged, QT_TRANSLATE_NOOP("StoreError", "the file is damaged")},
    Words{Kind::Newer, QT_TRANSLATE_NOOP("StoreError", "it was made by a newer version of this program")},
    Words{Kind::Foreign, QT_TRANSLATE_NOOP("StoreError", "the file is a database of another program")},
    Words{Kind::Forbidden, QT_TRANSLATE_NOOP("StoreError", "it cannot be opened or written to")},
    Words{Kind::Missing, QT_TRANSLATE_NOOP("StoreError", "not there")},
    Words{Kind::Unreachable, QT_TRANSLATE_NOOP("StoreError", "the server cannot be reached")},
    Words{Kind::Unfit, QT_TRANSLATE_NOOP("StoreError", "the record cannot be kept")},
    Words{Kind::Other, QT_TRANSLATE_NOOP("StoreError", "it does not work")},
};

const char *wordsOf(Kind kind)
{
    const auto *const found =
        std::find_if(allWords.begin(), allWords.end(), [kind](const Words &words) { return words.kind == kind; });
    return found == allWords.end() ? allWords.back().text : found->text;
}

QString translated(const char *words)
{
    return QCoreApplication::translate("StoreError", words);
}

QString errorText(const QString &store, const QString &words, const QString &detail)
{
    const QString text = QStringLiteral("%1: %2").arg(store, words);
    return detail.isEmpty() ? text : QStringLiteral("%1 (%2)").arg(text, detail);
}
} // namespace

StoreError storeError(Kind kind, const QString &store, const QString &detail)
{
    const char *const words = wordsOf(kind);
    return {kind, errorText(store, translated(words), detail), errorText(store, QString::fromLatin1(words), detail)};
}

StoreError storeError(const QSqlError &error, const QString &store)
{
    const QString words = error.databaseText().isEmpty() ? error.driverText() : error.databaseText();
    return storeError(kindOf(error), store, words.simplified());
}

QString translatedError(const QString &keptText)
{
    for (const Words &words : allWords) {
        const QString separator = QStringLiteral(": ");
        const QString sought = separator + QLatin1String(words.text);
        const auto begin = keptText.indexOf(sought);
        const QString rest = begin < 0 ? QString() : keptText.mid(begin + sought.size());
        if (begin >= 0 && (rest.isEmpty() || rest.startsWith(QLatin1String(" (")))) {
            return keptText.left(begin) + separator + translated(words.text) + rest;
        }
    }
    return keptText;
}
