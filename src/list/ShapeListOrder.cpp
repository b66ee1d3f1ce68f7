/// Order of processing: reading order, then enclosed shapes before the shapes that enclose them.
#include "geometry/QtArithmetic.h"
#include "list/ShapeList.h"
#include "list/ShapeWalk.h"
#include "list/SortLimit.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

using shapes::AxisSpan;
using shapes::SpanOf;

namespace {

constexpr double kRowHeight = 5.0; ///< tops that differ by no more stand in one row, model units

struct Placed
{
    QRectF rect;
    CShape* shape;
};

/// Not a strict weak order, because rows overlap: use it only with algorithms that stay in bounds for any comparison.
bool ReadsBefore(const Placed& a, const Placed& b)
{
    if (std::abs(a.rect.top() - b.rect.top()) <= kRowHeight)
        return a.rect.left() < b.rect.left();
    return a.rect.top() < b.rect.top();
}

/// Tells which rectangles one rectangle encloses. One with a NaN edge encloses none and is enclosed by none, because
/// such rectangles may enclose each other in a circle.
class Enclosure
{
public:
    explicit Enclosure(const QRectF& outer)
        : m_outer(outer), m_x(SpanOf(outer.x(), outer.width())), m_y(SpanOf(outer.y(), outer.height())),
          m_hasEdges(HasEdges(outer))
    {}

    /// Rectangles may contain each other by rounding; then neither encloses the other: sorting would never end.
    bool Holds(const QRectF& inner) const
    {
        const AxisSpan x = SpanOf(inner.x(), inner.width()), y = SpanOf(inner.y(), inner.height());
        if (!shapes::Holds(m_x, x) || !shapes::Holds(m_y, y))
            return false;
        return m_hasEdges && HasEdges(inner) && m_outer != inner && !(shapes::Holds(x, m_x) && shapes::Holds(y, m_y));
    }

private:
    static bool HasEdges(const QRectF& rect) { return !std::isnan(rect.right()) && !std::isnan(rect.bottom()); }

    QRectF m_outer;
    AxisSpan m_x;
    AxisSpan m_y;
    bool m_hasEdges;
};

/// Moves the shapes that the shape at each index encloses directly before it, in their order. No shape before an index
/// encloses one behind it, so after a move the pass goes on at the same index.
void PutEnclosedFirst(std::vector<Placed>& placed)
{
    std::vector<Placed> others;
    for (size_t i = 0; i < placed.size();) {
        const Enclosure enclosure(placed[i].rect);
        others.assign(1, placed[i]);
        size_t next = i;
        for (size_t j = i + 1; j < placed.size(); ++j) {
            if (enclosure.Holds(placed[j].rect))
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

/// Writes the shapes that are still listed, in their new order, to the places that they have now. Measuring them may
/// have run host code; shapes that it has added keep their places.
void WriteBack(const std::vector<Placed>& placed, std::vector<CShape*>& shapes)
{
    std::unordered_map<const CShape*, size_t> awaited, found;
    for (const Placed& one : placed)
        ++awaited[one.shape];
    std::vector<CShape**> places;
    for (CShape*& shape : shapes) {
        const auto one = awaited.find(shape);
        if (one == awaited.end() || found[shape] == one->second)
            continue;
        ++found[shape];
        places.push_back(&shape);
    }
    auto place = places.begin();
    for (const Placed& one : placed) {
        size_t& left = found[one.shape];
        if (left == 0)
            continue;
        --left;
        **place++ = one.shape;
    }
}

} // namespace

void CShapeList::Sort()
{
    if (m_listShapes.size() > shapes::kMostSorted)
        return;
    std::vector<Placed> placed;
    placed.reserve(m_listShapes.size());
    shapes::ForEachShape(m_listShapes, [&placed](CShape* shape) { placed.push_back({shape->GetRect(false), shape}); });
    std::stable_sort(placed.begin(), placed.end(), ReadsBefore);
    PutEnclosedFirst(placed);
    WriteBack(placed, m_listShapes);
}
