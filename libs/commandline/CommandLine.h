/// The arguments of the program and its commands, declared once: parsing, help, manual page and completions come of it.
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

/// What a command does once its arguments are parsed; answers the exit code. Throws Failure or UsageError.
using Action = std::function<int()>;

/// Numbers from low to high. What is no number lies nowhere.
struct Range
{
    double low;
    double high;
};

/// An option that has been declared, to say more about it.
class CommandOption
{
public:
    CommandOption(CLI::Option* option, ArgumentText& text) : m_option(option), m_text(&text) {}

    CommandOption& Required();
    /// Only together with the other.
    CommandOption& Needs(const CommandOption& other);
    CommandOption& Excludes(const CommandOption& other);

private:
    friend class CommandArguments;

    CLI::Option* m_option;
    ArgumentText* m_text;
};

/// What one command takes. Names are "-o,--output=FILE": the word behind = stands for the value in help and manual. A
/// name without dashes stands by itself, in the order of declaration. What the values hold at the declaration is the
/// default; they must live as long as the command line.
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

    /// arguments: behind the program's name.
    void AddExample(const std::string& arguments, const std::string& purpose);
    void Runs(Action action) { m_action = std::move(action); }

    /// Of the options that have been declared so far, the longest of each, in their order.
    std::vector<std::string> OptionNames() const;
    /// After parsing: the options of the command line in their order, by their longest names, each as often as it
    /// stands there with a value.
    std::vector<std::string> Given() const;
    /// Whether the option of that longest name is on the command line.
    bool IsGiven(const std::string& name) const;

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

    /// Takes what stands before any command.
    CommandArguments& General() { return *m_general; }
    /// summary: a phrase without a full stop; details: sentences.
    CommandArguments& AddCommand(const std::string& name, const std::string& summary, const std::string& details = "");
    ProgramText& Text() { return m_text; }

    struct Parsed
    {
        std::string answer; ///< to be printed instead of doing anything; empty when there is an action
        Action action;
    };
    /// Throws UsageError.
    Parsed Parse(int argc, const char* const* argv);

private:
    /// Throws UsageError for an unknown name.
    const CommandText& Known(const std::string& command) const;
    /// What the command help has been asked for.
    std::string Help() const;
    /// General() where no command has been named.
    const CommandArguments& Chosen() const;

    std::unique_ptr<CLI::App> m_app;
    ProgramText m_text;
    std::unique_ptr<CommandArguments> m_general;
    std::deque<CommandArguments> m_commands;
    std::string m_helpFor; ///< the command that the command help is to explain
    std::string m_helpForm = "text";
};
