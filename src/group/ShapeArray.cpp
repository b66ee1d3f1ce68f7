/// Layout, template, copies, record and units of the array.
#include "group/ShapeArray.h"

#include "geometry/Tolerances.h"
#include "group/CellLimit.h"
#include "host/IRuler.h"
#include "list/ShapeList.h"
#include "record/RecordFormat.h"
#include "record/RecordStream.h"
#include "shape/ShapeCast.h"

#include <QFile>

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <vector>

using shapes::RecordReader;
using shapes::RecordWriter;

namespace {

constexpr int kResultWithoutCells = 4; ///< bytes of the count, the last write of such a record
constexpr int kResultWithCells = 1;    ///< bytes of the selection flag
constexpr int kFailedWrite = -1;

constexpr size_t kCellBytes = shapes::RowBytes(shapes::kCellRow);
constexpr size_t kCellsPerBlock = size_t{64} * 1024 / kCellBytes;

ShapeArrayInfo CellOf(const char* record)
{
    const auto read = [&record](auto& field) {
        std::memcpy(&field, record, sizeof field);
        record += sizeof field;
    };
    ShapeArrayInfo cell;
    double x = 0, y = 0;
    read(cell.nIndex);
    read(x);
    read(y);
    read(cell.bValid);
    read(cell.bSelect);
    cell.ptPos = {x, y};
    cell.bValid = cell.bValid != 0;
    cell.bSelect = cell.bSelect != 0;
    return cell;
}

/// Appends the cells that are whole, count at most.
void ReadCells(RecordReader& reader, size_t count, QList<ShapeArrayInfo>& cells)
{
    std::vector<char> block;
    while (count > 0 && reader.Whole()) {
        const size_t wanted = std::min(count, kCellsPerBlock);
        block.resize(wanted * kCellBytes);
        const size_t came =
            static_cast<size_t>(reader.GetBytes(block.data(), static_cast<qint64>(block.size()))) / kCellBytes;
        for (size_t i = 0; i < came; ++i)
            cells.append(CellOf(block.data() + i * kCellBytes));
        count -= wanted;
    }
}

void PutCell(RecordWriter& writer, const ShapeArrayInfo& cell)
{
    writer.Put(cell.nIndex);
    writer.Put(cell.ptPos.x());
    writer.Put(cell.ptPos.y());
    writer.Put(cell.bValid);
    writer.Put(cell.bSelect);
}

} // namespace

CShapeArray::CShapeArray() = default;
CShapeArray::CShapeArray(const CShapeArray&) = default;
CShapeArray::~CShapeArray() = default;

CShapeArray& CShapeArray::operator=(const CShapeArray& other)
{
    const std::shared_ptr<CShapeList> before = m_pShapeList; // kept alive: other may be one of its members
    CShapeGroup::operator=(other);
    SetTemplate(other.Template());
    m_nLastHitIndex = other.m_nLastHitIndex;
    m_listInfo = other.m_listInfo;
    m_listInfoPrev = other.m_listInfoPrev;
    m_bPresentRemembered = other.m_bPresentRemembered;
    return *this;
}

void CShapeArray::SetArrayInfo(int nRows, int nCols, double dColGap, double dRowGap, double dRowShift, double dColShift)
{
    if (!shapes::AllFinite({dColGap, dRowGap, dRowShift, dColShift}))
        return;
    RenewTemplate();
    UpdatePainterPath();
    m_listInfoPrev.clear(); // its cells may be shared, and would be copied on resizing
    const bool possible = nRows > 0 && nCols > 0 && static_cast<int64_t>(nRows) * nCols <= shapes::kMostCells;
    m_listInfo.resize(possible ? static_cast<qsizetype>(nRows) * nCols : 0);
    ShapeArrayInfo* cell = m_listInfo.data();
    const QPointF first = m_rcTemplate.topLeft();
    const double width = m_rcTemplate.width(), height = m_rcTemplate.height();
    int32_t index = 0;
    for (int row = 0; possible && row < nRows; ++row) {
        const double shiftX = row % 2 ? dRowShift : 0;
        for (int column = 0; column < nCols; ++column) {
            const double shiftY = column % 2 ? dColShift : 0;
            *cell++ = {index++,
                       {first.x() + width * column + shiftX + dColGap * column,
                        first.y() + height * row + shiftY + dRowGap * row}};
        }
    }
    if (possible)
        m_listInfo.first().ptPos = first;
    RememberPresentCells();
}

QList<ShapeArrayInfo> CShapeArray::GetShapeArrayInfo()
{
    return m_listInfo;
}

void CShapeArray::SetShapeList(CShapeList* list)
{
    if (!list)
        return;
    GetShapeList()->AddTail(*list);
    RenewTemplate();
}

QRectF CShapeArray::Template() const
{
    return m_pLateRect ? m_pLateRect->Rect() : m_rcTemplate;
}

void CShapeArray::SetTemplate(const QRectF& rect)
{
    m_rcTemplate = rect;
    m_pLateRect.reset();
}

void CShapeArray::RenewTemplate(Previews previews)
{
    BringUpToDate(*GetShapeList(), previews);
    SetTemplate(m_pShapeList->GetRect(false));
}

/// Makes edited images, and the groups around them, report their present rectangle: images keep the old one until they
/// are asked for the new one. True when a rectangle has changed. Arrays do this for their own members.
bool CShapeArray::BringUpToDate(CShapeList& members, Previews previews)
{
    bool changed = false;
    for (unsigned int i = 0; i < members.GetCount(); ++i) {
        CShape* member = members.GetShape(i);
        const ESHAPE_TYPE type = member ? member->GetShapeType() : ESHAPE_VECTOR;
        if (type == ESHAPE_IMAGE || type == ESHAPE_CODEIMAGE) {
            if (previews == Previews::Keep && member->GetPathTmp())
                continue;
            const QRectF before = member->GetRect(false);
            changed = member->GetRect(true) != before || changed;
        } else if (auto* group = shapes::ShapeCast<CShapeGroup>(member, ESHAPE_GROUP)) {
            if (BringUpToDate(*group->GetShapeList(), previews)) {
                group->ResetPath();
                changed = true;
            }
        }
    }
    return changed;
}

int CShapeArray::Save(QFile* file)
{
    if (const int result = CShapeGroup::Save(file); result != 0 || !file)
        return result;
    RecordWriter writer(*file);
    writer.Put(static_cast<int32_t>(m_listInfo.size()));
    for (const ShapeArrayInfo& cell : std::as_const(m_listInfo))
        PutCell(writer, cell);
    if (!writer.Flush())
        return kFailedWrite;
    return m_listInfo.isEmpty() ? kResultWithoutCells : kResultWithCells;
}

int CShapeArray::Read(QFile* file, int version)
{
    if (const int result = CShapeGroup::Read(file, version); result != 0 || !file)
        return result;
    m_pLateRect = std::make_shared<LateRect>(m_pShapeList.get());
    m_listInfo.clear();
    m_listInfoPrev.clear();
    m_bPresentRemembered = false;
    m_nLastHitIndex = -1;
    RecordReader reader(*file);
    int32_t count = 0;
    reader.Get(count);
    ReadCells(reader, static_cast<size_t>(std::max(count, 0)), m_listInfo);
    return 0;
}

bool CShapeArray::Copy(CShape* src)
{
    auto* source = dynamic_cast<CShapeArray*>(src);
    if (!source)
        return false;
    if (source == this)
        return true;
    // Read first: a source that is one of this array's members is freed with them.
    const unsigned int color = source->m_nColor;
    const QRectF rcTemplate = source->Template();
    const QList<ShapeArrayInfo> cells = source->m_listInfo;
    CShapeGroup::Copy(source);
    m_nColor = color;
    SetTemplate(rcTemplate);
    m_listInfo = cells;
    m_listInfoPrev.clear();
    m_bPresentRemembered = false;
    if (!IsCell(m_nLastHitIndex))
        m_nLastHitIndex = -1;
    return true;
}

CShape* CShapeArray::Clone()
{
    auto* clone = new CShapeArray;
    clone->Copy(this);
    return clone;
}

void CShapeArray::ChangePix2MM(IRuler* ruler)
{
    if (!ruler)
        return;
    SetTemplate(ruler->Pix2MMRect(Template()));
    for (ShapeArrayInfo& cell : m_listInfo)
        cell.ptPos = ruler->Pix2MMPoint(cell.ptPos);
}

void CShapeArray::ChangeMM2Pix(IRuler* ruler)
{
    if (!ruler)
        return;
    SetTemplate(ruler->MM2PixRect(Template()));
    for (ShapeArrayInfo& cell : m_listInfo)
        cell.ptPos = ruler->MM2PixPoint(cell.ptPos);
}
