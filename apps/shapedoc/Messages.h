/// What the program says besides its results: lines that show file names and contents without obeying them.
#pragma once

#include <QString>

#include <cstdio>
#include <functional>

/// One line, escaped. What the stream does not take shows at the program's end.
void PrintLine(std::FILE* stream, const QString& line);

/// "shapedoc: warning: " and the text on standard error.
void Warn(const QString& text);

/// Exit codes of commands.
constexpr int kFailed = 1;
constexpr int kWrongArguments = 2;
constexpr int kFaulty = 3;       ///< check: the document is; repair: nothing could be saved
constexpr int kNotAsPainted = 4; ///< the output is written all the same, unless NotAsAsked is thrown

/// The work cannot be as it was asked for, and nothing was written.
struct NotAsAsked
{
    QString file;
    QString reason;
};

/// Does the work and answers its exit code. What it throws becomes a line on standard error.
int RunReported(const std::function<int()>& work);

/// The exit code behind everything that was printed: what does not arrive is a failure.
int FlushedOutput(int exitCode);

/// Where a report about the output goes: the standard output, unless the output itself goes there.
std::FILE* ReportStream(const QString& output);
