#include "svg/CoveredParts.h"

#include "svg/ClipCut.h"
#include "svg/PaintedItems.h"

#include <algorithm>
#include <memory>

namespace shapedocument::drawing {

namespace {

// Budget in pairs of an element of a path and one of a cover; using all of it takes some ten seconds.
constexpr double kMostCovers = 3e8;
constexpr double kPairsOfAnyCut = 500;
constexpr double kPairsOfALook = 0.02; // comparing two rectangles

struct Cover
{
    QPainterPath area;
    QRectF rect;                          ///< of its control points
    std::unique_ptr<const ClipEdge> edge; ///< made when first needed
};

class CoverStack
{
public:
    explicit CoverStack(WorkWatch& watch) : m_watch(watch) {}

    /// To be called from the topmost item down. Throws Stopped.
    void CutAndAdd(PaintedItem& item)
    {
        if (item.path.isEmpty())
            return;
        Cover whole{item.path, item.path.controlPointRect(), nullptr};
        bool isKnown = false, isCut = true;
        for (Cover& cover : m_covers) {
            if (item.path.isEmpty())
                break;
            m_watch.Ask();
            if (IsSame(cover, whole))
                isKnown = true; // its outline runs along the cover's edge
            else if (!CutOne(item.path, cover))
                isCut = false;
            if (m_pairs <= 0)
                break;
        }
        m_kept += !isCut;
        // An item that is covered as a whole hides nothing more.
        if (m_pairs > 0 && item.opaque && item.filled && !isKnown && !item.path.isEmpty())
            m_covers.push_back(std::move(whole));
    }

    size_t KeptItems() const { return m_kept; }

private:
    static bool IsSame(const Cover& a, const Cover& b) { return a.rect == b.rect && a.area == b.area; }

    bool CutOne(QPainterPath& path, Cover& cover)
    {
        m_pairs -= kPairsOfALook;
        if (AreApart(path.controlPointRect(), cover.rect))
            return m_pairs > 0;
        m_pairs -= kPairsOfAnyCut + double(path.elementCount()) * cover.area.elementCount();
        if (m_pairs <= 0)
            return false;
        if (!cover.edge)
            cover.edge = std::make_unique<const ClipEdge>(cover.area);
        return CutAway(path, *cover.edge);
    }

    WorkWatch& m_watch;
    std::vector<Cover> m_covers;
    double m_pairs = kMostCovers;
    size_t m_kept = 0;
};

} // namespace

size_t CutAwayCovered(std::vector<PaintedItem>& items, const WorkProgress& progress)
{
    WorkWatch watch(progress, WorkStep::Cutting, items.size());
    CoverStack covers(watch);
    for (auto item = items.rbegin(); item != items.rend(); ++item) {
        covers.CutAndAdd(*item);
        watch.Next();
    }
    return covers.KeptItems();
}

} // namespace shapedocument::drawing
