/// Closing, fill marker and hit test of the vector shape.
#include "geometry/Geometry.h"
#include "geometry/PointRuns.h"
#include "geometry/Tolerances.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <typeinfo>
#include <utility>

using namespace shapes;

namespace {

constexpr double kHitFlatness = 0.01; ///< argument of Flatten, which ignores it; classes derived by a host may not
constexpr double kThin = 1;           ///< an outline's rectangle up to this size is widened before the test

} // namespace

bool CShapeVector::IsClose()
{
    if (m_listPoints.size() < 3)
        return false;
    for (const PointRun run : PointRuns(m_listTypes, m_listPoints.size()))
        if (!run.IsEmpty() && !SamePoint(m_listPoints[run.end - 1], m_listPoints[run.begin]))
            return false;
    return true;
}

bool CShapeVector::Close(double tolerance, bool bFill)
{
    if (m_listPoints.size() < 3)
        return true;
    const OuterRuns runs = FindOuterRuns(m_listTypes, m_listPoints.size());
    if (runs.last.IsEmpty())
        return true;
    // The marker copies the start of the run that it is appended to: with the start of another run, the line that
    // ProcessFilledShape makes of the marker would cross the drawing.
    const QPointF start = m_listPoints[bFill ? runs.last.begin : runs.first.begin];
    const QPointF end = m_listPoints[runs.last.end - 1];
    if (start == end)
        return true;
    const bool near = std::abs(start.x() - end.x()) <= tolerance && std::abs(start.y() - end.y()) <= tolerance;
    if (bFill || near) {
        m_listTypes.resize(m_listPoints.size(), ELINE_SEGMENT_STRAIGHT);
        const auto behind = static_cast<std::ptrdiff_t>(runs.last.end);
        m_listPoints.insert(m_listPoints.begin() + behind, start);
        m_listTypes.insert(m_listTypes.begin() + behind, bFill ? ELINE_SEGMENT_FILL : ELINE_SEGMENT_STRAIGHT);
        m_eVectorType = EVECTOR_MIXED;
    }
    DeletePath(this);
    return true;
}

bool CShapeVector::IsFilled()
{
    const auto marker = std::find(m_listTypes.begin(), m_listTypes.end(), ELINE_SEGMENT_FILL);
    if (marker == m_listTypes.end())
        return false;
    m_outlineNotes.fillMarker = static_cast<int>(marker - m_listTypes.begin());
    return true;
}

void CShapeVector::ProcessFilledShape()
{
    std::replace(m_listTypes.begin(), m_listTypes.end(), static_cast<unsigned char>(ELINE_SEGMENT_FILL),
                 static_cast<unsigned char>(ELINE_SEGMENT_STRAIGHT));
}

void CShapeVector::RestoreFilledShape()
{
    const int marker = std::exchange(m_outlineNotes.fillMarker, -1);
    if (marker < 0 || static_cast<size_t>(marker) >= m_listPoints.size())
        return;
    m_listPoints.erase(m_listPoints.begin() + marker);
    if (static_cast<size_t>(marker) < m_listTypes.size())
        m_listTypes.erase(m_listTypes.begin() + marker);
}

/// The type is read after GetRect, which may turn a polyline into EVECTOR_MIXED. That type is widened too, because a
/// fitted straight line must still be hit.
bool CShapeVector::IsInHitRect(QPointF p, double reach)
{
    QRectF rect = GetRect(false);
    const bool narrow = rect.width() <= kThin, flat = rect.height() <= kThin;
    if (!narrow && !flat &&
        (p.x() < rect.left() || p.x() > rect.right() || p.y() < rect.top() || p.y() > rect.bottom()))
        return false; // the most frequent case, decided without a call
    if ((narrow || flat) && (m_eVectorType == EVECTOR_POLYLINE || m_eVectorType == EVECTOR_MIXED))
        rect.adjust(narrow ? -reach : 0, flat ? -reach : 0, narrow ? reach : 0, flat ? reach : 0);
    return rect.contains(p);
}

bool CShapeVector::Hit(QPointF p, int& tolerance)
{
    const double reach = tolerance;
    if (!IsInHitRect(p, reach))
        return false;
    if (typeid(*this) == typeid(CShapeVector))
        RenewMicroLines(); // Flatten would also make lines that are not needed here
    else
        Flatten(kHitFlatness);
    return reach > kFarAway || std::any_of(m_listPathData.begin(), m_listPathData.end(), [&](const auto& piece) {
               return IsNearSegment(p, piece.ptStart, piece.ptEnd, reach);
           });
}
