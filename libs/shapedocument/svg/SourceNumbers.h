/// Reads numbers of drawings' sources.
#pragma once

#include <optional>
#include <string_view>

namespace shapedocument::drawing {

/// Removes white space and commas from the start of text.
void SkipSeparators(std::string_view& text);

/// Reads the number at the start of text and removes it, and separators before it, from text. Infinite where it is too
/// large; none where no number follows.
std::optional<double> ReadSourceNumber(std::string_view& text);

/// Reads 0 or 1, which need no separator behind them, and removes it from text.
std::optional<double> ReadSourceFlag(std::string_view& text);

} // namespace shapedocument::drawing
