/// Cells of the array: rectangles, hit test, selection, colour and state.
#include "group/ShapeArray.h"
#include "list/RectUnion.h"
#include "list/ShapeWalk.h"

#include <algorithm>
#include <utility>

namespace {

/// Whether the rectangles share at least a point; edges count.
bool Touch(const QRectF& a, const QRectF& b)
{
    return a.x() <= b.right() && a.y() <= b.bottom() && b.x() <= a.right() && b.y() <= a.bottom();
}

bool IsValidAndSelected(const ShapeArrayInfo& cell)
{
    return cell.bValid && cell.bSelect;
}

bool IsSelectedCell(const ShapeArrayInfo& cell)
{
    return cell.bSelect;
}

/// Index of the first cell that is wanted, -1 for none.
template <class Wanted>
int IndexOfCell(const QList<ShapeArrayInfo>& cells, Wanted wanted)
{
    const auto found = std::find_if(cells.begin(), cells.end(), wanted);
    return found == cells.end() ? -1 : static_cast<int>(found - cells.begin());
}

} // namespace

bool CShapeArray::IsCell(int i) const
{
    return i >= 0 && i < m_listInfo.size();
}

QRectF CShapeArray::CellRect(const ShapeArrayInfo& cell) const
{
    return {cell.ptPos, m_rcTemplate.size()};
}

QPointF CShapeArray::CellOffset(const ShapeArrayInfo& cell) const
{
    return cell.ptPos - m_rcTemplate.topLeft();
}

QRectF CShapeArray::GetRect(int i)
{
    return IsCell(i) ? CellRect(m_listInfo[i]) : QRectF();
}

QRectF CShapeArray::GetAllRect()
{
    shapes::RectUnion all;
    for (const ShapeArrayInfo& cell : std::as_const(m_listInfo))
        if (cell.bValid)
            all.Add(CellRect(cell));
    return all.Result();
}

QRectF CShapeArray::GetRect(bool bUpdate)
{
    return bUpdate ? CShapeGroup::GetRect(true) : GetAllRect();
}

QRectF CShapeArray::GetSelectRect()
{
    shapes::RectUnion selected;
    for (const ShapeArrayInfo& cell : std::as_const(m_listInfo))
        if (IsValidAndSelected(cell))
            selected.Add(CellRect(cell));
    return selected.Result();
}

int CShapeArray::GetCount()
{
    return static_cast<int>(
        std::count_if(m_listInfo.cbegin(), m_listInfo.cend(), [](const ShapeArrayInfo& cell) { return cell.bValid; }));
}

void CShapeArray::SetInvalid(int i)
{
    if (!IsCell(i))
        return;
    TakeSnapshot();
    m_listInfo[i].bValid = 0;
}

void CShapeArray::DeleteSelect()
{
    for (ShapeArrayInfo& cell : m_listInfo)
        if (cell.bSelect)
            cell.bValid = 0;
}

int CShapeArray::GetCurrentHitIndex(QPointF p, int)
{
    return IndexOfCell(m_listInfo,
                       [&](const ShapeArrayInfo& cell) { return cell.bValid && CellRect(cell).contains(p); });
}

int CShapeArray::GetHitIndex(QPointF p, int part)
{
    m_nLastHitIndex = GetCurrentHitIndex(p, part);
    return m_nLastHitIndex;
}

int CShapeArray::GetLastHitIndex()
{
    return m_nLastHitIndex;
}

bool CShapeArray::Hit(QPointF p, int& part)
{
    return GetHitIndex(p, part) != -1;
}

void CShapeArray::TakeSnapshot()
{
    m_listInfoPrev = m_listInfo;
}

void CShapeArray::Select(bool bSelect, int i)
{
    if (!IsCell(i))
        return;
    CShape::Select(bSelect); // The array's own bit; cells are selected by rectangle or all together.
    TakeSnapshot();
}

void CShapeArray::SelectAll(bool bSelect)
{
    TakeSnapshot();
    for (ShapeArrayInfo& cell : m_listInfo)
        cell.bSelect = bSelect;
}

void CShapeArray::Select(bool bSelect)
{
    SelectAll(bSelect);
}

void CShapeArray::SelectByRect(QRectF r, bool bContain)
{
    TakeSnapshot();
    for (ShapeArrayInfo& cell : m_listInfo) {
        if (!cell.bValid)
            continue;
        const QRectF rect = CellRect(cell);
        if (bContain ? r.contains(rect) : Touch(r, rect))
            cell.bSelect = !cell.bSelect;
    }
}

bool CShapeArray::IsSelect()
{
    return std::any_of(m_listInfo.cbegin(), m_listInfo.cend(), IsSelectedCell);
}

unsigned int CShapeArray::GetSelectStatus()
{
    const auto selected = std::count_if(m_listInfo.cbegin(), m_listInfo.cend(), IsSelectedCell);
    if (selected == 0)
        return 0;
    return selected == m_listInfo.size() ? 1 : 2;
}

int CShapeArray::GetSelectCount()
{
    return static_cast<int>(std::count_if(m_listInfo.cbegin(), m_listInfo.cend(), IsValidAndSelected));
}

bool CShapeArray::IsSelecteChanged()
{
    return !std::equal(m_listInfo.cbegin(), m_listInfo.cend(), m_listInfoPrev.cbegin(), m_listInfoPrev.cend(),
                       [](const ShapeArrayInfo& a, const ShapeArrayInfo& b) { return a.bSelect == b.bSelect; });
}

int CShapeArray::GetFirstSelectIndex()
{
    return IndexOfCell(m_listInfo, IsValidAndSelected);
}

void CShapeArray::SetColor(unsigned int color)
{
    CShape::SetColor(color);
}

unsigned int CShapeArray::GetColor()
{
    CShape* first = shapes::FirstShape(*GetShapeList());
    return m_nColor != 0 || !first ? m_nColor : first->GetColor();
}

bool CShapeArray::IsClose()
{
    return true;
}

ESHAPE_TYPE CShapeArray::GetShapeType()
{
    return ESHAPE_ARRAY;
}
