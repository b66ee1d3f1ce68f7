#include "svg/SourceNumbers.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>

namespace shapedocument::drawing {

void SkipSeparators(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" ,\t\r\n\f"), text.size()));
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

std::optional<double> ReadSourceFlag(std::string_view& text)
{
    SkipSeparators(text);
    if (!text.starts_with('0') && !text.starts_with('1'))
        return {};
    const double flag = text.front() - '0';
    text.remove_prefix(1);
    return flag;
}

} // namespace shapedocument::drawing
