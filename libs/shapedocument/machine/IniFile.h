/// Settings from INI files, with the lines that they stand on.
#pragma once

#include <QString>

#include <vector>

namespace shapedocument {

struct IniEntry
{
    QString section;
    QString key; ///< empty for the line of the section itself
    QString value;
    int line = 0; ///< 1 for the first of the file
};

/// Sections "[name]", in them "key = value"; what stands behind a semicolon and lines that begin with # are remarks.
/// UTF-8 with or without a byte order mark, all line ends. Names differ by more than capitals: a section or a key of a
/// section that stands twice is refused, and so is a key in no section and any other line. Throws Failure, naming file
/// and line; for standard input, too.
std::vector<IniEntry> ReadIni(const QString& file);

/// The entry's value. Throws Failure, naming file and line, unless it is a number from least to most.
double NumberOf(const IniEntry& entry, const QString& file, double least, double most);
/// The same for whole numbers.
int WholeNumberOf(const IniEntry& entry, const QString& file, int least, int most);

/// Throws Failure, naming file and the entry's line.
[[noreturn]] void Refuse(const IniEntry& entry, const QString& file, const QString& reason);

/// What a message shows of a text that may be of any length.
QString Shown(const QString& text);

} // namespace shapedocument
