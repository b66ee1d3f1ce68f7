/// Arguments that several commands share.
#pragma once

#include "CommandLine.h"
#include "document/DocumentFile.h"
#include "document/Reach.h"

/// The file name's ending in lower case, without the dot.
QString Ending(const QString& file);

/// The document to read, as a required argument.
void AddDocument(CommandArguments& command, QString& document);

/// The option -o, and --force.
CommandOption AddOutput(CommandArguments& command, shapedocument::Target& target);

/// A format's name and the endings of its files.
struct Format
{
    std::string name;
    QStringList endings;
};

/// The option --format of a command that writes one of formats.
void AddFormat(CommandArguments& command, std::string& format, const std::vector<Format>& formats);

/// The format asked for, otherwise that of the target's ending. Throws UsageError if neither is known.
std::string FormatOf(const shapedocument::Target& target, const std::string& asked, const std::vector<Format>& formats);

/// --bare and --version.
void AddStreamFormat(CommandArguments& command, shapedocument::StreamFormat& format);

/// Coordinates and lengths of either sign, in mm.
constexpr Range kPlaces{-shapedocument::kFarthest, shapedocument::kFarthest};
