/// What the program says besides its results: lines that show file names and contents without obeying them.
#pragma once

#include <QString>

#include <cstdio>

/// One line, escaped. What the stream does not take shows at the program's end.
void PrintLine(std::FILE* stream, const QString& line);

/// "shapedoc: warning: " and the text on standard error.
void Warn(const QString& text);

/// Where a report about the output goes: the standard output, unless the output itself goes there.
std::FILE* ReportStream(const QString& output);
