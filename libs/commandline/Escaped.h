/// Escapes text from files, and file names, for printing.
#pragma once

#include <QString>

/// The text with control characters, invisible direction marks and halves of characters as visible escapes (\n, \t, \r,
/// \x1b, \u202e): one line without effects on a terminal.
QString Escaped(const QString& text);
