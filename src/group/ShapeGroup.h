/// CShapeGroup, several shapes bound into one.
#pragma once

#include "shape/Shape.h"

#include <memory>

class CShapeList;

/// Owns its members through a list of its own and hands nearly every operation to it. Its painter path is the members'
/// bounding rectangle after a copy or a transform (ResetPath), the union of their outlines after UpdatePainterPath. That
/// union is joined when somebody asks for it, from the outlines as they were at the time of UpdatePainterPath.
///
/// Member-wise copies (copy constructor, assignment) share the member list, which goes with its last owner; Copy and
/// Clone are deep. A group cannot come to hold itself: lists refuse the shape that would close the circle.
class SHAPEMODEL_EXPORT CShapeGroup : public CShape
{
public:
    CShapeGroup();
    CShapeGroup(const CShapeGroup&) = default;
    /// Keeps its own members when it is itself, at any depth, one of other's.
    CShapeGroup& operator=(const CShapeGroup& other);

    /// The members, owned by the group. After changing them call ResetPath or UpdatePainterPath.
    CShapeList* GetShapeList();
    /// The members for looking at which they are, not for changing them.
    const CShapeList* GetShapeList() const;

    /// Makes the painter path the members' bounding rectangle.
    void ResetPath();

    /// Common record, then the members as a complete nested list.
    int Save(QFile* file) override;
    /// Frees the members and reads others. The list's error code, see CShapeList::Read; groups in groups come back down to
    /// 256 levels. The painter path is not rebuilt.
    int Read(QFile* file, int version) override;
    /// Deep copy; true and no change from itself. False, and nothing changed, unless src is a group or an array.
    bool Copy(CShape* src) override;

    // Transforms answer what the list answers and reset the painter path in any case.

    bool Offset(double dx, double dy) override;
    bool Resize(QRectF target) override;
    bool RotateLeft(QPointF centre) override;
    bool RotateRight(QPointF centre) override;
    bool Rotate(double angle, QPointF centre, Qt::Axis axis) override;
    bool MirrorX(double axis) override;
    bool MirrorY(double axis) override;
    /// The members are always told false.
    bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit) override;
    bool MirrorAttachLine(double value, bool bVertical) override;

    /// The members' common rectangle.
    QRectF GetRect(bool bUpdate) override;
    /// The same in whole units, whatever the scale.
    QRect GetRectUI(double scale) override;
    /// The group's own colour and every member's.
    void SetColor(unsigned int color) override;
    bool IsClose() override;
    bool Close(double tolerance, bool bFill) override;
    /// Nothing: leads and paths are the members' own.
    void SetGuideLine(SGuideLine guideLine) override;
    void SetPath(QPainterPath* path) override;
    /// The group and every member.
    void Select(bool bSelect) override;
    ESHAPE_TYPE GetShapeType() override;
    /// Whether any member is hit, asked in order until one is.
    bool Hit(QPointF p, int& part) override;
    CShape* Clone() override;
    /// The union of the members' outlines.
    void UpdatePainterPath() override;

    using CShape::Contains;
    /// Whether the members' common rectangle contains p.
    virtual bool Contains(QPointF p);

protected:
    /// The members' rectangle as it is when this is made. Taking it may lay out many texts, so that it waits until it is
    /// asked for, or until somebody gets hold of the members and may change them. Groups that share members share it.
    class LateRect
    {
    public:
        explicit LateRect(CShapeList* members) : m_pMembers(members) {}
        /// Measures on the first call.
        QRectF Rect();

    private:
        CShapeList* m_pMembers; ///< null once the rectangle was taken
        QRectF m_rect;
    };

    /// The members of a transform: of the painter path, which the transform will replace, no parts are kept.
    CShapeList* MembersToChange();
    /// Resets the painter path and hands the result on.
    bool AfterReset(bool result);

    std::shared_ptr<CShapeList> m_pShapeList;
    std::shared_ptr<LateRect> m_pLateRect; ///< of a group that needs none: null
};
