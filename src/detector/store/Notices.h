#pragma once

#include <mutex>
#include <QList>
#include <QMetaType>
#include <QObject>
#include <QString>
#include <QStringList>

/// One thing that the operator is to be told in plain words.
struct Notice
{
    enum class Kind {
        Settings,      ///< what is wrong with option.ini
        NotStarted,    ///< what Start wants
        Waiting,       ///< a run waits for the camera's shell
        Stopped,       ///< the operator has stopped a run
        NothingTested, ///< a run went through no test
        CameraChanged,
        CameraLost,
        NotSaved,
        History,  ///< it takes no runs at the moment
        Attempts, ///< a run needed queries to be sent again
        Results,  ///< where they are
    };

    Kind kind = Kind::Settings;
    QString text; ///< plain text of one line, translated; may hold what a camera said
    QString path; ///< a folder that the text speaks of and that can be opened; else empty

    bool isProblem() const { return kind != Kind::Waiting && kind != Kind::Attempts && kind != Kind::Results; }
};
Q_DECLARE_METATYPE(Notice)

inline bool operator==(const Notice &left, const Notice &right)
{
    return left.kind == right.kind && left.text == right.text && left.path == right.path;
}

/// What stands on the left of the status bar, and what an unattended run prints. Whoever notices something tells it,
/// from any thread; what has been told stands until it is withdrawn.
class Notices : public QObject
{
    Q_OBJECT
    Q_DISABLE_COPY(Notices)

public:
    Notices();

    /// What was told word for word before, and still stands, is not told again.
    void tell(const Notice &notice);
    /// All of this kind.
    void withdraw(Notice::Kind kind);
    /// What was told about a run: everything but `Settings` and `History`.
    void withdrawRun();

    /// What stands, the gravest first: in the order of `Kind`, and of telling among the same.
    QList<Notice> current() const;

    // The notices' texts, all in one place.
    static Notice settings(const QString &problem);
    static Notice notStarted(const QStringList &missing);
    static Notice waitingForShell();
    static Notice stopped();
    static Notice nothingTested();
    static Notice cameraChanged();
    static Notice cameraLost();
    static Notice notSaved(const QString &file, const QString &reason);
    static Notice history(const QString &problem);
    static Notice attempts(int resent);
    static Notice results(const QString &folder);

signals:
    void told(Notice notice);
    /// After anything has been told or withdrawn.
    void changed();

private:
    template <class Doomed>
    void withdrawIf(Doomed doomed);

    mutable std::mutex m_mutex;
    QList<Notice> m_current;
};
