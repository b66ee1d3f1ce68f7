/// The manual page, in the macros "man" of roff.
#include "CommandTexts.h"

#include <sstream>

namespace {

/// Text as roff shows it: hyphens that can be copied as options, no line that is taken for a command.
std::string Roff(const std::string& text)
{
    std::string roff;
    for (const char letter : text) {
        if (letter == '\\')
            roff += "\\e";
        else if (letter == '-')
            roff += "\\-";
        else
            roff += letter;
    }
    const bool command = !roff.empty() && (roff.front() == '.' || roff.front() == '\'');
    return (command ? "\\&" : "") + roff;
}

void WriteEntry(std::ostream& out, const std::string& term, const std::string& meaning)
{
    out << ".TP\n\\fB" << Roff(term) << "\\fR\n" << Roff(meaning) << '\n';
}

void WriteArguments(std::ostream& out, const CommandText& command)
{
    for (const ArgumentText& argument : command.arguments)
        WriteEntry(out, argument.Heading(), argument.Explanation());
}

void WriteExamples(std::ostream& out, const std::string& program, const std::vector<Entry>& examples)
{
    for (const Entry& example : examples)
        out << ".PP\n"
            << Roff(example.meaning) << ":\n.PP\n.RS 4\n.nf\n"
            << Roff(program + " " + example.term) << "\n.fi\n.RE\n";
}

void WriteCommand(std::ostream& out, const std::string& program, const CommandText& command)
{
    out << ".SS " << command.name << "\n\\fB" << Roff(command.Usage(program)) << "\\fR\n.PP\n"
        << Roff(command.summary + ". " + command.details) << '\n';
    WriteArguments(out, command);
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
    out << ".TH SHAPEDOC 1 \"\" \"" << program.name << ' ' << program.version << "\" \"User Commands\"\n.SH NAME\n"
        << program.name << " \\- " << Roff(program.description) << "\n.SH SYNOPSIS\n\\fB" << program.name
        << "\\fR [\\fIOPTIONS\\fR] \\fICOMMAND\\fR ...\n.SH OPTIONS\n";
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
