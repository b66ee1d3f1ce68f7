#include "machine/BedCheck.h"

#include "machine/Contour.h"
#include "machine/EngraveRow.h"
#include "machine/GcodeTime.h"
#include "machine/MachineWork.h"

namespace shapedocument {

namespace {

constexpr double kOnEdge = 0.001; // mm: above the rounding of G-code and the distance of chords from their arcs

class BedCheck
{
public:
    BedCheck(const QRectF& bed, double overscan) : m_bed(bed), m_overscan(overscan) {}

    void Add(const EngraveRow& row)
    {
        if (row.shape != m_shape)
            EndShape();
        m_shape = row.shape;
        Look({row.spans.front().begin - m_overscan, row.y});
        Look({row.spans.back().end + m_overscan, row.y});
    }

    void Add(const std::vector<JobPoint>& run)
    {
        for (const QPointF& point : ChordPoints(run))
            Look(point);
        EndShape();
    }

    void EndShape()
    {
        if (m_farthest.size > kOnEdge)
            m_found.Add(m_farthest);
        m_farthest = {};
    }

    Findings Extract() { return std::move(m_found); }

private:
    void Look(QPointF point)
    {
        const double outside = std::max(
            {m_bed.left() - point.x(), m_bed.top() - point.y(), point.x() - m_bed.right(), point.y() - m_bed.bottom()});
        if (outside > m_farthest.size)
            m_farthest = {point, outside, {}};
    }

    QRectF m_bed;
    double m_overscan;
    size_t m_shape = 0; ///< being engraved
    Finding m_farthest; ///< of the path or shape being checked
    Findings m_found;
};

} // namespace

QRectF BedInDocument(const QRectF& bed, const MachineWork& work, const GcodeOptions& options)
{
    if (options.yDown)
        return bed;
    return {bed.left(), GcodeOrigin(work, options).y() - bed.bottom(), bed.width(), bed.height()};
}

Findings FindOutsideBed(const QRectF& bed, const MachineWork& work, const GcodeOptions& options)
{
    const QRectF place = BedInDocument(bed, work, options);
    const double overscan = work.EngravedShapes() > 0 ? options.overscan : 0;
    if (place.contains(work.Rect().adjusted(-overscan, 0, overscan, 0)))
        return {};
    BedCheck check(place, overscan);
    work.ForEachRow([&check](const EngraveRow& row) { check.Add(row); });
    check.EndShape();
    JobReader reader(work.job);
    while (reader.NextPath())
        check.Add(reader.Run());
    return check.Extract();
}

} // namespace shapedocument
