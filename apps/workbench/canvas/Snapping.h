/// Snapping: snaps drawn and dragged shapes to nodes, edges and middles of other shapes, and to the grid.
#pragma once

#include "document/SnapLines.h"

#include <QPointF>

#include <optional>
#include <span>

class CanvasView;
class QPainter;

/// For the canvas's tools. Snaps to what is nearer than a few pixels, unless Ctrl is held.
class Snapping
{
public:
    /// The view must outlive it.
    explicit Snapping(CanvasView& view) : m_view(view) {}

    void SetOn(bool on);

    /// Whether to snap to selected shapes, or these are dragged.
    enum class Selected
    {
        Pulls,
        IsDragged
    };
    /// The snapped place of a pointer (mm): a node, else the crossing of snap lines. Cost: O(shapes), with a comparison
    /// for each, and the elements of near ones.
    QPointF Place(QPointF mm, Qt::KeyboardModifiers keys, Selected selected = Selected::Pulls);
    /// The shift (mm) that puts one of the given x and one of the given y (mm) onto snap lines; either list may be
    /// empty. Cost: O(log shapes); O(shapes log shapes) once after the drawing, the selection or the view has changed.
    QPointF Shift(std::span<const double> x, std::span<const double> y, Qt::KeyboardModifiers keys,
                  Selected selected = Selected::Pulls);

    /// Hides snap lines on which neither sides nor middle of the rectangle (mm) lie.
    void KeepGuidesOf(const QRectF& rect);
    /// The snap lines in use: x of the vertical one, y of the horizontal one (mm).
    std::optional<double> GuideX() const { return m_guideX; }
    std::optional<double> GuideY() const { return m_guideY; }

    /// Paints the snap lines and the node in use. The painter maps pixels.
    void Paint(QPainter& painter) const;
    /// Call when a drag has ended.
    void End();
    /// Call when the drawing, the selection or the view has changed.
    void Forget() { m_lines.reset(); }

private:
    const shapedocument::SnapLines& Lines(Selected selected);
    double ShiftAlong(const std::optional<shapedocument::SnapLines::Snap>& line, std::span<const double> places,
                      std::optional<double>& guide) const;
    std::optional<QPointF> NodeNear(QPointF mm, Selected selected) const;
    double Reach() const;

    CanvasView& m_view;
    bool m_on = true;
    std::optional<shapedocument::SnapLines> m_lines; ///< of the visible shapes
    Selected m_selected = Selected::Pulls;           ///< for which m_lines was made
    std::optional<double> m_guideX, m_guideY;        ///< mm
    std::optional<QPointF> m_node;                   ///< mm
};
