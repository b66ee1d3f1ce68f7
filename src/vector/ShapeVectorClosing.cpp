/// Closing, fill marker and hit test of the vector shape.
#include "shape/PointRuns.h"
#include "shape/Tolerances.h"
#include "vector/Geometry.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <typeinfo>

using namespace shapes;

namespace {

constexpr double kHitFlatness = 0.01; ///< handed to Flatten by the hit test
constexpr double kThin = 1;           ///< a polyline's rectangle up to this size is widened before the test

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
    const QPointF start = m_listPoints[FirstPointIndex()], end = m_listPoints.back();
    if (start == end)
        return true;
    const bool near = std::abs(start.x() - end.x()) <= tolerance && std::abs(start.y() - end.y()) <= tolerance;
    if (bFill || near) {
        m_listTypes.resize(m_listPoints.size(), ELINE_SEGMENT_STRAIGHT);
        m_listPoints.push_back(start);
        m_listTypes.push_back(bFill ? ELINE_SEGMENT_FILL : ELINE_SEGMENT_STRAIGHT);
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
    m_nFillMarker = static_cast<int>(marker - m_listTypes.begin());
    return true;
}

void CShapeVector::ProcessFilledShape()
{
    std::replace(m_listTypes.begin(), m_listTypes.end(), static_cast<unsigned char>(ELINE_SEGMENT_FILL),
                 static_cast<unsigned char>(ELINE_SEGMENT_STRAIGHT));
}

void CShapeVector::RestoreFilledShape()
{
    if (m_nFillMarker < 0 || static_cast<size_t>(m_nFillMarker) >= m_listPoints.size())
        return;
    m_listPoints.erase(m_listPoints.begin() + m_nFillMarker);
    if (static_cast<size_t>(m_nFillMarker) < m_listTypes.size())
        m_listTypes.erase(m_listTypes.begin() + m_nFillMarker);
}

/// Whether p lies in the rectangle, widened where a polyline's is thin. The type is looked at last: taking the rectangle
/// may turn a polyline into EVECTOR_MIXED.
bool CShapeVector::IsInHitRect(QPointF p, double reach)
{
    QRectF rect = GetRect(false);
    const bool narrow = rect.width() <= kThin, flat = rect.height() <= kThin;
    if (!narrow && !flat &&
        (p.x() < rect.left() || p.x() > rect.right() || p.y() < rect.top() || p.y() > rect.bottom()))
        return false; // by far the most frequent, and told without a call
    if ((narrow || flat) && m_eVectorType == EVECTOR_POLYLINE)
        rect.adjust(narrow ? -reach : 0, flat ? -reach : 0, narrow ? reach : 0, flat ? reach : 0);
    return rect.contains(p);
}

bool CShapeVector::Hit(QPointF p, int& tolerance)
{
    const double reach = tolerance;
    if (!IsInHitRect(p, reach))
        return false;
    if (typeid(*this) == typeid(CShapeVector))
        RenewMicroLines(); // the lines that Flatten makes of them would not be looked at
    else
        Flatten(kHitFlatness);
    return reach > kFarAway || std::any_of(m_listPathData.begin(), m_listPathData.end(), [&](const auto& piece) {
               return IsNearSegment(p, piece.ptStart, piece.ptEnd, reach);
           });
}
