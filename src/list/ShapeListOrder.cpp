/// Order of processing: reading order, then enclosed shapes before the shapes that enclose them.
#include "list/ShapeList.h"
#include "shape/Shape.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr size_t kMostSorted = 999;
constexpr double kRowHeight = 5.0; ///< tops that differ by no more stand in one row, model units

struct Placed
{
    QRectF rect;
    CShape* shape;
};

/// No strict weak order, for rows overlap: only an algorithm that trusts no comparison may be used with it.
bool ReadsBefore(const Placed& a, const Placed& b)
{
    if (std::abs(a.rect.top() - b.rect.top()) <= kRowHeight)
        return a.rect.left() < b.rect.left();
    return a.rect.top() < b.rect.top();
}

/// Without an edge that is no number, for such a rectangle may enclose others in a circle.
bool HasEdges(const QRectF& rect)
{
    return !std::isnan(rect.right()) && !std::isnan(rect.bottom());
}

/// Rectangles may contain each other by rounding; then neither encloses the other, or they would change places forever.
bool Encloses(const Placed& outer, const Placed& inner)
{
    return HasEdges(outer.rect) && HasEdges(inner.rect) && outer.rect.contains(inner.rect) &&
           outer.rect != inner.rect && !inner.rect.contains(outer.rect);
}

/// Puts what the shape at each place encloses directly before it, in the order found. What stands before a place holds
/// nothing that comes after it, so the pass goes on at the place itself after each move.
void PutEnclosedFirst(std::vector<Placed>& placed)
{
    std::vector<Placed> others;
    for (size_t i = 0; i < placed.size();) {
        const Placed outer = placed[i];
        others.assign(1, outer);
        size_t next = i;
        for (size_t j = i + 1; j < placed.size(); ++j) {
            if (Encloses(outer, placed[j]))
                placed[next++] = placed[j];
            else
                others.push_back(placed[j]);
        }
        if (next == i) {
            ++i;
            continue;
        }
        std::copy(others.begin(), others.end(),
                  placed.begin() + static_cast<std::ptrdiff_t>(placed.size() - others.size()));
    }
}

} // namespace

void CShapeList::Sort()
{
    if (m_listShapes.size() > kMostSorted)
        return;
    std::vector<Placed> placed;
    placed.reserve(m_listShapes.size());
    for (CShape* shape : m_listShapes)
        if (shape)
            placed.push_back({shape->GetRect(false), shape});
    std::stable_sort(placed.begin(), placed.end(), ReadsBefore);
    PutEnclosedFirst(placed);
    auto next = placed.begin();
    for (CShape*& shape : m_listShapes)
        if (shape)
            shape = (next++)->shape;
}
