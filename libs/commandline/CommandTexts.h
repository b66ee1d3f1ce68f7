/// What help, manual page and completions tell of the program: filled in while the commands declare their arguments.
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

/// An option, or an argument that stands by itself.
struct ArgumentText
{
    std::vector<std::string> names; ///< "-o", "--output"; "FILE" of one that stands by itself
    std::string value;              ///< what stands for the value; empty for flags
    std::string description;
    std::string standard; ///< what holds without the option; empty when nothing does
    std::vector<std::string> choices;
    bool file = false;   ///< the value names a file
    bool folder = false; ///< the value names a folder
    bool required = false;
    bool repeated = false;

    bool IsOption() const { return names.front().front() == '-'; }
    /// The name that messages and manuals use: the longest.
    const std::string& Name() const { return names.back(); }
    /// "-o, --output=FILE" of an option.
    std::string Heading() const;
    /// The description with choices and default behind it.
    std::string Explanation() const;
};

struct CommandText
{
    std::string name;
    std::string summary;                ///< a phrase that begins with what the command does
    std::string details;                ///< sentences; may be empty
    std::deque<ArgumentText> arguments; ///< whose places stay while more are added
    std::vector<Entry> examples;

    /// "shapedoc lines [OPTIONS] FILE" behind the program's name.
    std::string Usage(const std::string& program) const;
};

struct ProgramText
{
    std::string name;
    std::string version;
    std::string description;
    CommandText general; ///< what stands before any command
    std::deque<CommandText> commands;
    std::vector<Entry> examples;
    std::vector<Entry> exitCodes;
    std::vector<Entry> environment;

    /// Null for an unknown name.
    const CommandText* Find(const std::string& command) const;
    std::vector<std::string> CommandNames() const;
};

/// For a terminal, in lines of a bearable length.
std::string HelpText(const ProgramText& program);
std::string HelpText(const ProgramText& program, const CommandText& command);

/// The manual page (section 1), as roff with the macros "man".
std::string ManualPage(const ProgramText& program);

/// Completions of commands, options, choices and file names.
std::string BashCompletion(const ProgramText& program);
std::string ZshCompletion(const ProgramText& program);
std::string FishCompletion(const ProgramText& program);
