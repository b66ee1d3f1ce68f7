/// Makes the help texts that the program prints: of itself, and of each command.
#include "CommandTexts.h"
#include "WrappedText.h"

#include <sstream>

namespace {

constexpr size_t kHelpColumns = 100;
constexpr size_t kTermColumn = 2;
constexpr size_t kMeaningColumn = 28;

std::string Joined(const std::vector<std::string>& parts, const char* between)
{
    std::string joined;
    for (const std::string& part : parts)
        joined += (joined.empty() ? "" : between) + part;
    return joined;
}

void WriteEntry(std::ostream& out, const std::string& term, const std::string& meaning)
{
    out << std::string(kTermColumn, ' ') << term;
    size_t column = kTermColumn + term.size();
    if (column + 2 > kMeaningColumn) {
        out << '\n';
        column = 0;
    }
    out << std::string(kMeaningColumn - column, ' ');
    WriteWrapped(out, meaning, {kMeaningColumn, kHelpColumns});
}

void WriteEntries(std::ostream& out, const char* heading, const std::vector<Entry>& entries,
                  const std::string& before = "")
{
    if (!entries.empty())
        out << '\n' << heading << ":\n";
    for (const Entry& entry : entries)
        WriteEntry(out, before + entry.term, entry.meaning);
}

/// An example is wider than the column for terms, so its meaning stands on the line above it.
void WriteExamples(std::ostream& out, const std::string& program, const std::vector<Entry>& examples)
{
    if (!examples.empty())
        out << "\nExamples:\n";
    for (const Entry& example : examples)
        out << "  # " << example.meaning << "\n  " << program << ' ' << example.term << '\n';
}

void WriteArguments(std::ostream& out, const CommandText& command)
{
    for (const ArgumentText& argument : command.arguments)
        if (!argument.IsOption())
            WriteEntry(out, argument.Heading(), argument.Explanation());
    out << "\nOptions:\n";
    for (const ArgumentText& argument : command.arguments)
        if (argument.IsOption())
            WriteEntry(out, argument.Heading(), argument.Explanation());
    WriteEntry(out, "-h, --help", "print this text");
}

} // namespace

std::string ArgumentText::Heading() const
{
    return Joined(names, ", ") + (IsOption() && !value.empty() ? "=" + value : "");
}

std::string ArgumentText::Explanation() const
{
    std::string text = description;
    if (!choices.empty())
        text += ": " + Joined(choices, ", ");
    if (!standard.empty())
        text += " (default: " + standard + ")";
    if (repeated && IsOption())
        text += "; may be given several times";
    if (required && IsOption())
        text += "; required";
    return text;
}

std::string CommandText::Usage(const std::string& program) const
{
    std::string usage = program + " " + name + " [OPTIONS]";
    for (const ArgumentText& argument : arguments)
        if (!argument.IsOption())
            usage += (argument.required ? " " : " [") + argument.Name() + (argument.repeated ? "..." : "") +
                     (argument.required ? "" : "]");
    return usage;
}

const CommandText* ProgramText::Find(const std::string& command) const
{
    for (const CommandText& text : commands)
        if (text.name == command)
            return &text;
    return nullptr;
}

std::vector<std::string> ProgramText::CommandNames() const
{
    std::vector<std::string> names;
    for (const CommandText& command : commands)
        names.push_back(command.name);
    return names;
}

std::string HelpText(const ProgramText& program)
{
    std::ostringstream out;
    out << program.description << "\n\nUsage: " << program.name << " [OPTIONS] COMMAND ...\n";
    WriteArguments(out, program.general);
    WriteEntry(out, "--version", "print the version of the program and of the documents that it writes");
    out << "\nCommands:\n";
    for (const CommandText& command : program.commands)
        WriteEntry(out, command.name, command.summary);
    WriteExamples(out, program.name, program.examples);
    WriteEntries(out, "Exit codes", program.exitCodes);
    WriteEntries(out, "Environment variables", program.environment);
    return out.str();
}

std::string HelpText(const ProgramText& program, const CommandText& command)
{
    std::ostringstream out;
    out << "Usage: " << command.Usage(program.name) << "\n\n";
    WriteWrapped(out, command.summary + ". " + command.details, {0, kHelpColumns});
    out << '\n';
    WriteArguments(out, command);
    WriteExamples(out, program.name, command.examples);
    out << "\nExit codes and environment variables: " << program.name << " help\n";
    return out.str();
}
