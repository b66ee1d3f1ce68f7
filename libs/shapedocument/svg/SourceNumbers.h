/// Numbers as drawings' sources write them.
#pragma once

#include <optional>
#include <string_view>

namespace shapedocument::drawing {

/// White space and commas.
void SkipSeparators(std::string_view& text);

/// The number that text begins with, after separators; takes it off. Infinite where it is too large; none for another
/// letter.
std::optional<double> TakeNumber(std::string_view& text);

/// 0 or 1, which need no separator behind.
std::optional<double> TakeFlag(std::string_view& text);

} // namespace shapedocument::drawing
