#include "tools/CellTool.h"

#include "canvas/CanvasView.h"
#include "document/WorkDocument.h"
#include "edits/Structure.h"
#include "look/Look.h"
#include "tools/Translated.h"

#include "group/ShapeArray.h"
#include "shape/ShapeCast.h"

#include <QKeyEvent>
#include <QPainter>

CellTool::CellTool(CanvasView& view) : CanvasTool(view)
{
    SelectNoCell();
}

/// Deselects the cells of all arrays: arrays that undo restores may have selected ones.
void CellTool::SelectNoCell()
{
    CShapeList& shapes = View().Document().Shapes();
    for (unsigned int i = 0; i < shapes.GetCount(); ++i)
        if (auto* array = shapes::ShapeCast<CShapeArray>(shapes.GetShape(i), ESHAPE_ARRAY); array && array->IsSelect())
            array->SelectAll(false);
    m_current = -1;
}

CShapeArray* CellTool::Array() const
{
    for (CShape* shape : View().Document().Selection())
        if (auto* array = shapes::ShapeCast<CShapeArray>(shape, ESHAPE_ARRAY))
            return array;
    return nullptr;
}

/// The library inverts cells that a rectangle touches, so a tiny one in the cell's middle is used.
void CellTool::Toggle(CShapeArray& array, int cell)
{
    constexpr double kLittle = 1e-3; // mm
    const QPointF middle = array.GetRect(cell).center();
    array.SelectByRect(QRectF(middle, middle).adjusted(-kLittle, -kLittle, kLittle, kLittle), false);
    m_current = cell;
}

void CellTool::Press(const CanvasPoint& point)
{
    m_from = point.mm;
    m_marquee = {};
    CShapeArray* array = Array();
    const int cell = array ? array->GetHitIndex(point.mm, 0) : -1;
    if (cell < 0) {
        CShape* other = View().ShapeAt(point.mm);
        if (other && other != array && other->GetShapeType() == ESHAPE_ARRAY) {
            SelectNoCell();
            View().Document().Select({other});
        }
        return;
    }
    const bool add = point.keys & Qt::ShiftModifier;
    if (!add)
        array->SelectAll(false);
    Toggle(*array, cell);
    emit View().Document().SelectionChanged();
}

void CellTool::Drag(const CanvasPoint& point)
{
    m_marquee = QRectF(m_from, point.mm).normalized();
    View().update();
}

void CellTool::Release(const CanvasPoint& point)
{
    constexpr double kStartOfDrag = 3; // pixels
    CShapeArray* array = Array();
    if (array && View().View().ToPixel(m_marquee).width() > kStartOfDrag) {
        if (!(point.keys & Qt::ShiftModifier))
            array->SelectAll(false);
        array->SelectByRect(m_marquee, false);
        emit View().Document().SelectionChanged();
    }
    m_marquee = {};
}

void CellTool::SelectNext(CShapeArray& array, int step, bool add)
{
    const QList<ShapeArrayInfo> cells = array.GetShapeArrayInfo();
    const int count = static_cast<int>(cells.size());
    int cell = m_current < 0 ? (step > 0 ? -1 : count) : m_current;
    do {
        cell += step;
    } while (cell >= 0 && cell < count && !cells[cell].bValid);
    if (cell < 0 || cell >= count)
        return;
    if (!add)
        array.SelectAll(false);
    Toggle(array, cell);
}

bool CellTool::Key(QKeyEvent& event)
{
    if (event.key() == Qt::Key_Escape) {
        emit View().SelectToolAsked();
        return true;
    }
    CShapeArray* array = Array();
    const bool back = event.key() == Qt::Key_Left || event.key() == Qt::Key_Up || event.key() == Qt::Key_Backtab;
    const bool on = event.key() == Qt::Key_Right || event.key() == Qt::Key_Down || event.key() == Qt::Key_Tab;
    if (!array || (!back && !on))
        return false;
    SelectNext(*array, on ? 1 : -1, event.modifiers() & Qt::ShiftModifier && event.key() != Qt::Key_Backtab);
    emit View().Document().SelectionChanged();
    return true;
}

void CellTool::Paint(QPainter& painter)
{
    painter.setPen(QPen(look::Marker(), 1, Qt::DotLine));
    QColor tint = look::Marker();
    tint.setAlpha(60);
    if (CShapeArray* array = Array()) {
        const QSizeF size = array->CShapeGroup::GetRect(false).size();
        const QRectF visible = View().View().ToMm(QRectF(View().rect()));
        for (const ShapeArrayInfo& cell : array->GetShapeArrayInfo()) {
            if (!cell.bValid || !ShapeIndex::AreTouching({cell.ptPos, size}, visible))
                continue;
            painter.setBrush(cell.bSelect ? QBrush(tint) : QBrush(Qt::NoBrush));
            painter.drawRect(View().View().ToPixel(QRectF(cell.ptPos, size)));
        }
    }
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(look::Marker(), 1, Qt::DashLine));
    if (!m_marquee.isNull())
        painter.drawRect(View().View().ToPixel(m_marquee));
}

void CellTool::Leave()
{
    SelectNoCell();
    View().update();
}

/// With all cells selected the array is deleted; with none nothing is deleted, because the user means cells here.
bool CellTool::Delete()
{
    CShapeArray* array = Array();
    if (!array || (array->GetSelectCount() > 0 && array->GetSelectCount() == array->GetCount()))
        return false;
    DeleteSelectedCells(View().Document());
    return true;
}

QString CellTool::Hint() const
{
    return Tools::tr("Click selects a cell of the selected array, Shift adds, arrows go on; "
                     "Delete leaves the selected cells out");
}
