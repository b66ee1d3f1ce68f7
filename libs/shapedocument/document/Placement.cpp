#include "document/Placement.h"

#include "vector/ShapeVector.h"

#include <algorithm>
#include <numeric>

namespace shapedocument {

namespace {

/// Starts of stripes of the given widths with gap between them.
std::vector<double> Starts(const std::vector<double>& widths, double gap)
{
    std::vector<double> starts;
    double next = 0;
    for (const double width : widths) {
        starts.push_back(next);
        next += width + gap;
    }
    return starts;
}

bool Overlap(const QRectF& a, const QRectF& b)
{
    constexpr double kRoundedTouch = 1e-3; // mm: stored coordinates are rounded
    return a.left() < b.right() - kRoundedTouch && b.left() < a.right() - kRoundedTouch &&
           a.top() < b.bottom() - kRoundedTouch && b.top() < a.bottom() - kRoundedTouch;
}

QRectF RectOf(CShape& shape)
{
    if (!dynamic_cast<CShapeVector*>(&shape))
        return shape.GetRect(false);
    const std::unique_ptr<CShape> copy(shape.Clone());
    const QRectF rect = copy->GetRect(false);
    CShape::DeletePath(copy.get());
    return rect;
}

} // namespace

QRectF RectAroundShapes(const std::vector<std::unique_ptr<CShape>>& shapes)
{
    QRectF rect;
    for (const std::unique_ptr<CShape>& shape : shapes)
        rect |= RectOf(*shape);
    return rect;
}

std::vector<QPointF> TableCorners(const std::vector<QSizeF>& sizes, size_t columns, double gap)
{
    columns = std::max<size_t>(columns, 1);
    std::vector<double> widths(std::min(columns, sizes.size())), heights((sizes.size() + columns - 1) / columns);
    for (size_t i = 0; i < sizes.size(); ++i) {
        widths[i % columns] = std::max(widths[i % columns], sizes[i].width());
        heights[i / columns] = std::max(heights[i / columns], sizes[i].height());
    }
    const std::vector<double> lefts = Starts(widths, gap), tops = Starts(heights, gap);
    std::vector<QPointF> corners;
    corners.reserve(sizes.size());
    for (size_t i = 0; i < sizes.size(); ++i)
        corners.emplace_back(lefts[i % columns], tops[i / columns]);
    return corners;
}

std::vector<QPointF> OffsetsTo(const Places& places, const std::vector<QRectF>& rects)
{
    std::vector<QPointF> offsets(rects.size());
    for (size_t i = 0; i < offsets.size() && !places.at.empty(); ++i)
        offsets[i] = places.at[places.at.size() > 1 ? i : 0];
    if (places.columns == 0)
        return offsets;
    std::vector<QSizeF> sizes;
    for (const QRectF& rect : rects)
        sizes.push_back(rect.size());
    const std::vector<QPointF> corners = TableCorners(sizes, places.columns, places.gap);
    for (size_t i = 0; i < offsets.size(); ++i)
        offsets[i] += corners[i] - rects[i].topLeft();
    return offsets;
}

std::vector<size_t> Overlapping(const std::vector<QRectF>& rects)
{
    std::vector<size_t> byLeft(rects.size());
    std::iota(byLeft.begin(), byLeft.end(), size_t{0});
    std::sort(byLeft.begin(), byLeft.end(), [&](size_t a, size_t b) { return rects[a].left() < rects[b].left(); });
    std::vector<bool> overlaps(rects.size());
    for (size_t i = 0; i < byLeft.size(); ++i) {
        const QRectF& rect = rects[byLeft[i]];
        for (size_t k = i + 1; k < byLeft.size() && rects[byLeft[k]].left() < rect.right(); ++k)
            if (Overlap(rect, rects[byLeft[k]]))
                overlaps[byLeft[i]] = overlaps[byLeft[k]] = true;
    }
    std::vector<size_t> found;
    for (size_t i = 0; i < overlaps.size(); ++i)
        if (overlaps[i])
            found.push_back(i);
    return found;
}

} // namespace shapedocument
