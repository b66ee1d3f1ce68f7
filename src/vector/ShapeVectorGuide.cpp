/// Lead-in and lead-out lines of the vector shape.
#include "geometry/Geometry.h"
#include "geometry/PointRuns.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <span>

using namespace shapes;

namespace {

/// The length of an active lead; nothing for an inactive one.
std::optional<double> LeadLength(int32_t enabled, double length)
{
    return enabled != 0 && length > 0 && std::isfinite(length) ? std::optional(length) : std::nullopt;
}

using Points = std::span<const QPointF>;

/// The first point of a run that differs from its start; the last that differs from the reference. Null when all are
/// equal.
const QPointF* NextAfterStart(Points points)
{
    const auto found = std::find_if(points.begin() + 1, points.end(), [&](QPointF p) { return p != points.front(); });
    return found == points.end() ? nullptr : &*found;
}

const QPointF* LastBefore(Points points, QPointF reference)
{
    const auto found = std::find_if(points.rbegin(), points.rend(), [&](QPointF p) { return p != reference; });
    return found == points.rend() ? nullptr : &*found;
}

bool OpenLeads(Points first, Points last, std::optional<double> in, std::optional<double> out, QPointF* lines)
{
    const QPointF start = first.front(), end = last.back();
    lines[0] = lines[1] = start;
    lines[2] = lines[3] = end;
    if (in) {
        const QPointF* next = NextAfterStart(first);
        if (!next || !ExtendBeyond(*next, start, PointDistance(start, *next) + *in, lines[0]))
            return false;
    }
    if (out)
        if (const QPointF* before = LastBefore(last, end))
            ExtendBeyond(*before, end, PointDistance(end, *before) + *out, lines[3]);
    return true;
}

QPointF Unit(QPointF vector)
{
    const double length = PointDistance({}, vector);
    return length > 0 ? vector / length : QPointF();
}

/// Bisector of the corner at the start point; perpendicular to the outline where that runs straight through the start.
QPointF CornerDirection(QPointF start, QPointF next, QPointF before)
{
    const QPointF toNext = Unit(next - start), toBefore = Unit(before - start);
    if (static_cast<float>(QPointF::dotProduct(toNext, toBefore)) == -1.0f)
        return {-toBefore.y(), toBefore.x()};
    return Unit(toNext + toBefore);
}

bool ClosedLeads(Points points, std::optional<double> in, std::optional<double> out, QPointF* lines)
{
    if (points.size() <= 2)
        return false;
    const QPointF start = points.front();
    const QPointF* next = NextAfterStart(points);
    const QPointF* before = LastBefore(points, start);
    if (!next || !before)
        return false;
    const QPointF direction = CornerDirection(start, *next, *before);
    lines[0] = start + direction * in.value_or(0);
    lines[1] = lines[2] = start;
    lines[3] = start + direction * out.value_or(0);
    return true;
}

} // namespace

bool CShapeVector::GetGuideLinePoints(QPointF* out)
{
    if (!m_listTypes.empty() && m_listTypes.front() == ELINE_SEGMENT_SEPARATOR) {
        m_listTypes.erase(m_listTypes.begin());
        if (!m_listPoints.empty())
            m_listPoints.erase(m_listPoints.begin());
        if (m_outlineNotes.fillMarker > 0)
            --m_outlineNotes.fillMarker;
    }
    const OuterRuns runs = FindOuterRuns(m_listTypes, m_listPoints.size());
    if (!out || runs.last.end - runs.first.begin < 2)
        return false;
    const auto leadIn = LeadLength(m_guideLine.bInLine, m_guideLine.dInLength);
    const auto leadOut = LeadLength(m_guideLine.bOutLine, m_guideLine.dOutLength);
    if (!leadIn && !leadOut)
        return false;
    const auto points = [this](PointRun run) { return Points(m_listPoints).subspan(run.begin, run.end - run.begin); };
    const bool open = !IsClose() || m_guideLine.nMode == 1;
    return open ? OpenLeads(points(runs.first), points(runs.last), leadIn, leadOut, out)
                : ClosedLeads(points(runs.first), leadIn, leadOut, out);
}
