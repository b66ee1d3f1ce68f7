/// Shapes and outlines of the cells, made on demand.
#include "group/ShapeArray.h"
#include "host/ILog.h"
#include "list/ShapeList.h"
#include "shape/ShapeCast.h"

#include <exception>

namespace {

// Memory that the shapes of all cells may take, by an estimate: a host that asks for more gets none instead of running
// out of memory. It can ask GetShape for the cells of such an array one by one.
constexpr qint64 kMostBytesAtOnce = 4LL * 1024 * 1024 * 1024;
constexpr qint64 kBytesPerShape = 1024;
constexpr qint64 kBytesPerElement = 64; ///< of an outline: its point, its type, its place in the painter path

qint64 BytesOfCopy(CShapeList& members)
{
    qint64 bytes = 0;
    for (unsigned int i = 0; i < members.GetCount(); ++i) {
        CShape* member = members.GetShape(i);
        bytes += kBytesPerShape;
        if (auto* array = shapes::ShapeCast<CShapeArray>(member, ESHAPE_ARRAY))
            bytes += array->GetShapeArrayInfo().size() * static_cast<qint64>(sizeof(ShapeArrayInfo));
        if (auto* group = dynamic_cast<CShapeGroup*>(member))
            bytes += BytesOfCopy(*group->GetShapeList());
        else if (const QPainterPath* path = member ? member->GetPath(false) : nullptr)
            bytes += path->elementCount() * kBytesPerElement;
    }
    return bytes;
}

} // namespace

CShapeList* CShapeArray::GetAllShapeList()
{
    CShapeList* all = CShapeList::New();
    try {
        if (GetCount() == 0 || BytesOfCopy(*GetShapeList()) <= kMostBytesAtOnce / GetCount()) {
            FillCells(*all);
            return all;
        }
        ILog_WriteLogF(ELOG_FAILURE, "CShapeArray::GetAllShapeList: %d cells take too much memory at once", GetCount());
    } catch (const std::exception& failure) { // Mostly no memory; no exception may reach the host.
        ILog_WriteLogF(ELOG_FAILURE, "CShapeArray::GetAllShapeList: %s", failure.what());
    }
    all->DeleteAll();
    return all;
}

void CShapeArray::FillCells(CShapeList& all)
{
    for (const ShapeArrayInfo& cell : std::as_const(m_listInfo)) {
        if (!cell.bValid || !HasPlace(cell))
            continue; // Its shapes could not be moved off the template and would be worked twice.
        CShapeList* copies = GetShapeList()->Clone();
        const QPointF offset = CellOffset(cell);
        copies->Offset(offset.x(), offset.y(), true);
        all.AddTail(*copies);
        CShapeList::Release(copies);
    }
}

CShape* CShapeArray::GetShape(int i)
{
    if (!IsCell(i) || !HasPlace(m_listInfo[i]))
        return nullptr;
    CShape* group = CShapeGroup::Clone();
    const QPointF offset = CellOffset(m_listInfo[i]);
    group->Offset(offset.x(), offset.y());
    return group;
}

QPainterPath CShapeArray::GetPath(int i)
{
    if (!IsCell(i) || !HasPlace(m_listInfo[i]))
        return {};
    const QPainterPath* outline = GetPath(true);
    return outline->translated(m_listInfo[i].ptPos - outline->boundingRect().topLeft());
}
