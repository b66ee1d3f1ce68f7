#include "DocumentArguments.h"

#include "document/InputFile.h"

#include <QFileInfo>

using namespace shapedocument;

QString Ending(const QString& file)
{
    return QFileInfo(file).suffix().toLower();
}

void AddDocument(CommandArguments& command, QString& document)
{
    command.AddFile("FILE", document, "the document; - for the standard input").Required();
}

CommandOption AddOutput(CommandArguments& command, Target& target)
{
    command.AddFlag("--force", target.force, "replace a write-protected file, or one whose owner cannot be kept");
    return command.AddFile("-o,--output=FILE", target.file, "the file to write; - for the standard output");
}

void AddFormat(CommandArguments& command, std::string& format, const std::vector<Format>& formats)
{
    std::vector<std::string> names;
    for (const Format& known : formats)
        names.push_back(known.name);
    command.AddChoice("--format", format, names, "instead of what the ending tells");
}

std::string FormatOf(const Target& target, const std::string& asked, const std::vector<Format>& formats)
{
    if (!asked.empty())
        return asked;
    const QString ending = Ending(target.file);
    QStringList known;
    for (const Format& format : formats) {
        if (format.endings.contains(ending) && target.file != kStandardStream)
            return format.name;
        known += format.endings;
    }
    throw UsageError{
        ("--output: " + target.file + " does not end in one of " + known.join('|') + ", and there is no --format")
            .toStdString()};
}

void AddStreamFormat(CommandArguments& command, StreamFormat& format)
{
    const CommandOption bare =
        command.AddFlag("--bare", format.bare, "documents are bare list streams, without file header");
    command
        .AddInteger("--version=N", format.version, {0, SHAPE_DOCUMENT_VERSION},
                    "the version a bare stream is read with")
        .Needs(bare);
}
