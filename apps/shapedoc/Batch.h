/// Commands that make a file of each of their inputs.
#pragma once

#include "Arguments.h"

#include <cstdio>

/// What was made of one input.
struct Made
{
    int exitCode = 0;
    QString summary; ///< for instance "12 paths of 3 shapes"
};

/// Makes a file of one input. Throws Failure.
using MakeFile = std::function<Made(const QString& input, const shapedocument::Target& output)>;

struct InputsAndOutput
{
    QStringList inputs;
    shapedocument::Target output; ///< of a single input
    QString folder;               ///< instead: where a file of each input goes
    int jobs = 1;

    bool IsBatch() const { return !folder.isEmpty(); }
};

/// -o, --force, --out-dir and --jobs.
/// @return --out-dir
CommandOption AddOutputOrFolder(CommandArguments& command, InputsAndOutput& files);

/// The documents to read, and the above.
void AddDocuments(CommandArguments& command, InputsAndOutput& files);

/// The format asked for, or else that of the only output's ending. Throws UsageError where neither tells.
std::string FormatOf(const InputsAndOutput& files, const std::string& asked, const std::vector<Format>& formats);

/// The ending that files of the format get.
QString EndingOf(const std::string& format, const std::vector<Format>& formats);

/// Makes a file of the only input, here and without a word, or one of each input in the folder. In the folder each is
/// made by a process of its own, a few at the same time, so that whatever happens to one leaves the others; a line for
/// each and one for all of them go to report. Answers the exit code: 1 when any has failed, otherwise the highest of all.
/// Throws UsageError before anything is made when two inputs would become the same file, or one of the inputs would be
/// replaced.
int MakeFiles(const InputsAndOutput& files, const QString& ending, const MakeFile& make, std::FILE* report = stdout);
