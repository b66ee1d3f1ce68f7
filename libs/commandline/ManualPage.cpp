/// Makes the manual page, in the macros "man" of roff.
#include "CommandTexts.h"
#include "WrappedText.h"

#include <algorithm>
#include <cctype>
#include <sstream>

namespace {

/// Escaped for roff: hyphens stay hyphens when an option is copied from the page, and a leading dot or quote is text.
std::string Roff(const std::string& text)
{
    std::string roff;
    char before = ' ';
    for (const char letter : text) {
        if (before == ' ' && (letter == '.' || letter == '\''))
            roff += "\\&";
        before = letter;
        if (letter == '\\')
            roff += "\\e";
        else if (letter == '-')
            roff += "\\-";
        else
            roff += letter;
    }
    return roff;
}

void WriteParagraph(std::ostream& out, const std::string& text)
{
    constexpr size_t kManualColumns = 78;
    WriteWrapped(out, Roff(text), {0, kManualColumns});
}

void WriteEntry(std::ostream& out, const std::string& term, const std::string& meaning)
{
    out << ".TP\n\\fB" << Roff(term) << "\\fR\n";
    WriteParagraph(out, meaning);
}

void WriteArguments(std::ostream& out, const CommandText& command)
{
    for (const ArgumentText& argument : command.arguments)
        WriteEntry(out, argument.Heading(), argument.Explanation());
}

void WriteExamples(std::ostream& out, const std::string& program, const std::vector<Entry>& examples)
{
    for (const Entry& example : examples)
        WriteEntry(out, program + " " + example.term, example.meaning);
}

void WriteCommand(std::ostream& out, const std::string& program, const CommandText& command)
{
    out << ".SS " << command.name << "\n\\fB" << Roff(command.Usage(program)) << "\\fR\n.PP\n";
    WriteParagraph(out, command.summary + ". " + command.details);
    WriteArguments(out, command);
    if (!command.examples.empty())
        out << ".PP\nExamples:\n";
    WriteExamples(out, program, command.examples);
}

void WriteSection(std::ostream& out, const char* heading, const std::vector<Entry>& entries)
{
    out << ".SH " << heading << '\n';
    for (const Entry& entry : entries)
        WriteEntry(out, entry.term, entry.meaning);
}

} // namespace

std::string ManualPage(const ProgramText& program)
{
    std::ostringstream out;
    std::string title = program.name;
    std::transform(title.begin(), title.end(), title.begin(),
                   [](unsigned char letter) { return std::toupper(letter); });
    out << ".TH " << title << " 1 \"\" \"" << program.name << ' ' << program.version
        << "\" \"User Commands\"\n.SH NAME\n"
        << program.name << " \\- ";
    WriteParagraph(out, program.description);
    out << ".SH SYNOPSIS\n\\fB" << program.name << "\\fR [\\fIOPTIONS\\fR] \\fICOMMAND\\fR ...\n.SH OPTIONS\n";
    WriteArguments(out, program.general);
    WriteEntry(out, "-h, --help", "print help, also behind a command");
    WriteEntry(out, "--version", "print the version of the program and of the documents that it writes");
    out << ".SH COMMANDS\n";
    for (const CommandText& command : program.commands)
        WriteCommand(out, program.name, command);
    out << ".SH EXAMPLES\n";
    WriteExamples(out, program.name, program.examples);
    WriteSection(out, "EXIT STATUS", program.exitCodes);
    WriteSection(out, "ENVIRONMENT", program.environment);
    return out.str();
}
