/// Reads numbers of drawings' sources.
#pragma once

#include <optional>
#include <string_view>

namespace shapedocument::drawing {

/// Takes white space and commas off text.
void SkipSeparators(std::string_view& text);

/// Takes the number at the start of text, and separators before it, off text. Infinite where it is too large; none
/// where no number follows.
std::optional<double> TakeNumber(std::string_view& text);

/// Takes 0 or 1, which need no separator behind them, off text.
std::optional<double> TakeFlag(std::string_view& text);

} // namespace shapedocument::drawing
