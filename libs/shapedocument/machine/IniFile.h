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
/// UTF-8 with or without a byte order mark, all line ends. A section that stands twice, a key that stands twice in its
/// section (case ignored), a key in no section and any other line are refused. Throws Failure, naming file and line;
/// also for standard input, which is not read.
std::vector<IniEntry> ReadIni(const QString& file);

/// The entry's value. Throws Failure, naming file and line, unless it is a number from least to most.
double NumberOf(const IniEntry& entry, const QString& file, double least, double most);
/// The entry's value as a whole number. Throws likewise.
int WholeNumberOf(const IniEntry& entry, const QString& file, int least, int most);

/// Throws Failure, naming file and the entry's line.
[[noreturn]] void Refuse(const IniEntry& entry, const QString& file, const QString& reason);

/// A text of any length, shortened for a message.
QString Shown(const QString& text);

} // namespace shapedocument
