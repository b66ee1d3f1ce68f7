/// CellTool selects cells of the selected array one by one.
#pragma once

#include "canvas/CanvasTool.h"

#include <QRectF>

class CShapeArray;

/// Click selects a cell, with Shift adds or removes it; drag inverts those that it touches. Delete leaves them out.
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
