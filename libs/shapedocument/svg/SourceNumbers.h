/// Reads numbers and words of drawings' sources.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace shapedocument::drawing {

/// Removes white space and commas from the start of text.
void SkipSeparators(std::string_view& text);

/// The same; returns how many of them were commas.
std::ptrdiff_t SkipAndCountCommas(std::string_view& text);

/// Reads the number at the start of text and removes it, and separators before it, from text. Infinite where it is too
/// large; none where no number follows.
std::optional<double> ReadSourceNumber(std::string_view& text);

/// The same, without numbers that end with their point, which the renderer takes in paths only.
std::optional<double> ReadStrictNumber(std::string_view& text);

/// Reads 0 or 1, which need no separator behind them, and removes it from text.
std::optional<double> ReadSourceFlag(std::string_view& text);

bool IsLetter(char letter);

/// Removes the letters at the start of text, and returns them.
std::string_view ReadLetters(std::string_view& text);

/// Removes the name or colour at the start of text, digits included, and returns it.
std::string_view ReadWord(std::string_view& text);

} // namespace shapedocument::drawing
