#include "document/Arrangement.h"

#include "list/ShapeList.h"
#include "shape/Shape.h"

#include <algorithm>

namespace shapedocument {

namespace {

struct Placed
{
    CShape* shape;
    QRectF rect; ///< mm
};

std::vector<Placed> PlacesOf(CShapeList& shapes)
{
    std::vector<Placed> places;
    for (unsigned int i = 0; i < shapes.GetCount(); ++i)
        if (CShape* shape = shapes.GetShape(i))
            places.push_back({shape, shape->GetRect(false)});
    return places;
}

QPointF WayTo(Alignment alignment, const QRectF& from, const QRectF& all)
{
    switch (alignment) {
    case Alignment::Left:
        return {all.left() - from.left(), 0};
    case Alignment::Center:
        return {all.center().x() - from.center().x(), 0};
    case Alignment::Right:
        return {all.right() - from.right(), 0};
    case Alignment::Top:
        return {0, all.top() - from.top()};
    case Alignment::Middle:
        return {0, all.center().y() - from.center().y()};
    case Alignment::Bottom:
        return {0, all.bottom() - from.bottom()};
    }
    return {};
}

bool Move(CShape& shape, QPointF way)
{
    constexpr double kNothing = 1e-9; // mm
    return way.manhattanLength() > kNothing && shape.Offset(way.x(), way.y());
}

} // namespace

bool AlignShapes(CShapeList& shapes, Alignment alignment)
{
    const QRectF all = shapes.GetRect(false);
    bool moved = false;
    for (const Placed& placed : PlacesOf(shapes))
        moved |= Move(*placed.shape, WayTo(alignment, placed.rect, all));
    return moved;
}

bool DistributeShapes(CShapeList& shapes, bool downwards)
{
    constexpr size_t kFewest = 3;
    std::vector<Placed> places = PlacesOf(shapes);
    if (places.size() < kFewest)
        return false;
    const auto begin = [downwards](const Placed& p) { return downwards ? p.rect.top() : p.rect.left(); };
    const auto length = [downwards](const Placed& p) { return downwards ? p.rect.height() : p.rect.width(); };
    std::ranges::stable_sort(places, {}, [&](const Placed& p) { return begin(p) + length(p) / 2; });
    double free = begin(places.back()) + length(places.back()) - begin(places.front());
    for (const Placed& placed : places)
        free -= length(placed);
    const double gap = free / static_cast<double>(places.size() - 1);
    double next = begin(places.front());
    bool moved = false;
    for (const Placed& placed : places) {
        const double way = next - begin(placed);
        moved |= Move(*placed.shape, downwards ? QPointF(0, way) : QPointF(way, 0));
        next += length(placed) + gap;
    }
    return moved;
}

} // namespace shapedocument
