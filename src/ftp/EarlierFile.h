#pragma once

#include <QString>

/// A file that is in the way of a download, until it is certain that the download takes its place. Meanwhile it lies
/// beside it as "<name>.earlier", where it is found again should the PC die.
class EarlierFile
{
public:
    /// Nothing is in the way.
    EarlierFile() = default;
    /// Frees the name `path`. A link stays where it is: what it leads to is written. What cannot be set aside is
    /// removed.
    explicit EarlierFile(const QString &path);

    /// Back to its name, in place of what is there by now.
    void putBack();
    void remove();

private:
    QString m_path;
    QString m_aside; ///< empty: there is none
};
