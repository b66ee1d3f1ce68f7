#include "NearestName.h"

#include <algorithm>
#include <numeric>

namespace {

/// Number of letters to insert, remove or replace (Levenshtein's distance), row by row of its table.
size_t Distance(const std::string& a, const std::string& b)
{
    std::vector<size_t> row(b.size() + 1);
    std::iota(row.begin(), row.end(), size_t{0});
    for (size_t i = 0; i < a.size(); ++i) {
        size_t diagonal = row[0];
        row[0] = i + 1;
        for (size_t j = 0; j < b.size(); ++j) {
            const size_t replaced = diagonal + (a[i] != b[j]);
            diagonal = row[j + 1];
            row[j + 1] = std::min({row[j] + 1, row[j + 1] + 1, replaced});
        }
    }
    return row.back();
}

} // namespace

std::string Suggestion(const std::string& mistyped, const std::vector<std::string>& names)
{
    constexpr size_t kLongestMistyped = 40; // The command line may hold anything.
    if (mistyped.size() > kLongestMistyped)
        return "";
    std::string nearest;
    size_t least = mistyped.size() / 2 + 1;
    for (const std::string& name : names) {
        const size_t distance = name.starts_with(mistyped) ? 0 : Distance(mistyped, name);
        if (distance < least) {
            least = distance;
            nearest = name;
        }
    }
    return nearest.empty() ? "" : "; the nearest is " + nearest;
}
