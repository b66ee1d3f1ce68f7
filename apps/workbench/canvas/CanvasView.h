/// CanvasView, the widget on which the drawing is seen and edited.
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

/// Shows a document. What stands still is painted once into a picture of the canvas; what is selected, dragged or being
/// made is painted over it, so that a frame of a drag costs what is dragged and not the drawing.
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
    /// Of all shapes; those of selected shapes are always shown.
    void ShowLeads(bool shown);

    void ZoomAt(QPointF pixel, double factor);
    /// About the middle.
    void Zoom(double factor) { ZoomAt(QRectF(rect()).center(), factor); }
    void Pan(QPoint pixels);
    /// Shows the rectangle (mm) whole.
    void Fit(const QRectF& mm);
    void FitBed() { Fit(m_bed); }
    /// All shapes, or the bed when there are none.
    void FitDrawing();
    void FitSelection();
    /// Shows the rectangle (mm), with some of what lies around it, and marks it until something is pressed.
    void ShowPlace(const QRectF& mm);

    /// The tool in use; never null.
    CanvasTool& Tool() { return *m_tool; }
    /// Ends the tool in use.
    void SetTool(std::unique_ptr<CanvasTool> tool);

    /// The front shape that the library's hit test finds near the position; null for none. Hidden and locked shapes are
    /// passed over. Cost: O(shapes).
    CShape* ShapeAt(QPointF mm) const;
    /// Shapes whose rectangle lies in the given one, or touches it. Cost: O(shapes).
    std::vector<CShape*> ShapesIn(const QRectF& mm, bool touching) const;
    /// Around all selected shapes, mm; null when nothing is selected.
    QRectF SelectionRect() const { return m_selectionRect; }
    /// Visits shapes that are shown and whose rectangle touches the given one, in drawing order: visit(shape, its
    /// rectangle). Cost: O(shapes), but quickly.
    template <class Visit>
    void ForEachShapeIn(const QRectF& mm, Visit visit) const
    {
        m_index.ForEachIn(mm, [&](const ShapeIndex::Entry& entry) {
            if (!entry.shape->IsHide())
                visit(*entry.shape, entry.rect);
        });
    }
    /// Where what is drawn and dragged comes to rest.
    Snapping& Snap() { return m_snapping; }
    void SetHover(CShape* shape);
    CShape* Hovered() const { return m_hover; }

    /// Shows the selected shapes as the transform (mm to mm) will make them, until ClearPreview.
    void SetPreview(const QTransform& transform);
    void ClearPreview();
    bool IsPreviewing() const { return m_preview.has_value(); }
    std::optional<QTransform> Preview() const { return m_preview; }

    /// Paints shapes for tools.
    ShapePainter& Painter() { return m_painter; }

signals:
    /// Another scale or place.
    void ViewChanged();
    /// Where the pointer is, mm.
    void PointerMoved(QPointF mm);
    /// Another tool is in use.
    void ToolChanged();
    /// The user wants to edit this shape in its own way: nodes, text, cells.
    void EditAsked(CShape* shape);
    /// The tool has done its work.
    void SelectToolAsked();
    /// The user wants a menu at this place (of the screen).
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
    bool focusNextPrevChild(bool) override { return false; } // Tab goes from shape to shape.

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
    void TakeHand(bool takes);
    CanvasPoint PointOf(QPointF pixel, Qt::KeyboardModifiers keys) const;
    PaintFrame Frame(const QRectF& pixels) const;

    WorkDocument& m_document;
    ViewTransform m_view;
    ShapePainter m_painter;
    ShapeIndex m_index;
    Snapping m_snapping{*this};
    std::unique_ptr<CanvasTool> m_tool;
    QPixmap m_still;                   ///< the drawing without what is dragged
    bool m_isStillOld = true;          ///< m_still is to be painted anew
    QRegion m_oldParts;                ///< parts of it that are, pixels
    bool m_areHighlightsStill = false; ///< so many are selected that m_still shows it
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
    bool m_space = false;      ///< held: a drag moves the view
    bool m_spaceMoved = false; ///< and has
    std::unordered_map<const CShape*, std::vector<QLineF>> m_knownLeads;
    QRectF m_place; ///< mm, marked
};
