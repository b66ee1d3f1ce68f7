#include "svg/FarPoints.h"

#include "svg/PagePainter.h"

#include <cmath>

namespace shapedocument::drawing {

namespace {

constexpr double kPeriod = (1LL << 32) / kGridPerMm; ///< mm; points this far apart have equal 32-bit coordinates
constexpr double kNearest = 109'000;                 ///< mm; nearer points keep their places on every page
constexpr double kBeside = 10;                       ///< mm; above the rounding of the overview's coarse grid

template <class IsMisplaced>
bool HasPoint(const QPainterPath& path, IsMisplaced isMisplaced)
{
    for (int i = 0; i < path.elementCount(); ++i)
        if (isMisplaced(path.elementAt(i).x) || isMisplaced(path.elementAt(i).y))
            return true;
    return false;
}

/// Points shown farther than kPageReach do no harm: their paths are left out.
bool LooksNear(double mm)
{
    return std::abs(mm) > kNearest && std::abs(std::remainder(mm, kPeriod)) < kPageReach + kBeside;
}

bool MayWrap(double mm)
{
    return !(std::abs(mm) < kNearest);
}

} // namespace

bool FarPoints::AreIn(const PaintedItem& item)
{
    if (HasPoint(item.path, LooksNear))
        return true;
    // A picture's own clip is the area that it is painted on: the page.
    const std::shared_ptr<const ClipArea> first = item.picture.isEmpty() ? item.clip
                                                  : item.clip            ? item.clip->outer
                                                                         : nullptr;
    for (const ClipArea* clip = first == m_last ? nullptr : first.get(); clip; clip = clip->outer.get())
        if (HasPoint(clip->area, MayWrap))
            return true;
    m_last = first;
    return false;
}

} // namespace shapedocument::drawing
