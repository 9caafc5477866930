#pragma once

#include <QString>
#include <utility>

class QByteArray;
class QPoint;
class QPointF;
class QRect;
class QRectF;

/// The program's own log file, "log.txt" beside the executable or in the user's state folder (`Places`): one statement
/// gathers a record piece by piece, and the terminator writes it.
///
///     MyDebug() << "sent" << command << MyDebug::terminator();
///
/// appends `2024.03.01 10:20:30 : sent  <command>  $#$\r\n` in UTF-8. A file that has grown beyond 2048000 bytes loses
/// its first 1024000 bytes, or as many times that as it takes to fit, before the next record. Every failure is silent:
/// the log must never stop the program. There is no lock, so only one thread may write (the one that serves the
/// camera's shell).
class MyDebug
{
public:
    /// Who may read the file, apart from its owner.
    enum class Readers {
        Anybody, ///< as the process makes its files
        Owner,   ///< an existing file is closed to all others as well
    };

    explicit MyDebug(Readers readers = Readers::Anybody) : m_readers(readers) {}

    static QString terminator() { return QStringLiteral("$#$\r\n"); }

    /// Adds a piece to the record, or writes the record if `piece` is the terminator. The record is not cleared by
    /// writing: a second terminator in one chain repeats the pieces before the first one.
    void Write(const QString &piece);
    /// Writes the record if `piece` is the terminator, and does nothing else.
    void write2Log(const QString &piece);

    /// Each insertion yields a logger with the text gathered so far. Within a chain the text is handed on rather than
    /// shared, so that a long one is not copied for every piece.
    template <class Argument>
    MyDebug operator<<(const Argument &argument) &
    {
        Write(toText(argument));
        return *this;
    }
    template <class Argument>
    MyDebug operator<<(const Argument &argument) &&
    {
        Write(toText(argument));
        return std::move(*this);
    }

private:
    static QString toText(const QString &text) { return text; }
    static QString toText(bool value);
    static QString toText(char character); ///< Latin-1
    static QString toText(short number);
    static QString toText(unsigned short number);
    static QString toText(int number);
    static QString toText(unsigned int number);
    static QString toText(long number);
    static QString toText(unsigned long number);
    static QString toText(long long number);
    static QString toText(unsigned long long number);
    static QString toText(float number);
    static QString toText(double number);
    static QString toText(const char *text);        ///< one character for each byte; null gives an empty text
    static QString toText(const QByteArray &bytes); ///< one character for each byte
    static QString toText(const QPoint &point);
    static QString toText(const QPointF &point);
    static QString toText(const QRect &rectangle); ///< (left, top, width x height), as for QRectF
    static QString toText(const QRectF &rectangle);
    static QString toText(const void *pointer);

    QString m_text;
    Readers m_readers;
};
