/// Text in lines of a bearable length.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>

/// Columns between which text goes. Words that are longer stay whole.
struct Margins
{
    size_t left;
    size_t right;
};

/// The words of the text with a line feed behind the last. The first line goes on at the left margin, where the caller has
/// come; the others are indented to it.
void WriteWrapped(std::ostream& out, const std::string& text, Margins margins);
