#include "Arguments.h"

#include "document/InputFile.h"

#include <CLI/CLI.hpp>
#include <QFile>
#include <QFileInfo>

#include <algorithm>

using namespace shapedocument;

namespace {

QStringList Names(const std::vector<Format>& formats)
{
    QStringList names;
    for (const Format& format : formats)
        names << format.name;
    return names;
}

QStringList Endings(const std::vector<Format>& formats)
{
    QStringList endings;
    for (const Format& format : formats)
        endings += format.endings;
    return endings;
}

} // namespace

QString FileName(const std::string& argument)
{
    return QFile::decodeName(argument.c_str());
}

QString Ending(const QString& file)
{
    return QFileInfo(file).suffix().toLower();
}

void AddDocument(CLI::App& command, std::string& document)
{
    command.add_option("FILE", document, "the document; - for the standard input")->required();
}

void AddOutput(CLI::App& command, Target& target)
{
    command
        .add_option_function<std::string>(
            "-o,--output", [&target](const std::string& name) { target.file = FileName(name); },
            "the file to write; - for the standard output")
        ->required();
    command.add_flag("--force", target.force, "replace a write-protected file, or one whose owner cannot be kept");
}

void AddFormat(CLI::App& command, std::string& format, const std::vector<Format>& formats)
{
    command
        .add_option("--format", format, "instead of what the ending tells: " + Names(formats).join('|').toStdString())
        ->check([formats](const std::string& name) {
            return Names(formats).contains(QString::fromStdString(name)) ? "" : name + " is none of the formats";
        });
}

QString FormatOf(const Target& target, const std::string& asked, const std::vector<Format>& formats)
{
    if (!asked.empty())
        return QString::fromStdString(asked);
    const QString ending = Ending(target.file);
    for (const Format& format : formats)
        if (format.endings.contains(ending) && target.file != kStandardStream)
            return format.name;
    throw CLI::ValidationError("--output", (target.file + " does not end in one of " + Endings(formats).join('|') +
                                            ", and there is no --format")
                                               .toStdString());
}

void AddStreamFormat(CLI::App& command, StreamFormat& format)
{
    CLI::Option* bare = command.add_flag("--bare", format.bare, "documents are bare list streams, without file header");
    command.add_option("--version", format.version, "the version a bare stream is read with")
        ->needs(bare)
        ->check(CLI::Range(0, SHAPE_DOCUMENT_VERSION))
        ->capture_default_str();
}

CLI::Validator NumberBetween(double low, double high)
{
    return CLI::Validator(
        [low, high](std::string& text) {
            double number = 0;
            const bool within = CLI::detail::lexical_cast(text, number) && number >= low && number <= high;
            return within ? std::string()
                          : text + QString(" is no number from %1 to %2").arg(low).arg(high).toStdString();
        },
        "");
}

CLI::Option* AddNumbers(CLI::App& command, const std::string& name, std::vector<double>& numbers, int count,
                        const std::string& description, double reach)
{
    return command.add_option(name, numbers, description)
        ->expected(count)
        ->delimiter(',')
        ->check(NumberBetween(-reach, reach));
}
