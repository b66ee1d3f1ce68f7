/// The arguments of one command, as they are declared.
#include "CommandLine.h"

#include <CLI/CLI.hpp>
#include <QFile>
#include <QStringList>

namespace {

/// What a check returns when it finds no fault.
const std::string kFine;

CLI::Validator Check(std::function<std::string(const std::string&)> fault)
{
    return CLI::Validator([fault = std::move(fault)](std::string& text) { return fault(text); }, "");
}

CLI::Validator Within(Range range, const char* kind)
{
    return Check([range, kind](const std::string& text) {
        double number = 0;
        const bool within = CLI::detail::lexical_cast(text, number) && number >= range.low && number <= range.high;
        return within
                   ? kFine
                   : text + QString(" is no %1 from %2 to %3").arg(kind).arg(range.low).arg(range.high).toStdString();
    });
}

std::string Shown(double number)
{
    return QString::number(number).toStdString();
}

template <class Number>
std::string Shown(const std::vector<Number>& numbers)
{
    QStringList texts;
    for (const Number number : numbers)
        texts << QString::number(number);
    return texts.join(',').toStdString();
}

template <class Number>
std::string Shown(const std::optional<Number>& number)
{
    return number ? Shown(*number) : "";
}

template <class Value>
constexpr bool kWhole =
    std::is_same_v<Value, int> || std::is_same_v<Value, std::optional<int>> || std::is_same_v<Value, std::vector<int>>;

std::function<void(const std::string&)> Into(QString& file)
{
    return [&file](const std::string& name) { file = QFile::decodeName(name.c_str()); };
}

} // namespace

CommandOption& CommandOption::Required()
{
    m_option->required();
    m_text->required = true;
    return *this;
}

CommandOption& CommandOption::Needs(const CommandOption& other)
{
    m_option->needs(other.m_option);
    m_text->description += "; only with " + other.m_text->Name();
    return *this;
}

CommandOption& CommandOption::Excludes(const CommandOption& other)
{
    m_option->excludes(other.m_option);
    m_text->description += "; not with " + other.m_text->Name();
    return *this;
}

/// An option's name for the parser, and its entry in the texts.
struct CommandArguments::Declared
{
    std::string name;
    ArgumentText& text;
};

CommandArguments::Declared CommandArguments::Declare(const std::string& name, const std::string& description)
{
    const size_t end = std::min(name.find('='), name.size());
    ArgumentText& text = m_text.arguments.emplace_back();
    text.names = CLI::detail::split(name.substr(0, end), ',');
    text.value = end < name.size() ? name.substr(end + 1) : "";
    text.description = description;
    return {name.substr(0, end), text};
}

CommandOption CommandArguments::AddFlag(const std::string& name, bool& value, const std::string& description)
{
    const Declared declared = Declare(name, description);
    // no flag can be switched off by =0
    return {m_app.add_flag(declared.name, value)->disable_flag_override(), declared.text};
}

CommandOption CommandArguments::AddText(const std::string& name, std::string& value, const std::string& description,
                                        size_t mostBytes)
{
    const Declared declared = Declare(name, description);
    declared.text.standard = value;
    CLI::Option* option = m_app.add_option(declared.name, value)->check(Check([mostBytes](const std::string& text) {
        return text.size() <= mostBytes ? kFine : "longer than " + std::to_string(mostBytes) + " bytes";
    }));
    return {option, declared.text};
}

CommandOption CommandArguments::AddTexts(const std::string& name, std::vector<std::string>& values,
                                         const std::string& description)
{
    const Declared declared = Declare(name, description);
    declared.text.repeated = true;
    return {m_app.add_option(declared.name, values)->allow_extra_args(false), declared.text};
}

CommandOption CommandArguments::AddFile(const std::string& name, QString& value, const std::string& description)
{
    const Declared declared = Declare(name, description);
    declared.text.file = true;
    return {m_app.add_option_function<std::string>(declared.name, Into(value)), declared.text};
}

CommandOption CommandArguments::AddFiles(const std::string& name, QStringList& values, const std::string& description)
{
    const Declared declared = Declare(name, description);
    declared.text.file = declared.text.repeated = true;
    const auto take = [&values](const std::vector<std::string>& names) {
        for (const std::string& file : names)
            values << QFile::decodeName(file.c_str());
    };
    return {m_app.add_option_function<std::vector<std::string>>(declared.name, take), declared.text};
}

CommandOption CommandArguments::AddFolder(const std::string& name, QString& value, const std::string& description)
{
    const Declared declared = Declare(name, description);
    declared.text.folder = true;
    return {m_app.add_option_function<std::string>(declared.name, Into(value)), declared.text};
}

CommandOption CommandArguments::AddChoice(const std::string& name, std::string& value,
                                          const std::vector<std::string>& choices, const std::string& description)
{
    const Declared declared = Declare(name, description);
    declared.text.choices = choices;
    if (declared.text.value.empty())
        declared.text.value = "NAME";
    declared.text.standard = value;
    CLI::Option* option = m_app.add_option(declared.name, value)->check(Check([choices](const std::string& text) {
        const bool known = std::find(choices.begin(), choices.end(), text) != choices.end();
        return known ? kFine : text + " is none of " + CLI::detail::join(choices, "|");
    }));
    return {option, declared.text};
}

template <class Value>
CommandOption CommandArguments::AddRanged(const std::string& name, Value& value, Range range,
                                          const std::string& description)
{
    const Declared declared = Declare(name, description);
    declared.text.standard = Shown(value);
    CLI::Option* option = m_app.add_option(declared.name, value);
    return {option->check(Within(range, kWhole<Value> ? "whole number" : "number")), declared.text};
}

CommandOption CommandArguments::AddInteger(const std::string& name, int& value, Range range,
                                           const std::string& description)
{
    return AddRanged(name, value, range, description);
}

CommandOption CommandArguments::AddInteger(const std::string& name, std::optional<int>& value, Range range,
                                           const std::string& description)
{
    return AddRanged(name, value, range, description);
}

CommandOption CommandArguments::AddIntegers(const std::string& name, std::vector<int>& values, Range range,
                                            const std::string& description)
{
    CommandOption option = AddRanged(name, values, range, description);
    option.m_option->delimiter(',');
    return option;
}

CommandOption CommandArguments::AddNumber(const std::string& name, double& value, Range range,
                                          const std::string& description)
{
    return AddRanged(name, value, range, description);
}

CommandOption CommandArguments::AddNumber(const std::string& name, std::optional<double>& value, Range range,
                                          const std::string& description)
{
    return AddRanged(name, value, range, description);
}

CommandOption CommandArguments::AddNumbers(const std::string& name, std::vector<double>& values, int count, Range range,
                                           const std::string& description)
{
    CommandOption option = AddRanged(name, values, range, description);
    option.m_option->expected(count)->delimiter(',');
    return option;
}

void CommandArguments::AddExample(const std::string& arguments, const std::string& purpose)
{
    m_text.examples.push_back({arguments, purpose});
}

std::vector<std::string> CommandArguments::OptionNames() const
{
    std::vector<std::string> names;
    for (const ArgumentText& argument : m_text.arguments)
        if (argument.IsOption())
            names.push_back(argument.Name());
    return names;
}

std::vector<std::string> CommandArguments::Given() const
{
    std::vector<std::string> names;
    for (const CLI::Option* option : m_app.parse_order())
        names.push_back(option->get_lnames().empty() ? option->get_name() : "--" + option->get_lnames().back());
    return names;
}

void CommandArguments::ExpectNoneFrom(size_t first, const std::string& reason) const
{
    const std::vector<std::string> names = OptionNames();
    for (const std::string& given : Given())
        if (std::find(names.begin() + std::ptrdiff_t(first), names.end(), given) != names.end())
            throw UsageError{given + ": " + reason};
}

bool CommandArguments::IsGiven(const std::string& name) const
{
    return m_app.count(name) > 0;
}
