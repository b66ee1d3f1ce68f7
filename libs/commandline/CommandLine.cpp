/// The whole command line: commands, parsing, and what the command "help" prints.
#include "CommandLine.h"

#include "NearestName.h"

#include <CLI/CLI.hpp>

namespace {

constexpr char kHelp[] = "help";

/// Throws UsageError for the first argument that the command does not know.
void ExpectAllKnown(const CLI::App& app, const CommandText& command, std::vector<std::string> options)
{
    const std::vector<std::string> left = app.remaining();
    if (left.empty())
        return;
    const std::string where = command.name.empty() ? "" : " of " + command.name;
    const std::string& first = left.front();
    if (first.front() != '-')
        throw UsageError{"'" + first + "' is one argument too many" + where};
    const std::string name = first.substr(0, first.find('='));
    options.emplace_back("--help");
    throw UsageError{"there is no option " + name + where + Suggestion(name, options)};
}

/// The parser's message without the parser's own terms.
std::string PlainWords(const std::string& words)
{
    const size_t end = words.find(" was given a disallowed flag override");
    return end < words.size() ? "--" + words.substr(0, end) + " takes no value" : words;
}

} // namespace

CommandLine::CommandLine(const std::string& program, const std::string& version, const std::string& description)
    : m_app(std::make_unique<CLI::App>(description, program))
{
    m_text.name = program;
    m_text.version = version;
    m_text.description = description;
    m_app->require_subcommand(1);
    m_app->set_version_flag("--version", version);
    m_general = std::make_unique<CommandArguments>(*m_app, m_text.general);
    CommandArguments& help = AddCommand(kHelp, "Explain the program, or a command and its options");
    const CommandOption command = help.AddText("COMMAND", m_helpFor, "the command");
    help.AddChoice("--as", m_helpForm, {"text", "man", "bash", "zsh", "fish"},
                   "of the whole program: the manual page, or what lets a shell complete its arguments")
        .Excludes(command);
}

CommandLine::~CommandLine() = default;

CommandArguments& CommandLine::AddCommand(const std::string& name, const std::string& summary,
                                          const std::string& details)
{
    CommandText& text = m_text.commands.emplace_back();
    text.name = name;
    text.summary = summary;
    text.details = details;
    return m_commands.emplace_back(*m_app->add_subcommand(name), text);
}

const CommandText& CommandLine::Known(const std::string& command) const
{
    if (const CommandText* text = m_text.Find(command))
        return *text;
    throw UsageError{"there is no command " + command + Suggestion(command, m_text.CommandNames())};
}

std::string CommandLine::Help() const
{
    if (m_helpForm == "man")
        return ManualPage(m_text);
    if (m_helpForm == "bash")
        return BashCompletion(m_text);
    if (m_helpForm == "zsh")
        return ZshCompletion(m_text);
    if (m_helpForm == "fish")
        return FishCompletion(m_text);
    return m_helpFor.empty() ? HelpText(m_text) : HelpText(m_text, Known(m_helpFor));
}

const CommandArguments& CommandLine::Chosen() const
{
    const std::vector<CLI::App*> chosen = m_app->get_subcommands();
    for (const CommandArguments& command : m_commands)
        if (!chosen.empty() && &command.m_app == chosen.front())
            return command;
    return *m_general;
}

CommandLine::Parsed CommandLine::Parse(int argc, const char* const* argv)
{
    const auto word = std::find_if(argv + 1, argv + argc, [](const char* argument) { return *argument != '-'; });
    if (word != argv + argc)
        Known(*word); // No option in front of a command takes a value.
    try {
        m_app->parse(argc, argv);
    } catch (const CLI::CallForVersion&) {
        return {m_text.name + " " + m_text.version + "\n", {}};
    } catch (const CLI::CallForHelp&) {
        const CommandText& text = Chosen().m_text;
        return {&text == &m_text.general ? HelpText(m_text) : HelpText(m_text, text), {}};
    } catch (const CLI::ParseError& error) {
        ExpectAllKnown(Chosen().m_app, Chosen().m_text, Chosen().OptionNames());
        if (&Chosen() == m_general.get())
            throw UsageError{"a subcommand is required; " + m_text.name + " help lists them"};
        throw UsageError{PlainWords(error.what())};
    }
    if (const Action& action = Chosen().m_action)
        return {"", action};
    return {Help(), {}};
}
