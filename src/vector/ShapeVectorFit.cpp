/// Curve fitting of the vector shape: polylines when they are rebuilt, free paths for CShapeList::OptimizeShapeList.
#include "geometry/PointRuns.h"
#include "host/Configuration.h"
#include "vector/CurveFit.h"
#include "vector/OutlinePath.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <utility>

using namespace shapes;

namespace {

/// Index of the first fill marker; the number of points when there is none.
size_t FirstMarker(const std::vector<unsigned char>& types, size_t points)
{
    const auto end = types.begin() + static_cast<std::ptrdiff_t>(std::min(types.size(), points));
    const auto marker = std::find(types.begin(), end, ELINE_SEGMENT_FILL);
    return marker == end ? points : static_cast<size_t>(marker - types.begin());
}

/// Whether the last point repeats the start of the last run exactly, as fill markers do.
bool EndsAtLastStart(const std::vector<QPointF>& points, PointRun last)
{
    return !last.IsEmpty() && points.back().x() == points[last.begin].x() &&
           points.back().y() == points[last.begin].y();
}

} // namespace

void CShapeVector::OptimizeShape(std::vector<QPointF>& outPoints, std::vector<unsigned char>& outTypes)
{
    if (!FitOutline(m_listPoints, m_listTypes, outPoints, outTypes, !m_bFitFaultKnown))
        m_bFitFaultKnown = true; // The plug-in is called again at each rebuild; one log line per shape is enough.
}

/// Replaces the outline by the fitted one if that is shorter. Points that a polyline draws as lines become straight
/// points: free paths draw stray curve points as curves and leave out markers.
bool CShapeVector::AdoptOptimizedOutline()
{
    if (m_listPoints.empty() || m_outlineNotes.fitted || !OptimizationEnabled())
        return false;
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    OptimizeShape(points, types);
    if (points.empty() || points.size() >= m_listPoints.size())
        return false;
    TypeAsDrawn(points, types);
    m_listPoints = std::move(points);
    m_listTypes = std::move(types);
    m_outlineNotes.fillMarker = -1;
    m_outlineNotes.fitted = true;
    return true;
}

/// Flattens a free path, fits it and rebuilds its painter path. It keeps its points unless fitting makes it shorter,
/// for each fit adds a deviation. An outline with curves is not fitted: it may have been fitted, saved and read, and a
/// fit after each reading would let deviations add up. A fill marker is not part of the painter path: one at the end is
/// put back as a copy of the new start of its run; an outline with markers elsewhere is left as it is.
void CShapeVector::RefitMixedOutline()
{
    const bool canFit =
        IsCurveFitAvailable(); // May show a message box, during which the host may change the shape: asked first.
    const size_t marker = FirstMarker(m_listTypes, m_listPoints.size());
    const bool curved = std::find(m_listTypes.begin(), m_listTypes.end(), ELINE_SEGMENT_CURVE) != m_listTypes.end();
    if (m_outlineNotes.fitted || marker + 1 < m_listPoints.size() || (curved && canFit)) {
        GetPath(true);
        return;
    }
    const bool marked = marker < m_listPoints.size();
    const std::vector<QPointF> points = m_listPoints;
    const std::vector<unsigned char> types = m_listTypes;
    const OutlineNotes notes = m_outlineNotes;
    SetPath(GetPath(false));
    GetPath(true);
    const bool replaced = m_outlineNotes.fitted || m_eVectorType != EVECTOR_MIXED;
    if (marked && replaced) {
        const PointRun last = FindOuterRuns(m_listTypes, m_listPoints.size()).last;
        const bool closes = EndsAtLastStart(points, FindOuterRuns(types, points.size()).last);
        m_listPoints.push_back(closes && !last.IsEmpty() ? m_listPoints[last.begin] : points.back());
        m_listTypes.push_back(ELINE_SEGMENT_FILL);
        m_eVectorType = EVECTOR_MIXED;
    }
    const bool shorter = m_outlineNotes.fitted && m_listPoints.size() < points.size();
    if (shorter || !canFit)
        return;
    m_listPoints = points;
    m_listTypes = types;
    m_outlineNotes = notes;
    m_eVectorType = EVECTOR_MIXED;
    GetPath(true);
}

/// Sets the vector type to EVECTOR_POLYLINE. Chains and sets of cubics are laid out anew first, so that a rebuild still
/// draws their curves: their point types need not mark them.
void CShapeVector::MarkAsPolyline()
{
    if (m_eVectorType == EVECTOR_BEZIER_CHAIN || m_eVectorType == EVECTOR_BEZIER_SET)
        LayOutCubics();
    m_eVectorType = EVECTOR_POLYLINE;
}

/// Marks the drawn cubics of a chain or set as curve triples, each start behind a separator. Points that belong to none
/// of them become a run of straight points of their own, so that they are not lost.
void CShapeVector::LayOutCubics()
{
    const bool chain = m_eVectorType == EVECTOR_BEZIER_CHAIN;
    const size_t count = m_listPoints.size();
    const size_t drawn = chain ? count - (count + 2) % 3 : count % 4 == 0 ? count : count > 4 ? 4 : 0;
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    for (size_t i = 0; i < count; ++i) {
        const bool starts = i == 0 || i == drawn || (!chain && i < drawn && i % 4 == 0);
        if (starts) {
            points.emplace_back(0, 0);
            types.push_back(ELINE_SEGMENT_SEPARATOR);
        }
        points.push_back(m_listPoints[i]);
        types.push_back(starts || i > drawn ? ELINE_SEGMENT_STRAIGHT : ELINE_SEGMENT_CURVE);
    }
    ForgetOutline();
    m_listPoints = std::move(points);
    m_listTypes = std::move(types);
}
