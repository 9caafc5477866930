#pragma once

#include <functional>
#include <memory>
#include <QLibraryInfo>
#include <QProcess>
#include <QString>
#include <utility>

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
#include <QRegExp>
#include <QTextCodec>
#else
#include <QRegularExpression>
#include <QStringConverter>
#endif

// What Qt 5 and Qt 6 have no common name for. Nothing else in the project asks which of them it is built with.

#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)

/// A pattern that is looked for in a text.
using TextPattern = QRegExp;

#else

class TextPattern
{
public:
    enum PatternSyntax { RegExp, Wildcard, FixedString };

    TextPattern() = default;
    explicit TextPattern(const QString &pattern, Qt::CaseSensitivity sensitivity = Qt::CaseSensitive,
                         PatternSyntax syntax = RegExp)
        : m_pattern(pattern), m_sensitivity(sensitivity), m_syntax(syntax),
          m_expression(expressionOf(pattern, syntax), sensitivity == Qt::CaseSensitive
                                                          ? QRegularExpression::NoPatternOption
                                                          : QRegularExpression::CaseInsensitiveOption)
    {
    }

    QString pattern() const { return m_pattern; }
    Qt::CaseSensitivity caseSensitivity() const { return m_sensitivity; }
    PatternSyntax patternSyntax() const { return m_syntax; }
    bool isEmpty() const { return m_pattern.isEmpty(); }
    /// Where the first match in `text` begins; -1 if there is none.
    qsizetype indexIn(const QString &text) const { return text.indexOf(m_expression); }

private:
    static QString expressionOf(const QString &pattern, PatternSyntax syntax)
    {
        switch (syntax) {
        case Wildcard:
            return QRegularExpression::wildcardToRegularExpression(pattern,
                                                                   QRegularExpression::UnanchoredWildcardConversion);
        case FixedString:
            return QRegularExpression::escape(pattern);
        default:
            return pattern;
        }
    }

    QString m_pattern;
    Qt::CaseSensitivity m_sensitivity = Qt::CaseSensitive;
    PatternSyntax m_syntax = RegExp;
    QRegularExpression m_expression;
};

#endif

/// Turns bytes in the locale's encoding, which come in pieces, into text. Qt 6 takes every locale for one of UTF-8.
class LocaleDecoder
{
public:
    /// The text of one more piece. A character that its end splits waits for its last bytes; where the piece has
    /// `ended` the text, each byte of such a character becomes a replacement character.
    QString decode(const char *bytes, int size, bool ended)
    {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
        QTextCodec *const codec = QTextCodec::codecForLocale();
        if (m_state == nullptr || codec != m_codec) {
            m_codec = codec;
            m_state = std::make_unique<QTextCodec::ConverterState>();
        }
        QString text = codec->toUnicode(bytes, size, m_state.get());
        if (ended) {
            text += QString(m_state->remainingChars, QChar::ReplacementCharacter);
            m_state.reset();
        }
#else
        // Qt 6.4 loses a byte behind the begin of a character that is not continued, where a piece ends between them:
        // it gets none to keep.
        m_waiting.append(bytes, size);
        const qsizetype begun = begunCharacter(m_waiting);
        QString text = m_decoder->decode(QByteArrayView(m_waiting).chopped(begun));
        m_waiting = m_waiting.last(begun);
        if (ended) {
            text += QString(begun, QChar::ReplacementCharacter);
            *this = LocaleDecoder();
        }
#endif
        return text;
    }

private:
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QTextCodec *m_codec = nullptr;                       ///< that of the text so far
    std::unique_ptr<QTextCodec::ConverterState> m_state; ///< null where text starts afresh
#else
    /// How many bytes at the end begin a character of UTF-8 that has more.
    static qsizetype begunCharacter(const QByteArray &bytes)
    {
        constexpr int longest = 4;
        for (int n = 1; n < longest && n <= bytes.size(); ++n) {
            const auto byte = static_cast<uchar>(bytes.at(bytes.size() - n));
            if (byte < 0x80 || byte > 0xF4) {
                return 0;
            }
            if (byte >= 0xC0) {
                const int size = byte < 0xE0 ? 2 : byte < 0xF0 ? 3 : longest;
                return size > n ? n : 0;
            }
        }
        return 0;
    }

    std::unique_ptr<QStringDecoder> m_decoder = std::make_unique<QStringDecoder>(QStringConverter::System);
    QByteArray m_waiting; ///< the begin of a character
#endif
};

/// Has all texts of the system be UTF-8, whatever the locale says. Before there is another thread.
inline void takeLocaleForUtf8()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    QTextCodec::setCodecForLocale(QTextCodec::codecForName("UTF-8"));
#endif
}

/// Where Qt keeps the translations of its own texts.
inline QString qtTranslationsFolder()
{
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    return QLibraryInfo::location(QLibraryInfo::TranslationsPath);
#else
    return QLibraryInfo::path(QLibraryInfo::TranslationsPath);
#endif
}

/// A process that does `inChild` between its fork and its program: only what is allowed in a signal handler.
class PreparedProcess : public QProcess
{
public:
    explicit PreparedProcess(std::function<void()> inChild, QObject *parent = nullptr)
        : QProcess(parent), m_inChild(std::move(inChild))
    {
#if QT_VERSION >= QT_VERSION_CHECK(6, 0, 0)
        setChildProcessModifier(m_inChild);
#endif
    }

private:
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
    void setupChildProcess() override
    {
        m_inChild();
    }
#endif

    const std::function<void()> m_inChild;
};
