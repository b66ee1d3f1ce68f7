/// Wraps text into lines.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

/// Left and right column of the text. Longer words are not broken.
struct Margins
{
    size_t left;
    size_t right;
};

/// Writes the wrapped text and a line feed. The caller has already written up to the left margin: the first line is not
/// indented, all others are.
void WriteWrapped(std::ostream& out, const std::string& text, Margins margins);
