#include "group/ShapeGroup.h"

#include "geometry/OutlineParts.h"
#include "geometry/Tolerances.h"
#include "list/ShapeList.h"

#include <QRect>

#include <algorithm>
#include <utility>

namespace {

constexpr double kLargestWhole = 1e9; ///< edges are clamped to this before the conversion to int

QRect ToWholeRect(const QRectF& rect)
{
    if (!shapes::IsFinite(rect))
        return {};
    const auto edge = [](double value) { return std::clamp(value, -kLargestWhole, kLargestWhole); };
    const QPointF topLeft(edge(rect.left()), edge(rect.top())), bottomRight(edge(rect.right()), edge(rect.bottom()));
    return QRectF(topLeft, bottomRight).toRect();
}

std::shared_ptr<CShapeList> NewMemberList()
{
    return {CShapeList::New(), [](CShapeList* list) {
                list->DeleteAll();
                CShapeList::Release(list);
            }};
}

} // namespace

CShapeGroup::CShapeGroup() : m_pShapeList(NewMemberList())
{
    m_pShapeList->m_bMembers = true;
}

CShapeGroup::CShapeGroup(const CShapeGroup&) = default;
CShapeGroup::~CShapeGroup() = default;

CShapeGroup& CShapeGroup::operator=(const CShapeGroup& other)
{
    if (this == &other)
        return *this;
    for (const CShapeGroup* group : std::initializer_list<const CShapeGroup*>{this, &other})
        if (group->m_pLateRect)
            group->m_pLateRect->Rect(); // From now on the members can be changed through another group, too.
    CShape::operator=(other);
    if (!other.m_pShapeList->Reaches(m_pShapeList.get()))
        m_pShapeList = other.m_pShapeList;
    return *this;
}

QRectF CShapeGroup::LateRect::Rect()
{
    if (m_pMembers) {
        m_rect = m_pMembers->GetRect(false);
        m_pMembers = nullptr;
    }
    return m_rect;
}

CShapeList* CShapeGroup::GetShapeList()
{
    if (m_pLateRect)
        m_pLateRect->Rect();
    return m_pShapeList.get();
}

const CShapeList* CShapeGroup::GetShapeList() const
{
    return m_pShapeList.get();
}

CShapeList* CShapeGroup::MembersToChange()
{
    DropPathParts();
    return GetShapeList();
}

void CShapeGroup::ResetPath()
{
    const QRectF rect = m_pShapeList->GetRect(false);
    NewPath()->addRect(rect);
}

void CShapeGroup::UpdatePainterPath()
{
    auto outlines = std::make_shared<shapes::OutlineParts>();
    for (unsigned int i = 0; i < m_pShapeList->GetCount(); ++i)
        if (CShape* member = m_pShapeList->GetShape(i))
            AddPathTo(*outlines, *member);
    SetPathParts(std::move(outlines));
}

int CShapeGroup::Save(QFile* file)
{
    if (const int result = CShape::Save(file); result != 0)
        return result;
    return GetShapeList()->Save(file);
}

int CShapeGroup::Read(QFile* file, int version)
{
    if (const int result = CShape::Read(file, version); result != 0)
        return result;
    GetShapeList()->DeleteAll();
    return m_pShapeList->Read(file, version);
}

bool CShapeGroup::Copy(CShape* src)
{
    auto* source = dynamic_cast<CShapeGroup*>(src);
    if (!source)
        return false;
    if (source == this)
        return true;
    CShape::Copy(source);
    MembersToChange()->Copy(source->GetShapeList());
    ResetPath();
    return true;
}

CShape* CShapeGroup::Clone()
{
    auto* clone = new CShapeGroup;
    clone->CShapeGroup::Copy(this);
    return clone;
}

bool CShapeGroup::Offset(double dx, double dy)
{
    return AfterReset(MembersToChange()->Offset(dx, dy, true));
}

bool CShapeGroup::Resize(QRectF target)
{
    return AfterReset(MembersToChange()->Resize(target));
}

bool CShapeGroup::RotateLeft(QPointF centre)
{
    return AfterReset(MembersToChange()->RotateLeft(centre));
}

bool CShapeGroup::RotateRight(QPointF centre)
{
    return AfterReset(MembersToChange()->RotateRight(centre));
}

bool CShapeGroup::Rotate(double angle, QPointF centre, Qt::Axis)
{
    return AfterReset(MembersToChange()->Rotate(angle, centre, Qt::ZAxis));
}

bool CShapeGroup::MirrorX(double axis)
{
    return AfterReset(MembersToChange()->MirrorX(axis));
}

bool CShapeGroup::MirrorY(double axis)
{
    return AfterReset(MembersToChange()->MirrorY(axis));
}

bool CShapeGroup::MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool)
{
    return AfterReset(MembersToChange()->MirrorFixedOrMovingLine(p1, p2, false));
}

bool CShapeGroup::MirrorAttachLine(double value, bool bVertical)
{
    return AfterReset(MembersToChange()->MirrorAttachLine(value, bVertical));
}

bool CShapeGroup::AfterReset(bool result)
{
    ResetPath();
    return result;
}

QRectF CShapeGroup::GetRect(bool bUpdate)
{
    return GetShapeList()->GetRect(bUpdate);
}

QRect CShapeGroup::GetRectUI(double)
{
    return ToWholeRect(m_pShapeList->GetRect(false));
}

void CShapeGroup::SetColor(unsigned int color)
{
    CShape::SetColor(color);
    m_pShapeList->SetColor(color);
}

bool CShapeGroup::IsClose()
{
    return false;
}

bool CShapeGroup::Close(double, bool)
{
    return false;
}

void CShapeGroup::SetGuideLine(SGuideLine) {}

void CShapeGroup::SetPath(QPainterPath*) {}

void CShapeGroup::Select(bool bSelect)
{
    CShape::Select(bSelect);
    m_pShapeList->Select(bSelect);
}

ESHAPE_TYPE CShapeGroup::GetShapeType()
{
    return ESHAPE_GROUP;
}

bool CShapeGroup::Hit(QPointF p, int& part)
{
    for (unsigned int i = 0; i < m_pShapeList->GetCount(); ++i)
        if (CShape* member = m_pShapeList->GetShape(i); member && member->Hit(p, part))
            return true;
    return false;
}

bool CShapeGroup::Contains(QPointF p)
{
    return GetRect(false).contains(p);
}
