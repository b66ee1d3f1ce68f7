/// Text wrapped into lines.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

/// Left and right column of the text. Words that are longer are not broken.
struct Margins
{
    size_t left;
    size_t right;
};

/// The wrapped text, ended by a line feed. The caller has already moved to the left margin: the first line is not
/// indented, all others are.
void WriteWrapped(std::ostream& out, const std::string& text, Margins margins);
