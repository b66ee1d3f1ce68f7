#include "group/ShapeGroup.h"

#include "geometry/Tolerances.h"
#include "list/ShapeList.h"

#include <QRect>

#include <algorithm>

namespace {

constexpr double kLargestWhole = 1e9; ///< edges that are safe as whole numbers

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

CShapeGroup& CShapeGroup::operator=(const CShapeGroup& other)
{
    if (this == &other)
        return *this;
    CShape::operator=(other);
    if (!other.m_pShapeList->Reaches(m_pShapeList.get()))
        m_pShapeList = other.m_pShapeList;
    return *this;
}

CShapeList* CShapeGroup::GetShapeList()
{
    return m_pShapeList.get();
}

void CShapeGroup::ResetPath()
{
    const QRectF rect = m_pShapeList->GetRect(false);
    NewPath()->addRect(rect);
}

void CShapeGroup::UpdatePainterPath()
{
    QPainterPath outline;
    for (unsigned int i = 0; i < m_pShapeList->GetCount(); ++i) {
        CShape* member = m_pShapeList->GetShape(i);
        if (const QPainterPath* path = member ? member->GetPath(false) : nullptr)
            outline.addPath(*path);
    }
    *NewPath() = outline;
}

int CShapeGroup::Save(QFile* file)
{
    if (const int result = CShape::Save(file); result != 0)
        return result;
    return m_pShapeList->Save(file);
}

int CShapeGroup::Read(QFile* file, int version)
{
    if (const int result = CShape::Read(file, version); result != 0)
        return result;
    m_pShapeList->DeleteAll();
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
    m_pShapeList->Copy(source->m_pShapeList.get());
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
    return AfterReset(m_pShapeList->Offset(dx, dy, true));
}

bool CShapeGroup::Resize(QRectF target)
{
    return AfterReset(m_pShapeList->Resize(target));
}

bool CShapeGroup::RotateLeft(QPointF centre)
{
    return AfterReset(m_pShapeList->RotateLeft(centre));
}

bool CShapeGroup::RotateRight(QPointF centre)
{
    return AfterReset(m_pShapeList->RotateRight(centre));
}

bool CShapeGroup::Rotate(double angle, QPointF centre, Qt::Axis)
{
    return AfterReset(m_pShapeList->Rotate(angle, centre, Qt::ZAxis));
}

bool CShapeGroup::MirrorX(double axis)
{
    return AfterReset(m_pShapeList->MirrorX(axis));
}

bool CShapeGroup::MirrorY(double axis)
{
    return AfterReset(m_pShapeList->MirrorY(axis));
}

bool CShapeGroup::MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool)
{
    return AfterReset(m_pShapeList->MirrorFixedOrMovingLine(p1, p2, false));
}

bool CShapeGroup::MirrorAttachLine(double value, bool bVertical)
{
    return AfterReset(m_pShapeList->MirrorAttachLine(value, bVertical));
}

bool CShapeGroup::AfterReset(bool result)
{
    ResetPath();
    return result;
}

QRectF CShapeGroup::GetRect(bool bUpdate)
{
    return m_pShapeList->GetRect(bUpdate);
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
