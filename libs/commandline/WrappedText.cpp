#include "WrappedText.h"

#include <sstream>

void WriteWrapped(std::ostream& out, const std::string& text, Margins margins)
{
    std::istringstream words(text);
    size_t column = margins.left;
    for (std::string word; words >> word;) {
        if (column > margins.left && column + 1 + word.size() > margins.right) {
            out << '\n' << std::string(margins.left, ' ');
            column = margins.left;
        } else if (column > margins.left) {
            out << ' ';
            ++column;
        }
        out << word;
        column += word.size();
    }
    out << '\n';
}
