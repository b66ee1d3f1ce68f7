/// Messages of a program. File names and contents are escaped, so that they cannot control the terminal.
#pragma once

#include <QString>

#include <cstdio>
#include <functional>

/// Prints one line, escaped. A failed write is reported at the end of the program.
void PrintLine(std::FILE* stream, const QString& line);

/// The program's name, with which its messages begin.
constexpr char kProgram[] = "shapedoc";

/// "shapedoc: " and the text on standard error.
void PrintError(const QString& text);

/// The same with "warning: " before the text.
void Warn(const QString& text);

/// Exit codes of commands.
constexpr int kFailed = 1;
constexpr int kWrongArguments = 2;
constexpr int kFaulty = 3;       ///< check: the document has a fault; repair: nothing could be saved
constexpr int kNotAsPainted = 4; ///< the output is written nevertheless, unless NotAsAsked is thrown

/// The work cannot be as it was asked for, and nothing was written.
struct NotAsAsked
{
    QString file;
    QString reason;
};

/// Runs work and returns its exit code. What it throws is printed as a line on standard error.
int RunReported(const std::function<int()>& work);

/// Flushes the standard output and returns exitCode. Lost output is reported, and 0 becomes kFailed.
int FlushedOutput(int exitCode);

/// Stream for a report about the output: standard output, or standard error if the output itself goes there.
std::FILE* ReportStream(const QString& output);
