#include "svg/WholePage.h"

#include "svg/DrawingSource.h"
#include "svg/FarPoints.h"
#include "svg/PagePainter.h"
#include "svg/TextItems.h"

#include <algorithm>
#include <utility>

namespace shapedocument::drawing {

namespace {

constexpr qsizetype kMostTexts = 2000; ///< texts searched on the page; each search passes the elements around it

/// The ids of texts that are painted where they stand, up to kMostTexts; other texts get an empty id and count as
/// outlines.
QStringList IdsOf(const std::vector<SourceText>& texts, DrawingReport& report)
{
    QStringList ids;
    for (const SourceText& text : texts) {
        const bool known = !text.id.isEmpty() && ids.size() < kMostTexts;
        ids << (known ? text.id : QString());
        report.Add(Departure::TextReferred, !known);
    }
    return ids;
}

/// Whether two intervals overlap by at least the rounding of the overview's grid, or by the whole of the first.
bool OverlapsBeyondRounding(double from, double to, double otherFrom, double otherTo)
{
    constexpr double kOverviewRounding = 0.15; // mm
    return std::min(to, otherTo) - std::max(from, otherFrom) >= std::min(to - from, kOverviewRounding);
}

/// False for an item that only touches its clip: rounding decides whether that is painted.
bool IsSurelyPainted(const PaintedItem& item)
{
    const QRectF box = item.path.controlPointRect();
    for (const ClipArea* clip = item.clip.get(); clip; clip = clip->outer.get()) {
        const QRectF around = clip->area.controlPointRect();
        if (!OverlapsBeyondRounding(box.left(), box.right(), around.left(), around.right()) ||
            !OverlapsBeyondRounding(box.top(), box.bottom(), around.top(), around.bottom()))
            return false;
    }
    return true;
}

class WholePage
{
public:
    WholePage(DrawingImport& result, bool solid, const WorkProgress& progress)
        : m_result(result), m_solid(solid), m_progress(progress)
    {}

    std::vector<PaintedItem> Items(DrawingSource& source)
    {
        const QByteArray again = qCompress(source.svg, 1);
        const QStringList texts = IdsOf(source.texts, m_result.report);
        const bool surelyNear = source.reach * kMmPerUnit < kPageReach;
        PaintTask task = TaskOf(std::move(source.svg), texts);
        if (!surelyNear)
            LookOver(task);
        std::vector<PaintedItem> items = Paint(std::move(task));
        if (surelyNear && !m_result.error.isEmpty()) { // a coarser page may hold what this page does not
            m_result.error.clear();
            task = TaskOf(qUncompress(again), texts);
            LookOver(task);
            items = Paint(std::move(task));
        }
        if (!m_refused && items.size() < m_expected)
            PaintCoarsely(qUncompress(again), texts, items);
        m_result.report.Add(Departure::TextOfRuns, m_outlined);
        return items;
    }

private:
    static PaintTask TaskOf(QByteArray svg, const QStringList& texts)
    {
        PaintTask task;
        task.svg = std::move(svg);
        task.texts = texts;
        return task;
    }

    /// Makes the task paint a coarse overview first, to see what the page must hold, and whether it can.
    void LookOver(PaintTask& task)
    {
        task.overviewItem = [this](const PaintedItem& item) {
            m_expected += IsSurelyPainted(item);
            m_refused = m_refused || m_far.AreIn(item);
        };
        task.judge = [this] { return Judge(); };
    }

    /// Paints on the coarse grid and keeps the page with more items.
    void PaintCoarsely(const QByteArray& svg, const QStringList& texts, std::vector<PaintedItem>& items)
    {
        const QString error = std::exchange(m_result.error, {});
        const int outlined = m_outlined;
        PaintTask task = TaskOf(svg, texts);
        task.grid = Grid::Coarse;
        std::vector<PaintedItem> coarse = Paint(std::move(task));
        if (coarse.size() > items.size()) {
            items = std::move(coarse);
            m_result.report.Add(Departure::Coarse);
        } else {
            m_result.error = error;
            m_outlined = outlined;
        }
        if (items.size() < m_expected)
            m_result.report.Add(Departure::Missing, static_cast<int>(m_expected - items.size()));
    }

    QString Judge() const
    {
        return m_refused
                   ? "reaches too far: its page cannot tell points 400 m away, or clips 100 m away, from near ones"
                   : QString();
    }

    std::vector<PaintedItem> Paint(PaintTask task)
    {
        std::vector<PaintedItem> items, texts;
        task.solid = m_solid;
        task.progress = m_progress;
        task.item = [&](PaintedItem& item) { items.push_back(std::move(item)); };
        task.textItem = [&](PaintedItem& item) { texts.push_back(std::move(item)); };
        const PaintResult painted = PaintDrawing(std::move(task));
        m_result.error = painted.error;
        m_result.page = painted.page;
        if (!painted.error.isEmpty())
            return {};
        m_outlined = MarkTexts(items, texts);
        return items;
    }

    DrawingImport& m_result;
    bool m_solid;
    FarPoints m_far;
    const WorkProgress& m_progress;
    size_t m_expected = 0; ///< number of items on the overview
    int m_outlined = 0;    ///< texts that are not one item of the page
    bool m_refused = false;
};

} // namespace

std::vector<PaintedItem> PaintWhole(DrawingSource& source, bool solid, DrawingImport& result,
                                    const WorkProgress& progress)
{
    return WholePage(result, solid, progress).Items(source);
}

} // namespace shapedocument::drawing
