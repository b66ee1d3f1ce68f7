/// Arguments that several sub-commands share.
#pragma once

#include "DocumentFile.h"

#include <QStringList>

#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
} // namespace CLI

/// A file name of the command line.
QString FileName(const std::string& argument);

/// The file name's ending in lower case, without the dot.
QString Ending(const QString& file);

/// The document to read, as a required positional argument.
void AddDocument(CLI::App& command, std::string& document);

/// The required option -o; with endings, only files that end in one of them are taken.
void AddOutput(CLI::App& command, std::string& output, const QStringList& endings = {});

/// --bare and --version.
void AddStreamFormat(CLI::App& command, StreamFormat& format);

/// An option of count finite numbers, separated by commas or blanks.
CLI::Option* AddNumbers(CLI::App& command, const std::string& name, std::vector<double>& numbers, int count,
                        const std::string& description);
