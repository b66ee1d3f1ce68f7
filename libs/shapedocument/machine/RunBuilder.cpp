#include "machine/RunBuilder.h"

#include "machine/ArcFitting.h"
#include "machine/PointThinning.h"
#include "machine/RunPart.h"

#include "geometry/Tolerances.h"

#include <algorithm>
#include <cmath>

namespace shapedocument {

namespace {

/// mm between a curve and the chords of its dense points, where lines end at these
constexpr double kSampling = 0.0001;
constexpr double kArcSampling = 0.0003; ///< mm, where arcs end at them, which are much longer
constexpr double kDigitError = 0.0001;  ///< mm of error from the digits of an output
constexpr double kLineThinning = kOutlineTolerance - kDigitError;
constexpr double kCurveThinning = kLineThinning - kSampling;
/// mm from the dense points; the distance between an arc and their chords takes the rest
constexpr double kArcTolerance = 0.0045;
constexpr double kCornerCosine = 0.866; ///< a turn of an outline by more than 30 degrees is a corner
/// mm: both legs of a corner are at least this long; shorter ones occur in unsteady lines
constexpr double kCornerLeg = 0.2;
constexpr double kMostSamples = 65536; ///< of a cubic: enough for one a kilometre long

bool IsCorner(QPointF before, QPointF behind)
{
    return QPointF::dotProduct(before, behind) < kCornerCosine * Length(before) * Length(behind);
}

bool IsZero(QPointF way)
{
    return way.x() == 0 && way.y() == 0;
}

/// The first of the vectors that has a length.
QPointF FirstWay(QPointF a, QPointF b, QPointF c)
{
    if (!IsZero(a))
        return a;
    return IsZero(b) ? c : b;
}

/// Number of equal parts of the parameter whose chords stay within sampling (mm) of the cubic: a chord over the part h
/// of a cubic lies within h^2 / 8 of its largest second derivative, which is at most 6 times the largest second
/// difference of the controls.
int SampleCount(QPointF p0, QPointF p1, QPointF p2, QPointF p3, double sampling)
{
    const double bend = std::max(Length(p0 - 2 * p1 + p2), Length(p1 - 2 * p2 + p3));
    return static_cast<int>(std::clamp(std::ceil(std::sqrt(0.75 * bend / sampling)), 1.0, kMostSamples));
}

} // namespace

void RunBuilder::Begin(QPointF start)
{
    m_current = m_farthest = start;
    m_length = 0;
    m_curves = false;
    m_exact = true;
    m_section.assign(1, start);
    m_points.assign(1, {start, 0});
}

void RunBuilder::LineTo(QPointF end)
{
    const QPointF way = end - m_current;
    if (IsZero(way))
        return;
    BeginPiece(Piece::Line, way, Length(way));
    m_section.push_back(end);
    m_direction = way;
    m_current = end;
}

void RunBuilder::CurveTo(QPointF control1, QPointF control2, QPointF end)
{
    const QPointF start = m_current;
    const QPointF direction = FirstWay(control1 - start, control2 - start, end - start);
    if (IsZero(direction) && IsZero(end - start))
        return;
    BeginPiece(Piece::Curve, direction,
               Length(control1 - start) + Length(control2 - control1) + Length(end - control2));
    AppendSamples(control1, control2, end);
    m_direction = FirstWay(end - control2, end - control1, end - start);
    m_current = end;
}

/// Ends the section at a corner before the piece, and with arcs also at a change between lines and curves.
void RunBuilder::BeginPiece(Piece piece, QPointF direction, double length)
{
    const bool corner = m_length >= kCornerLeg && length >= kCornerLeg && IsCorner(m_direction, direction);
    if (corner || (m_arcs && piece != m_piece))
        EndSection();
    m_piece = piece;
    m_curves = m_curves || piece == Piece::Curve;
    m_length = length;
}

void RunBuilder::AppendSamples(QPointF control1, QPointF control2, QPointF end)
{
    const QPointF start = m_current;
    const QPointF c1 = 3 * (control1 - start), c2 = 3 * (start - 2 * control1 + control2);
    const QPointF c3 = end - start - 3 * (control2 - control1);
    const int count = SampleCount(start, control1, control2, end, m_arcs ? kArcSampling : kSampling);
    for (int i = 1; i < count; ++i) {
        const double t = static_cast<double>(i) / count;
        m_section.push_back(start + t * (c1 + t * (c2 + t * c3)));
    }
    m_section.push_back(end);
}

void RunBuilder::EndSection()
{
    const size_t known = m_points.size();
    for (const QPointF& point : m_section) {
        if (Length(point - m_points.front().point) > Length(m_farthest - m_points.front().point))
            m_farthest = point;
    }
    if (m_arcs && m_piece == Piece::Curve) {
        AppendArcs(m_section, kArcTolerance, m_points);
    } else {
        m_thinned.clear();
        AppendThinned(m_section, m_curves ? kCurveThinning : kLineThinning, m_thinned);
        for (const QPointF& point : m_thinned)
            m_points.push_back({point, 0});
    }
    m_exact = m_exact && !m_curves && m_points.size() - known == m_section.size() - 1;
    m_section.assign(1, m_section.back());
    m_curves = false;
}

const std::vector<JobPoint>& RunBuilder::End()
{
    EndSection();
    if (shapes::SamePoint(m_points.front().point, m_points.back().point))
        m_points.back().point = m_points.front().point;
    KeepSomeLength();
    return m_points;
}

/// A run that thinning has made a point becomes a line to its farthest point and back, so that it is not lost.
void RunBuilder::KeepSomeLength()
{
    const QPointF start = m_points.front().point, end = m_points.back().point;
    const bool some = std::any_of(m_points.begin(), m_points.end(),
                                  [&](const JobPoint& point) { return !IsZero(point.point - start); });
    if (some)
        return;
    m_points.clear();
    if (!IsZero(m_farthest - start))
        m_points = {{start, 0}, {m_farthest, 0}, {end, 0}};
}

} // namespace shapedocument
