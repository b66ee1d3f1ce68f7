/// CanvasView: the widget that shows the drawing and lets users edit it.
#pragma once

#include "canvas/CanvasTool.h"
#include "canvas/ShapeIndex.h"
#include "canvas/ShapePainter.h"
#include "canvas/Snapping.h"
#include "canvas/ViewInput.h"
#include "canvas/ViewTransform.h"

#include "shape/Shape.h"

#include <QLineF>
#include <QPixmap>
#include <QRegion>
#include <QWidget>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

class WorkDocument;

/// Shows a document. The still part of the drawing is painted once into a pixmap; selected, dragged and new shapes are
/// painted over it, so that the cost of a frame of a drag depends on the dragged shapes only.
class CanvasView : public QWidget
{
    Q_OBJECT

public:
    /// The document must outlive the view.
    explicit CanvasView(WorkDocument& document, QWidget* parent = nullptr);
    ~CanvasView() override;

    WorkDocument& Document() { return m_document; }
    const ViewTransform& View() const { return m_view; }

    /// The machine's bed, mm.
    QRectF Bed() const { return m_bed; }
    void SetBed(const QRectF& bed);
    bool IsGridShown() const { return m_grid; }
    void ShowGrid(bool shown);
    /// Shows the leads of all shapes; those of selected shapes are always shown.
    void ShowLeads(bool shown);

    void ZoomAt(QPointF pixel, double factor);
    /// Zooms about the middle of the widget.
    void Zoom(double factor) { ZoomAt(QRectF(rect()).center(), factor); }
    void Pan(QPoint pixels);
    /// Shows the whole rectangle (mm).
    void Fit(const QRectF& mm);
    void FitBed() { Fit(m_bed); }
    /// Shows all shapes, or the bed when there are none.
    void FitDrawing();
    void FitSelection();
    /// Shows the rectangle (mm) with some space around it, and marks it until the next press.
    void ShowPlace(const QRectF& mm);

    /// The tool in use; never null.
    CanvasTool& Tool() { return *m_tool; }
    /// Replaces the tool in use.
    void SetTool(std::unique_ptr<CanvasTool> tool);

    /// The topmost shape that the library's hit test finds near the position; null for none. Skips hidden and locked
    /// shapes. Cost: O(shapes).
    CShape* ShapeAt(QPointF mm) const;
    /// Shapes whose rectangle lies in the given one or, if touching, touches it. Cost: O(shapes).
    std::vector<CShape*> ShapesIn(const QRectF& mm, bool touching) const;
    /// The rectangle around all selected shapes, mm; null when nothing is selected.
    QRectF SelectionRect() const { return m_selectionRect; }
    /// Calls visit(shape, its rectangle), in drawing order, for shown shapes whose rectangle touches the given one.
    /// Cost: O(shapes), with a comparison for each.
    template <class Visit>
    void ForEachShapeIn(const QRectF& mm, Visit visit) const
    {
        m_index.ForEachIn(mm, [&](const ShapeIndex::Entry& entry) {
            if (!entry.shape->IsHide())
                visit(*entry.shape, entry.rect);
        });
    }
    /// Snaps drawn and dragged shapes.
    Snapping& Snap() { return m_snapping; }
    void SetHover(CShape* shape);
    CShape* Hovered() const { return m_hover; }

    /// Shows the selected shapes under the transform (mm to mm) until ClearPreview.
    void SetPreview(const QTransform& transform);
    void ClearPreview();
    bool IsPreviewing() const { return m_preview.has_value(); }
    std::optional<QTransform> Preview() const { return m_preview; }

    /// Paints shapes for tools.
    ShapePainter& Painter() { return m_painter; }

signals:
    /// The scale or the position has changed.
    void ViewChanged();
    /// The pointer has moved; its place, mm.
    void PointerMoved(QPointF mm);
    /// Another tool is in use.
    void ToolChanged();
    /// The user wants to edit this shape's nodes, text or cells.
    void EditAsked(CShape* shape);
    /// The tool has finished; the arrow is wanted.
    void SelectToolAsked();
    /// The user wants a menu at this place (screen coordinates).
    void MenuAsked(QPoint global);

protected:
    void paintEvent(QPaintEvent*) override;
    void resizeEvent(QResizeEvent*) override;
    void showEvent(QShowEvent* event) override;
    void changeEvent(QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void leaveEvent(QEvent*) override;
    bool focusNextPrevChild(bool) override { return false; } // Tab selects the next shape

private:
    void Renew();
    void RenewPart(const QRectF& mm);
    void OnShapesLeft(const std::vector<CShape*>& shapes);
    void OnSelectionChanged();
    void RenderStill();
    void RenderPart(QPainter& painter, const QRectF& pixels);
    void PaintOver(QPainter& painter);
    void PaintPreview(QPainter& painter);
    void PaintHighlights(QPainter& painter);
    void PaintLeads(QPainter& painter);
    const std::vector<QLineF>& LeadsOf(CShape& shape);
    void PaintPlace(QPainter& painter);
    bool AreHighlightsStill() const;
    bool MoveKeyPointer(QKeyEvent& event);
    void SetHand(bool takes);
    CanvasPoint PointOf(QPointF pixel, Qt::KeyboardModifiers keys) const;
    PaintFrame Frame(const QRectF& pixels) const;

    WorkDocument& m_document;
    ViewTransform m_view;
    ShapePainter m_painter;
    ShapeIndex m_index;
    Snapping m_snapping{*this};
    std::unique_ptr<CanvasTool> m_tool;
    QPixmap m_still;                   ///< the drawing without the dragged shapes
    bool m_isStillOld = true;          ///< m_still must be repainted
    QRegion m_oldParts;                ///< parts of m_still to repaint, pixels
    bool m_areHighlightsStill = false; ///< too many shapes are selected: m_still shows their highlights
    QRectF m_bed{0, 0, 400, 300};
    bool m_wasShown = false;
    bool m_grid = true;
    bool m_leads = false;
    QRectF m_selectionRect;
    CShape* m_hover = nullptr;
    std::optional<QTransform> m_preview;
    PanHand m_hand;
    std::optional<QPointF> m_keyPointer;
    bool m_keyPressed = false;
    bool m_space = false;      ///< the space bar is down: a drag moves the view
    bool m_spaceMoved = false; ///< a drag has moved the view since it went down
    std::unordered_map<const CShape*, std::vector<QLineF>> m_knownLeads;
    QRectF m_place; ///< mm, of ShowPlace
};
