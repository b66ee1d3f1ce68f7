/// Outline of the text shape: the layout put in its place, pending mirrors, and what is asked of the outline.
#include "geometry/Geometry.h"
#include "geometry/PathFlattening.h"
#include "geometry/PlaneTransforms.h"
#include "geometry/QtArithmetic.h"
#include "geometry/Tolerances.h"
#include "host/ILog.h"
#include "text/OutlineHit.h"
#include "text/ShapeText.h"
#include "text/TextLayout.h"

#include <cmath>
#include <exception>
#include <numbers>
#include <typeinfo>

using namespace shapes;

namespace {

constexpr double kMagnification = 1000;         ///< of the flattening into micro lines
constexpr size_t kMostPoints = size_t{8} << 20; ///< of all micro lines; a full buffer of letters 20 high has 7 million
constexpr double kDegreesPerRadian = 180 / std::numbers::pi;

/// Reflection across the line from a to b; across the horizontal through a when the two coincide.
QTransform MirrorAtLine(QPointF a, QPointF b)
{
    const double angle = std::atan2(b.y() - a.y(), b.x() - a.x()) * kDegreesPerRadian;
    QTransform mirror;
    mirror.translate(a.x(), a.y());
    mirror.rotate(angle);
    mirror.scale(1, -1);
    mirror.rotate(-angle);
    mirror.translate(-a.x(), -a.y());
    return mirror;
}

} // namespace

void CShapeText::UpdatePainterPath()
{
    TextToPath();
}

void CShapeText::TextToPath()
{
    PlaceOutline();
    // Each mirror rebuilds the outline, so that the second starts from the result of the first.
    if (m_text.bMirrorAttach && !GetPathTmp())
        MirrorAttachLine();
    if (m_text.bMirrorLine && !GetPathTmp())
        MirrorFixedOrMovingLine();
    ExitPathTmp();
}

void CShapeText::PlaceOutline()
{
    *EnsurePath() = TextLayout(m_text).Outline();
    if (m_text.bMirrorX)
        MirrorX();
    if (m_text.bMirrorY)
        MirrorY();
    MirrorPoints();
    QPainterPath& outline = *EnsurePath();
    if (outline.isEmpty()) { // Nothing to draw, but the text's place is kept.
        outline.moveTo(m_text.ptCenter);
        return;
    }
    outline = QTransform::fromScale(m_text.dScaleX, m_text.dScaleX).map(outline); // dScaleY is not used.
    outline.translate(m_text.ptCenter - outline.boundingRect().center());
    outline = RotationAbout(m_text.ptCenter, m_text.dAngle).map(outline);
}

void CShapeText::MirrorX()
{
    QPainterPath& outline = *EnsurePath();
    outline = MirrorAtX(outline.boundingRect().center().x()).map(outline);
}

void CShapeText::MirrorY()
{
    QPainterPath& outline = *EnsurePath();
    outline = MirrorAtY(outline.boundingRect().center().y()).map(outline);
}

/// Mirrors the record's points as the outline is mirrored, about the outline's centre: once per change of a flag, not
/// per rebuild, so that a text that is saved again has the same record.
void CShapeText::MirrorPoints()
{
    const QPointF middle = EnsurePath()->boundingRect().center();
    if (HasMirrorX() != m_outlineNotes.mirroredX)
        shapes::MapPoints(m_listPoints, MirrorAtX(middle.x()));
    if (HasMirrorY() != m_outlineNotes.mirroredY)
        shapes::MapPoints(m_listPoints, MirrorAtY(middle.y()));
    NotePointsAsDrawn();
}

/// Notes which mirrors the points have undergone. Points that are set later count as not mirrored (ForgetOutline).
void CShapeText::NotePointsAsDrawn()
{
    m_outlineNotes.mirroredX = HasMirrorX() && !m_listPoints.empty();
    m_outlineNotes.mirroredY = HasMirrorY() && !m_listPoints.empty();
}

/// Whether the next rebuild will mirror the points.
bool CShapeText::ArePointsBehind() const
{
    return !m_listPoints.empty() &&
           (HasMirrorX() != m_outlineNotes.mirroredX || HasMirrorY() != m_outlineNotes.mirroredY);
}

void CShapeText::MirrorAttachLine()
{
    m_text.bMirrorAttach = 0;
    if (!MoveCentreAcross(bAttachLineFlag ? MirrorAtX(dAttachLine) : MirrorAtY(dAttachLine)))
        return;
    TurnAcrossAttachLine();
    UpdatePainterPath();
}

void CShapeText::MirrorFixedOrMovingLine()
{
    m_text.bMirrorLine = 0;
    if (!MoveCentreAcross(MirrorAtLine(m_mirrorAxis.p1(), m_mirrorAxis.p2())))
        return;
    TurnAcrossFreeLine();
    UpdatePainterPath();
}

/// Makes the mirrored outline the temporary path and its centre the text's centre. False, and nothing done, when that
/// centre is not finite.
bool CShapeText::MoveCentreAcross(const QTransform& mirror)
{
    auto mirrored = std::make_unique<QPainterPath>(mirror.map(*GetPath(false)));
    const QPointF centre = mirrored->boundingRect().center();
    if (!IsFinite(centre))
        return false;
    m_text.ptCenter = centre;
    SetPathTmp(std::move(mirrored));
    return true;
}

void CShapeText::TurnAcrossAttachLine()
{
    uint8_t& flag = bAttachLineFlag ? m_text.bMirrorX : m_text.bMirrorY;
    flag = !flag;
    m_text.dAngle = -m_text.dAngle;
}

/// The slope keeps its sign whichever way the line runs: existing documents depend on these angles.
void CShapeText::TurnAcrossFreeLine()
{
    const QPointF from = ptMirrorLine1;
    const QPointF to = ptMirrorLine2;
    const double old = m_text.dAngle;
    if (from.x() == to.x()) {
        m_text.bMirrorX = !m_text.bMirrorX;
        m_text.dAngle = -old;
        return;
    }
    const double slope = std::atan((to.y() - from.y()) / (to.x() - from.x())) * kDegreesPerRadian;
    if (from.y() <= to.y()) {
        m_text.bMirrorY = !m_text.bMirrorY;
        m_text.dAngle = (from.x() <= to.x() ? 2 * slope : -2 * slope) - old;
    } else {
        m_text.bMirrorX = !m_text.bMirrorX;
        m_text.dAngle = (to.x() <= from.x() ? 2 * slope - 180 : 180 - 2 * slope) - old;
    }
}

std::vector<SHAPE_VECTOR_PATHDATA> CShapeText::GenTextMicroLine()
{
    return MicroLines(MagnifiedPolygons(*GetPath(false), kMagnification, Joining::KeepSubpaths, FlatteningForPlatform(),
                                        kMostPoints));
}

std::vector<QLineF> CShapeText::Flatten(double tolerance)
{
    try {
        m_listPathData = GenTextMicroLine();
        return CShape::Flatten(tolerance);
    } catch (const std::exception& error) { // Too many lines, or no memory: no exception may reach the host.
        m_listPathData = {};
        ILog_WriteLogF(ELOG_FAILURE, "no micro lines of a text: %s", error.what());
        return {};
    }
}

/// Looks only at the parts of the outline near p: making all micro lines of a text would take far too long.
bool CShapeText::Hit(QPointF p, int& tolerance)
{
    if (typeid(*this) != typeid(CShapeText))
        return CShapeVector::Hit(p, tolerance); // a host's class: by the lines of its own Flatten
    const double reach = tolerance;
    return IsInHitRect(p, reach) && (reach > kFarAway || IsNearOutline(*GetPath(false), kMagnification, p, reach));
}

bool CShapeText::Contains(QPointF p, double)
{
    return GetRect(false).contains(p);
}

bool CShapeText::Hit(QPoint p, int&)
{
    UpdatePainterPath();
    return GetPath(false)->boundingRect().contains(p);
}
