#pragma once

#include <functional>
#include <QByteArray>
#include <QByteArrayList>
#include <QTimer>

/// Gathers the bytes of a connection into large pieces, so that whoever handles them has little to do for each byte.
///
/// A piece is handed on at once when one of the urgent texts is in it, else when nothing more has come for 5 ms. While
/// a long reply flows, pieces grow with what has been handed on of it: handling that costs as much as the whole reply
/// so far, as writing it to a log does, stays linear. They stop growing at 8 MiB. Used in one thread.
class InputGatherer
{
    Q_DISABLE_COPY(InputGatherer)

public:
    /// `taker` is called with each piece.
    explicit InputGatherer(std::function<void(const QByteArray &)> taker);

    /// Without urgent texts, which is how it begins, everything is handed on as it comes.
    void setUrgentTexts(const QByteArrayList &texts);
    void add(const QByteArray &bytes);
    /// Hands on what there is; the reply goes on.
    void handOn();
    /// Hands on what there is: a new reply begins, or nothing more will come.
    void flush();
    /// Drops what there is: a new connection begins.
    void clear();

private:
    bool isUrgent(int from) const;

    const std::function<void(const QByteArray &)> m_taker;
    QByteArrayList m_urgentTexts;
    int m_longestUrgentText = 0;
    QByteArray m_bytes;
    int m_handedOn = 0; ///< bytes of the current reply, at most as many as the largest piece has
    QTimer m_quiet;
};
