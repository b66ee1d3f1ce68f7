/// Snapping, where what is drawn or dragged comes to rest: on nodes, edges and middles of other shapes, on the grid.
#pragma once

#include "document/SnapLines.h"

#include <QPointF>

#include <optional>
#include <span>

class CanvasView;
class QPainter;

/// For the canvas's tools. What is nearer than a few pixels pulls; Ctrl switches that off for as long as it is held.
class Snapping
{
public:
    /// The view must outlive it.
    explicit Snapping(CanvasView& view) : m_view(view) {}

    void SetOn(bool on);

    /// Whether the selected shapes pull, or are what is dragged.
    enum class Selected
    {
        Pulls,
        IsDragged
    };
    /// The place for a pointer (mm): a node, else the crossing of the lines that pull. Cost: O(shapes), but quickly,
    /// and the elements of those near.
    QPointF Place(QPointF mm, Qt::KeyboardModifiers keys, Selected selected = Selected::Pulls);
    /// How far something is moved so that one of its x and one of its y (mm) lie on lines; either may be empty.
    /// Cost: O(log shapes); O(shapes log shapes) once after the drawing, the selection or the view has changed.
    QPointF Shift(std::span<const double> x, std::span<const double> y, Qt::KeyboardModifiers keys,
                  Selected selected = Selected::Pulls);

    /// Shows what pulls at present. Pixels.
    void Paint(QPainter& painter) const;
    /// Nothing is dragged any more.
    void End();
    /// To be called when the drawing, the selection or the view has changed.
    void Forget() { m_lines.reset(); }

private:
    const shapedocument::SnapLines& Lines(Selected selected);
    double ShiftAlong(const std::optional<shapedocument::SnapLines::Snap>& line, std::span<const double> places,
                      std::optional<double>& guide) const;
    std::optional<QPointF> NodeNear(QPointF mm, Selected selected) const;
    double Reach() const;

    CanvasView& m_view;
    bool m_on = true;
    std::optional<shapedocument::SnapLines> m_lines; ///< of the shapes that are seen
    Selected m_selected = Selected::Pulls;           ///< that the lines were taken with
    std::optional<double> m_guideX, m_guideY;        ///< mm
    std::optional<QPointF> m_node;                   ///< mm
};
