#pragma once

#include "emulator/scenario/Scenario.h"

#include <QByteArray>
#include <QString>
#include <QVector>

namespace emulator {

struct GeneratedFile
{
    QString name; ///< below the tree's path, may hold folders
    QByteArray content;
};

/// The files of a tree: `size` bytes in all. Text is compressible, as logs are; binary is not, and its files have names
/// with blanks and Chinese characters. The same tree always gives the same files.
QVector<GeneratedFile> generateFiles(const ShellTree &tree);

} // namespace emulator
