/// Makes the scripts with which shells complete the program's arguments.
#include "CommandTexts.h"

#include <sstream>

namespace {

std::string Joined(const std::vector<std::string>& words)
{
    std::string joined;
    for (const std::string& word : words)
        joined += (joined.empty() ? "" : " ") + word;
    return joined;
}

std::string OptionNames(const CommandText& command)
{
    std::vector<std::string> names;
    for (const ArgumentText& argument : command.arguments)
        if (argument.IsOption())
            names.insert(names.end(), argument.names.begin(), argument.names.end());
    names.insert(names.end(), {"-h", "--help"});
    return Joined(names);
}

/// The text with a backslash before each of the letters.
std::string Escaped(const std::string& text, const std::string& letters)
{
    std::string escaped;
    for (const char letter : text) {
        if (letters.find(letter) != std::string::npos)
            escaped += '\\';
        escaped += letter;
    }
    return escaped;
}

/// The text in single quotes, for POSIX shells.
std::string Quoted(const std::string& text)
{
    std::string quoted = "'";
    for (const char letter : text)
        quoted += letter == '\'' ? "'\\''" : std::string(1, letter);
    return quoted + "'";
}

bool TakesValue(const ArgumentText& argument)
{
    return !argument.value.empty() || !argument.choices.empty();
}

std::string BashValues(const ArgumentText& argument)
{
    if (!argument.choices.empty())
        return "compgen -W " + Quoted(Joined(argument.choices)) + " -- \"$word\"";
    if (argument.folder)
        return "compgen -d -- \"$word\"";
    return argument.file ? "compgen -f -- \"$word\"" : "true";
}

/// The shell's own function that completes the value.
std::string ZshValues(const ArgumentText& argument)
{
    if (!argument.choices.empty())
        return "(" + Joined(argument.choices) + ")";
    if (argument.folder)
        return "_files -/";
    return argument.file ? "_files" : "";
}

void WriteZshArgument(std::ostream& out, const ArgumentText& argument)
{
    const std::string text = "[" + Escaped(argument.Explanation(), "[]\\:") + "]";
    const std::string values = ":" + Escaped(argument.Name(), ":") + ":" + ZshValues(argument);
    if (!argument.IsOption()) {
        out << " \\\n                " << Quoted((argument.repeated ? "*" : "") + values);
        return;
    }
    for (const std::string& name : argument.names) {
        const bool isLong = name.starts_with("--");
        const std::string assigned = TakesValue(argument) ? (isLong ? "=" : "+") : "";
        out << " \\\n                "
            << Quoted((argument.repeated ? "*" : "") + name + assigned + text + (TakesValue(argument) ? values : ""));
    }
}

void WriteFishArgument(std::ostream& out, const std::string& start, const ArgumentText& argument)
{
    if (!argument.IsOption())
        return;
    out << start;
    for (const std::string& name : argument.names)
        out << (name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1));
    if (!argument.choices.empty())
        out << " -x -a " << Quoted(Joined(argument.choices));
    else if (argument.folder)
        out << " -x -a '(__fish_complete_directories)'";
    else if (TakesValue(argument))
        out << (argument.file ? " -r" : " -x");
    out << " -d '" << Escaped(argument.Explanation(), "'\\") << "'\n";
}

} // namespace

std::string BashCompletion(const ProgramText& program)
{
    std::ostringstream out;
    const std::string names = Joined(program.CommandNames());
    out << "# Completes the arguments of " << program.name << ".\n_" << program.name << "()\n{\n"
        << "    local word=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command='' options i\n"
        << "    for ((i = 1; i < COMP_CWORD; i++)); do\n"
        << "        [[ ${COMP_WORDS[i]} == -* ]] || { command=${COMP_WORDS[i]}; break; }\n"
        << "    done\n"
        << "    [[ $before != '=' ]] || before=${COMP_WORDS[COMP_CWORD-2]}\n"
        << "    [[ $word != '=' ]] || word=''\n"
        << "    case $command in\n"
        << "    '') mapfile -t COMPREPLY < <(compgen -W "
        << Quoted(names + " " + OptionNames(program.general) + " --version") << " -- \"$word\"); return ;;\n";
    for (const CommandText& command : program.commands) {
        out << "    " << command.name << ")\n        options=" << Quoted(OptionNames(command)) << '\n'
            << "        case $before in\n";
        for (const ArgumentText& argument : command.arguments)
            if (argument.IsOption() && TakesValue(argument)) {
                std::string pattern;
                for (const std::string& name : argument.names)
                    pattern += (pattern.empty() ? "" : " | ") + name;
                out << "        " << pattern << ") mapfile -t COMPREPLY < <(" << BashValues(argument)
                    << "); return ;;\n";
            }
        out << "        esac ;;\n";
    }
    out << "    esac\n"
        << "    if [[ $command == help ]]; then\n"
        << "        options+=" << Quoted(" " + names) << "\n"
        << "    elif [[ $word != -* ]]; then\n"
        << "        mapfile -t COMPREPLY < <(compgen -f -- \"$word\")\n"
        << "        return\n"
        << "    fi\n"
        << "    mapfile -t COMPREPLY < <(compgen -W \"$options\" -- \"$word\")\n"
        << "}\n"
        << "complete -o filenames -F _" << program.name << ' ' << program.name << '\n';
    return out.str();
}

std::string ZshCompletion(const ProgramText& program)
{
    std::ostringstream out;
    out << "#compdef " << program.name << "\n_" << program.name << "()\n{\n"
        << "    local context state state_descr line\n"
        << "    typeset -A opt_args\n"
        << "    _arguments -C";
    for (const ArgumentText& argument : program.general.arguments)
        WriteZshArgument(out, argument);
    out << " \\\n        '--version[print the version]' '(-h --help)'{-h,--help}'[print help]' \\\n"
        << "        '1:command:->command' '*::argument:->arguments'\n"
        << "    case $state in\n    command)\n        local -a commands=(";
    for (const CommandText& command : program.commands)
        out << "\n            " << Quoted(command.name + ":" + command.summary);
    out << ")\n        _describe command commands ;;\n    arguments)\n        case $line[1] in\n";
    for (const CommandText& command : program.commands) {
        out << "        " << command.name << ")\n            _arguments '(-h --help)'{-h,--help}'[print help]'";
        for (const ArgumentText& argument : command.arguments)
            WriteZshArgument(out, argument);
        out << " ;;\n";
    }
    out << "        esac ;;\n    esac\n}\n_" << program.name << " \"$@\"\n";
    return out.str();
}

std::string FishCompletion(const ProgramText& program)
{
    std::ostringstream out;
    const std::string start = "complete -c " + program.name;
    const std::string names = Joined(program.CommandNames());
    const std::string none = start + " -n 'not __fish_seen_subcommand_from " + names + "'";
    for (const ArgumentText& argument : program.general.arguments)
        WriteFishArgument(out, none, argument);
    out << none << " -l version -d 'print the version'\n" << start << " -s h -l help -d 'print help'\n";
    for (const CommandText& command : program.commands) {
        out << none << " -f -a " << command.name << " -d '" << Escaped(command.summary, "'\\") << "'\n";
        for (const ArgumentText& argument : command.arguments)
            WriteFishArgument(out, start + " -n '__fish_seen_subcommand_from " + command.name + "'", argument);
    }
    out << start << " -n '__fish_seen_subcommand_from help' -f -a " << Quoted(names) << '\n';
    return out.str();
}
