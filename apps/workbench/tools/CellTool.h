/// CellTool: selects cells of the selected array.
#pragma once

#include "canvas/CanvasTool.h"

#include <QRectF>

class CShapeArray;

/// A click selects a cell, with Shift adds or removes it; a drag inverts the cells that it touches. Delete leaves
/// selected cells out.
class CellTool : public CanvasTool
{
public:
    explicit CellTool(CanvasView& view);

    void Press(const CanvasPoint& point) override;
    void Drag(const CanvasPoint& point) override;
    void Release(const CanvasPoint& point) override;
    bool Key(QKeyEvent& event) override;
    bool Delete() override;
    void Paint(QPainter& painter) override;
    void Leave() override;
    QString Hint() const override;
    bool TakesKeyPointer() const override { return false; }
    QCursor Cursor() const override { return Qt::ArrowCursor; }

private:
    CShapeArray* Array() const;
    void SelectNoCell();
    void Toggle(CShapeArray& array, int cell);
    void SelectNext(CShapeArray& array, int step, bool add);

    QRectF m_marquee; ///< mm
    QPointF m_from;   ///< mm
    int m_current = -1;
};
