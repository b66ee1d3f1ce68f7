#include "geometry/MicroLineCache.h"

#include "geometry/Geometry.h"
#include "geometry/Tolerances.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>

namespace shapes {

namespace {

constexpr size_t kLinesPerBox = 16;

/// QPainterPath's own comparison has a tolerance.
bool ShareElements(const QPainterPath& a, const QPainterPath& b)
{
    static_assert(sizeof(QPainterPath) == sizeof(void*), "a painter path is a pointer to its shared data");
    return std::memcmp(static_cast<const void*>(&a), static_cast<const void*>(&b), sizeof a) == 0;
}

bool IsNear(const SHAPE_VECTOR_PATHDATA& line, QPointF p, double reach)
{
    return IsNearSegment(p, line.ptStart, line.ptEnd, reach);
}

std::span<const SHAPE_VECTOR_PATHDATA> LinesOfBox(std::span<const SHAPE_VECTOR_PATHDATA> lines, size_t box)
{
    const size_t first = box * kLinesPerBox;
    return lines.subspan(first, std::min(kLinesPerBox, lines.size() - first));
}

} // namespace

bool MicroLineCache::Knows(const QPainterPath& path, int vectorType) const
{
    return m_vectorType == vectorType && ShareElements(m_path, path);
}

void MicroLineCache::Remember(const QPainterPath& path, int vectorType)
{
    m_path = path;
    m_vectorType = vectorType;
    m_boxes.clear();
}

void MicroLineCache::Forget()
{
    m_path = {};
    m_vectorType.reset();
    m_boxes = {};
}

bool MicroLineCache::IsAnyNear(std::span<const SHAPE_VECTOR_PATHDATA> lines, QPointF p, double reach)
{
    const size_t count = (lines.size() + kLinesPerBox - 1) / kLinesPerBox;
    for (size_t i = m_boxes.size(); i < count; ++i)
        m_boxes.push_back(BoxAround(LinesOfBox(lines, i)));
    for (size_t i = 0; i < count; ++i) {
        if (m_boxes[i].IsFarFrom(p, reach))
            continue;
        for (const SHAPE_VECTOR_PATHDATA& line : LinesOfBox(lines, i))
            if (IsNear(line, p, reach))
                return true;
    }
    return false;
}

MicroLineCache::Box MicroLineCache::BoxAround(std::span<const SHAPE_VECTOR_PATHDATA> lines)
{
    constexpr double kEverywhere = std::numeric_limits<double>::infinity();
    Box box{kEverywhere, kEverywhere, -kEverywhere, -kEverywhere};
    for (const SHAPE_VECTOR_PATHDATA& line : lines) {
        const QPointF a = line.ptStart, b = line.ptEnd;
        if (!IsFinite(a) || !IsFinite(b))
            return {-kEverywhere, -kEverywhere, kEverywhere, kEverywhere};
        box = {std::min({box.left, a.x(), b.x()}), std::min({box.top, a.y(), b.y()}),
               std::max({box.right, a.x(), b.x()}), std::max({box.bottom, a.y(), b.y()})};
    }
    return box;
}

/// As IsNearSegment rejects a line: the margin is never smaller than that of a line in the box, because sums of larger
/// numbers in the same order are not smaller.
bool MicroLineCache::Box::IsFarFrom(QPointF p, double reach) const
{
    const double x = std::max(std::abs(left), std::abs(right)), y = std::max(std::abs(top), std::abs(bottom));
    const double margin = NearMargin(p, {x, y}, {x, y}, reach);
    return left > p.x() + margin || right < p.x() - margin || top > p.y() + margin || bottom < p.y() - margin;
}

} // namespace shapes
