#include "Arguments.h"

#include <CLI/CLI.hpp>
#include <QFile>
#include <QFileInfo>

#include <cmath>

namespace {

std::string NotFinite(const std::string& text)
{
    double number = 0;
    return CLI::detail::lexical_cast(text, number) && std::isfinite(number) ? "" : text + " is no finite number";
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
    command.add_option("FILE", document, "the document")->required();
}

void AddOutput(CLI::App& command, std::string& output, const QStringList& endings)
{
    const std::string list = endings.join('|').toStdString();
    CLI::Option* option = command.add_option("-o,--output", output,
                                             list.empty() ? "the file to write" : "the file to write (" + list + ")");
    option->required();
    if (!endings.isEmpty())
        option->check([endings, list](const std::string& name) {
            return endings.contains(Ending(FileName(name))) ? "" : name + " does not end in one of " + list;
        });
}

void AddStreamFormat(CLI::App& command, StreamFormat& format)
{
    CLI::Option* bare = command.add_flag("--bare", format.bare, "documents are bare list streams, without file header");
    command.add_option("--version", format.version, "the version a bare stream is read with")
        ->needs(bare)
        ->capture_default_str();
}

CLI::Option* AddNumbers(CLI::App& command, const std::string& name, std::vector<double>& numbers, int count,
                        const std::string& description)
{
    return command.add_option(name, numbers, description)->expected(count)->delimiter(',')->check(NotFinite);
}
