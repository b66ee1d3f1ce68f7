/// Cells of the array: rectangles, hit test, selection, colour and state.
#include "geometry/QtArithmetic.h"
#include "geometry/RectUnion.h"
#include "geometry/Tolerances.h"
#include "group/ShapeArray.h"
#include "list/ShapeWalk.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace {

/// Whether a cell at a finite position shares at least a point with a rectangle; edges count. x and y are compared
/// together, without a branch for each.
class Touches
{
public:
    Touches(const QRectF& rect, QSizeF cell)
        : m_low(shapes::ToPair(rect.topLeft())),
          m_high(shapes::ToPair({rect.right(), rect.bottom()})), m_size{cell.width(), cell.height()}
    {}

    bool operator()(QPointF at) const
    {
        const shapes::Pair low = shapes::ToPair(at), high = low + m_size;
        const auto within =
            (low >= -shapes::kLargestFinite) & (low <= shapes::kLargestFinite) & (low <= m_high) & (m_low <= high);
        return (within[0] & within[1]) != 0;
    }

private:
    shapes::Pair m_low, m_high, m_size;
};

/// Copies cells to target and inverts the selection of the valid ones for which meant() is true.
template <class Meant>
void ToggleInto(QList<ShapeArrayInfo>& target, const QList<ShapeArrayInfo>& cells, Meant meant)
{
    ShapeArrayInfo* next = target.data();
    for (const ShapeArrayInfo& cell : cells) {
        const bool toggle = cell.bValid && meant(cell.ptPos);
        *next = cell;
        next->bSelect = toggle ? !cell.bSelect : cell.bSelect;
        ++next;
    }
}

/// Index of the first cell that is wanted, -1 for none.
template <class Wanted>
int IndexOfCell(const QList<ShapeArrayInfo>& cells, Wanted wanted)
{
    const auto found = std::find_if(cells.begin(), cells.end(), wanted);
    return found == cells.end() ? -1 : static_cast<int>(found - cells.begin());
}

} // namespace

/// A stored position may be not finite. Such a cell is in no rectangle, and neither hit nor selected nor filled.
bool CShapeArray::HasPlace(const ShapeArrayInfo& cell)
{
    return shapes::IsFinite(cell.ptPos);
}

bool CShapeArray::IsSelectedCell(const ShapeArrayInfo& cell)
{
    return cell.bSelect && HasPlace(cell);
}

bool CShapeArray::IsValidAndSelected(const ShapeArrayInfo& cell)
{
    return cell.bValid && IsSelectedCell(cell);
}

bool CShapeArray::IsCell(int i) const
{
    return i >= 0 && i < m_listInfo.size();
}

QRectF CShapeArray::CellRect(const ShapeArrayInfo& cell) const
{
    return {cell.ptPos, Template().size()};
}

QPointF CShapeArray::CellOffset(const ShapeArrayInfo& cell) const
{
    return cell.ptPos - Template().topLeft();
}

QRectF CShapeArray::GetRect(int i)
{
    return IsCell(i) ? CellRect(m_listInfo[i]) : QRectF();
}

/// All cells have the same size, so the outermost positions determine the rectangle.
QRectF CShapeArray::GetAllRect()
{
    constexpr double kNone = std::numeric_limits<double>::infinity();
    double left = kNone, top = kNone, right = -kNone, bottom = -kNone;
    for (const ShapeArrayInfo& cell : std::as_const(m_listInfo)) {
        const double x = cell.ptPos.x(), y = cell.ptPos.y();
        if (!cell.bValid || !HasPlace(cell))
            continue;
        left = std::min(left, x);
        top = std::min(top, y);
        right = std::max(right, x);
        bottom = std::max(bottom, y);
    }
    shapes::RectUnion all; // ignores the infinite corners of an array without cells
    const QSizeF size = Template().size();
    all.Add({{left, top}, size});
    all.Add({{right, bottom}, size});
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
    RememberPresentCells();
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
    const QRectF rcTemplate = Template();
    const double width = rcTemplate.width(), height = rcTemplate.height();
    using shapes::Holds, shapes::SpanOf;
    return IndexOfCell(m_listInfo, [=](const ShapeArrayInfo& cell) {
        return Holds(SpanOf(cell.ptPos.x(), width), p.x()) && Holds(SpanOf(cell.ptPos.y(), height), p.y()) &&
               cell.bValid;
    });
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

/// Where the selection stays as it is. A copy would be shared, and the next change of a cell would copy all of them.
void CShapeArray::RememberPresentCells()
{
    m_listInfoPrev.clear();
    m_bPresentRemembered = true;
}

void CShapeArray::Select(bool bSelect, int i)
{
    if (!IsCell(i))
        return;
    CShape::Select(bSelect); // The array's own bit; cells are selected by rectangle or all together.
    RememberPresentCells();
}

void CShapeArray::SelectAll(bool bSelect)
{
    m_listInfoPrev = m_listInfo;
    m_bPresentRemembered = false;
    for (ShapeArrayInfo& cell : m_listInfo)
        cell.bSelect = bSelect && HasPlace(cell);
}

void CShapeArray::Select(bool bSelect)
{
    SelectAll(bSelect);
}

void CShapeArray::SelectByRect(QRectF r, bool bContain)
{
    QList<ShapeArrayInfo> cells = std::move(m_listInfoPrev); // reuses its memory
    cells.resize(m_listInfo.size());
    const QSizeF size = Template().size();
    if (bContain)
        ToggleInto(cells, m_listInfo, [=](QPointF at) { return shapes::IsFinite(at) && r.contains(QRectF(at, size)); });
    else
        ToggleInto(cells, m_listInfo, Touches(r, size));
    m_listInfoPrev = std::move(m_listInfo);
    m_listInfo = std::move(cells);
    m_bPresentRemembered = false;
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
    return selected == std::count_if(m_listInfo.cbegin(), m_listInfo.cend(), HasPlace) ? 1 : 2;
}

int CShapeArray::GetSelectCount()
{
    return static_cast<int>(std::count_if(m_listInfo.cbegin(), m_listInfo.cend(), IsValidAndSelected));
}

bool CShapeArray::IsSelecteChanged()
{
    return !m_bPresentRemembered &&
           !std::equal(m_listInfo.cbegin(), m_listInfo.cend(), m_listInfoPrev.cbegin(), m_listInfoPrev.cend(),
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
    CShape* first = shapes::FirstShape(*m_pShapeList);
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
