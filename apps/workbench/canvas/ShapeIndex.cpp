#include "canvas/ShapeIndex.h"

#include "geometry/RectUnion.h"
#include "list/ShapeList.h"
#include "shape/Shape.h"

namespace {

using Entries = std::vector<ShapeIndex::Entry>;

bool IsSame(const ShapeIndex::Entry& a, const ShapeIndex::Entry& b)
{
    return a.shape == b.shape && a.rect == b.rect;
}

/// The rectangle around the entries that differ: compared place by place in lists of equal length, else all entries
/// between the equal start and the equal end.
QRectF Difference(const Entries& before, const Entries& after)
{
    shapes::RectUnion around;
    if (before.size() == after.size()) {
        for (size_t i = 0; i < before.size(); ++i) {
            if (IsSame(before[i], after[i]))
                continue;
            around.Add(before[i].rect);
            around.Add(after[i].rect);
        }
        return around.Result();
    }
    const size_t shorter = std::min(before.size(), after.size());
    size_t head = 0, tail = 0;
    while (head < shorter && IsSame(before[head], after[head]))
        ++head;
    while (tail < shorter - head && IsSame(before[before.size() - 1 - tail], after[after.size() - 1 - tail]))
        ++tail;
    for (const Entries* entries : {&before, &after})
        for (size_t i = head; i + tail < entries->size(); ++i)
            around.Add((*entries)[i].rect);
    return around.Result();
}

} // namespace

QRectF ShapeIndex::Renew(CShapeList& shapes)
{
    Entries entries;
    entries.reserve(shapes.GetCount());
    for (unsigned int i = 0; i < shapes.GetCount(); ++i)
        entries.push_back({shapes.GetShape(i)->GetRect(false), shapes.GetShape(i)});
    const QRectF changed = Difference(m_entries, entries);
    m_entries = std::move(entries);
    return changed;
}
