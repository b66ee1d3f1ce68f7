/// Text of files and their names in a form that is safe to print.
#pragma once

#include <QString>

/// Control characters, invisible direction marks and halves of characters as visible escapes (\n, \t, \r, \x1b,
/// \u202e): one line that shows on a terminal what it holds and steers nothing.
QString Escaped(const QString& text);
