/// Arguments that several sub-commands share.
#pragma once

#include "document/DocumentFile.h"
#include "document/Reach.h"

#include <QStringList>

#include <string>
#include <vector>

namespace CLI {
class App;
class Option;
class Validator;
} // namespace CLI

/// A file name of the command line.
QString FileName(const std::string& argument);

/// The file name's ending in lower case, without the dot.
QString Ending(const QString& file);

/// The document to read, as a required positional argument.
void AddDocument(CLI::App& command, std::string& document);

/// The required option -o, and --force.
void AddOutput(CLI::App& command, shapedocument::Target& target);

/// What a format is called, and the endings of its files.
struct Format
{
    QString name;
    QStringList endings;
};

/// The option --format of a command that writes one of formats.
void AddFormat(CLI::App& command, std::string& format, const std::vector<Format>& formats);

/// The format asked for, or else that of the target's ending. Throws CLI::ValidationError where neither tells.
QString FormatOf(const shapedocument::Target& target, const std::string& asked, const std::vector<Format>& formats);

/// --bare and --version.
void AddStreamFormat(CLI::App& command, shapedocument::StreamFormat& format);

/// Takes numbers from low to high. What is no number lies nowhere.
CLI::Validator NumberBetween(double low, double high);

/// An option of count numbers of at most reach, either sign, separated by commas or blanks.
CLI::Option* AddNumbers(CLI::App& command, const std::string& name, std::vector<double>& numbers, int count,
                        const std::string& description, double reach = shapedocument::kFarthest);
