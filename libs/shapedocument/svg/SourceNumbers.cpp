#include "svg/SourceNumbers.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <cmath>
#include <limits>

namespace shapedocument::drawing {

namespace {

std::string_view ReadWhile(std::string_view& text, bool (*belongs)(char letter))
{
    const auto letters = static_cast<size_t>(std::ranges::find_if_not(text, belongs) - text.begin());
    const std::string_view word = text.substr(0, letters);
    text.remove_prefix(letters);
    return word;
}

} // namespace

void SkipSeparators(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" ,\t\r\n\f"), text.size()));
}

std::ptrdiff_t SkipAndCountCommas(std::string_view& text)
{
    const std::string_view all = text;
    SkipSeparators(text);
    return std::count(all.begin(), all.end() - static_cast<std::ptrdiff_t>(text.size()), ',');
}

std::optional<double> ReadSourceNumber(std::string_view& text)
{
    SkipSeparators(text);
    std::string_view digits = text;
    if (digits.starts_with('+') && !digits.starts_with("+-"))
        digits.remove_prefix(1);
    double number = 0;
    const char* const end = digits.data() + digits.size();
    const auto [rest, fault] = std::from_chars(digits.data(), end, number);
    if (fault == std::errc::invalid_argument || !std::isfinite(number)) // "inf" and "nan" are not numbers here
        return {};
    text.remove_prefix(static_cast<size_t>(rest - text.data()));
    return fault == std::errc() ? number : std::numeric_limits<double>::infinity();
}

std::optional<double> ReadStrictNumber(std::string_view& text)
{
    const auto number = ReadSourceNumber(text);
    return number && text.data()[-1] != '.' ? number : std::nullopt;
}

std::optional<double> ReadSourceFlag(std::string_view& text)
{
    SkipSeparators(text);
    if (!text.starts_with('0') && !text.starts_with('1'))
        return {};
    const double flag = text.front() - '0';
    text.remove_prefix(1);
    return flag;
}

bool IsLetter(char letter)
{
    return std::isalpha(static_cast<unsigned char>(letter)) != 0;
}

std::string_view ReadLetters(std::string_view& text)
{
    return ReadWhile(text, IsLetter);
}

std::string_view ReadWord(std::string_view& text)
{
    return ReadWhile(text, [](char letter) {
        return std::isalnum(static_cast<unsigned char>(letter)) != 0 || letter == '_' || letter == '-' || letter == '#';
    });
}

} // namespace shapedocument::drawing
