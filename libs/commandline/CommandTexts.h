/// The texts of help, manual page and completions; filled in while the commands declare their arguments.
#pragma once

#include <deque>
#include <string>
#include <vector>

/// A term and what it means: an exit code, an environment variable, an example.
struct Entry
{
    std::string term;
    std::string meaning;
};

/// An option, or a positional argument.
struct ArgumentText
{
    std::vector<std::string> names; ///< "-o", "--output"; "FILE" of a positional one
    std::string value;              ///< placeholder of the value; empty for flags
    std::string description;
    std::string standard; ///< the default; empty without one
    std::vector<std::string> choices;
    bool file = false;   ///< the value names a file
    bool folder = false; ///< the value names a folder
    bool required = false;
    bool repeated = false;

    bool IsOption() const { return names.front().front() == '-'; }
    /// The longest name, which messages and manuals use.
    const std::string& Name() const { return names.back(); }
    /// "-o, --output=FILE" of an option.
    std::string Heading() const;
    /// The description followed by choices and default.
    std::string Explanation() const;
};

struct CommandText
{
    std::string name;
    std::string summary;                ///< a phrase that starts with what the command does
    std::string details;                ///< sentences; may be empty
    std::deque<ArgumentText> arguments; ///< a deque: references stay valid while more are added
    std::vector<Entry> examples;

    /// The line of usage, for instance "shapedoc lines [OPTIONS] FILE".
    std::string Usage(const std::string& program) const;
};

struct ProgramText
{
    std::string name;
    std::string version;
    std::string description;
    CommandText general; ///< arguments before the command's name
    std::deque<CommandText> commands;
    std::vector<Entry> examples;
    std::vector<Entry> exitCodes;
    std::vector<Entry> environment;

    /// Null for an unknown name.
    const CommandText* Find(const std::string& command) const;
    std::vector<std::string> CommandNames() const;
};

/// The help for a terminal, with wrapped lines.
std::string HelpText(const ProgramText& program);
std::string HelpText(const ProgramText& program, const CommandText& command);

/// The manual page (section 1), as roff with the macros "man".
std::string ManualPage(const ProgramText& program);

/// Completions of commands, options, choices and file names.
std::string BashCompletion(const ProgramText& program);
std::string ZshCompletion(const ProgramText& program);
std::string FishCompletion(const ProgramText& program);
