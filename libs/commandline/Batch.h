/// Commands that make a file of each of their inputs.
#pragma once

#include "DocumentArguments.h"

#include <cstdio>

/// The result for one input.
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
    QString folder;               ///< instead of output: the folder for one file per input
    int jobs = 1;

    bool IsBatch() const { return !folder.isEmpty(); }
};

/// -o, --force, --out-dir and --jobs.
/// @return --out-dir
CommandOption AddOutputOrFolder(CommandArguments& command, InputsAndOutput& files);

/// The documents to read, and the options of AddOutputOrFolder.
void AddDocuments(CommandArguments& command, InputsAndOutput& files);

/// The format asked for, otherwise that of the single output's ending. Throws UsageError if neither is known.
std::string FormatOf(const InputsAndOutput& files, const std::string& asked, const std::vector<Format>& formats);

/// The ending that files of the format get.
QString EndingOf(const std::string& format, const std::vector<Format>& formats);

/// Makes one file of a single input, in this process and without a report, or one file per input in the folder. In the
/// folder every file is made by a process of its own, some at the same time, so that a crash loses only one file;
/// report gets a line for each and a summary. Returns the exit code: 1 if any has failed, otherwise the highest of all.
/// Throws UsageError, before anything is made, if two inputs would become the same file or an input would be replaced.
int MakeFiles(const InputsAndOutput& files, const QString& ending, const MakeFile& make, std::FILE* report = stdout);
