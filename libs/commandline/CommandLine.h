/// The arguments of the program and its commands, declared once for parsing, help, manual page and completions.
#pragma once

#include "CommandTexts.h"

#include <QStringList>

#include <functional>
#include <limits>
#include <memory>
#include <optional>

namespace CLI {
class App;
class Option;
} // namespace CLI

/// Wrong arguments: a line for the user.
struct UsageError
{
    std::string text;
};

/// What a command does after parsing; returns the exit code. Throws Failure or UsageError.
using Action = std::function<int()>;

/// Numbers from low to high, both included. NaN is outside every range.
struct Range
{
    double low;
    double high;
};

/// A declared option; its functions add conditions.
class CommandOption
{
public:
    CommandOption(CLI::Option* option, ArgumentText& text) : m_option(option), m_text(&text) {}

    CommandOption& Required();
    /// The option is an error without the other one.
    CommandOption& Needs(const CommandOption& other);
    CommandOption& Excludes(const CommandOption& other);

private:
    friend class CommandArguments;

    CLI::Option* m_option;
    ArgumentText* m_text;
};

/// The arguments of one command. An option's name is "-o,--output=FILE"; FILE is the placeholder in help and manual. A
/// name without dashes is positional, in the order of declaration. The values at the time of the declaration are the
/// defaults. Values are borrowed: they must live as long as the command line.
class CommandArguments
{
public:
    CommandArguments(CLI::App& app, CommandText& text) : m_app(app), m_text(text) {}

    CommandOption AddFlag(const std::string& name, bool& value, const std::string& description);
    CommandOption AddText(const std::string& name, std::string& value, const std::string& description,
                          size_t mostBytes = std::numeric_limits<size_t>::max());
    /// One value each time the option is given.
    CommandOption AddTexts(const std::string& name, std::vector<std::string>& values, const std::string& description);
    CommandOption AddFile(const std::string& name, QString& value, const std::string& description);
    CommandOption AddFiles(const std::string& name, QStringList& values, const std::string& description);
    CommandOption AddFolder(const std::string& name, QString& value, const std::string& description);
    CommandOption AddChoice(const std::string& name, std::string& value, const std::vector<std::string>& choices,
                            const std::string& description);
    CommandOption AddInteger(const std::string& name, int& value, Range range, const std::string& description);
    CommandOption AddInteger(const std::string& name, std::optional<int>& value, Range range,
                             const std::string& description);
    CommandOption AddIntegers(const std::string& name, std::vector<int>& values, Range range,
                              const std::string& description);
    CommandOption AddNumber(const std::string& name, double& value, Range range, const std::string& description);
    CommandOption AddNumber(const std::string& name, std::optional<double>& value, Range range,
                            const std::string& description);
    /// count numbers, separated by commas or blanks.
    CommandOption AddNumbers(const std::string& name, std::vector<double>& values, int count, Range range,
                             const std::string& description);

    /// arguments: without the program's name.
    void AddExample(const std::string& arguments, const std::string& purpose);
    void Runs(Action action) { m_action = std::move(action); }

    /// The longest names of the options declared so far, in their order.
    std::vector<std::string> OptionNames() const;
    /// After parsing: the longest names of the options in the order of the command line; an option that has several
    /// values is listed once for each.
    std::vector<std::string> Given() const;
    /// Whether the option of that longest name is on the command line.
    bool IsGiven(const std::string& name) const;
    /// Throws UsageError, "OPTION: " and the reason, if one of the options declared from number first on is on the
    /// command line.
    void ExpectNoneFrom(size_t first, const std::string& reason) const;

private:
    friend class CommandLine;

    struct Declared;
    Declared Declare(const std::string& name, const std::string& description);
    template <class Value>
    CommandOption AddRanged(const std::string& name, Value& value, Range range, const std::string& description);

    CLI::App& m_app;
    CommandText& m_text;
    Action m_action;
};

class CommandLine
{
public:
    CommandLine(const std::string& program, const std::string& version, const std::string& description);
    ~CommandLine();
    CommandLine(const CommandLine&) = delete;
    CommandLine& operator=(const CommandLine&) = delete;

    /// The arguments before the command's name.
    CommandArguments& General() { return *m_general; }
    /// summary: a phrase without a full stop; details: sentences.
    CommandArguments& AddCommand(const std::string& name, const std::string& summary, const std::string& details = "");
    ProgramText& Text() { return m_text; }

    struct Parsed
    {
        std::string answer; ///< text to print instead of running a command; empty when there is an action
        Action action;
    };
    /// Throws UsageError.
    Parsed Parse(int argc, const char* const* argv);

private:
    /// Throws UsageError for an unknown name.
    const CommandText& Known(const std::string& command) const;
    /// The text that the command "help" prints.
    std::string Help() const;
    /// The arguments of the command on the command line; General() without a command.
    const CommandArguments& Chosen() const;

    std::unique_ptr<CLI::App> m_app;
    ProgramText m_text;
    std::unique_ptr<CommandArguments> m_general;
    std::deque<CommandArguments> m_commands;
    std::string m_helpFor; ///< name of the command that help explains
    std::string m_helpForm = "text";
};
