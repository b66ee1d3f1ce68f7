#include "svg/TextItems.h"

#include "svg/PagePainter.h"

#include <algorithm>

namespace shapedocument::drawing {

namespace {

/// Nothing else in a drawing is this large.
bool IsGround(const PaintedItem& item)
{
    return item.path.controlPointRect().width() > 3 * kPageReach;
}

bool IsSame(const PaintedItem& a, const PaintedItem& b)
{
    return a.picture.isEmpty() && b.picture.isEmpty() && a.color == b.color && a.path == b.path;
}

} // namespace

int MarkTexts(std::vector<PaintedItem>& items, const std::vector<PaintedItem>& painted)
{
    int text = 0, notOne = 0;
    auto from = items.begin();
    for (auto begin = painted.begin(); begin != painted.end(); ++text) {
        const auto end = std::find_if(begin, painted.end(), IsGround);
        if (end == painted.end())
            break;
        auto found = items.end();
        if (end - begin == 1)
            found = std::find_if(from, items.end(), [&](const PaintedItem& item) { return IsSame(item, *begin); });
        if (found != items.end()) {
            found->text = text;
            from = found + 1; // texts are painted in document order
        } else if (end != begin) {
            ++notOne;
        }
        begin = end + 1;
    }
    return notOne;
}

} // namespace shapedocument::drawing
