/// Settings from INI files, with the lines that they stand on.
#pragma once

#include <QString>

#include <vector>

namespace shapedocument {

struct IniEntry
{
    QString section;
    QString key;
    QString value;
    int line = 0; ///< 1 for the first of the file
};

/// Sections "[name]", in them "key = value"; what stands behind a semicolon and lines that begin with # are remarks.
/// UTF-8 with or without a byte order mark, all line ends. Names differ by more than capitals: a section or a key of a
/// section that stands twice is refused, and so is a key in no section and any other line. Throws Failure, naming file
/// and line.
std::vector<IniEntry> ReadIni(const QString& file);

} // namespace shapedocument
