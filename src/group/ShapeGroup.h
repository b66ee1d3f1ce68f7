/// CShapeGroup, several shapes bound into one.
#pragma once

#include "shape/Shape.h"

#include <memory>

class CShapeList;

/// Owns its members through a list of its own and forwards nearly every operation to it. Its painter path is the
/// members' bounding rectangle after a copy or a transform (ResetPath), the union of their outlines after
/// UpdatePainterPath. That union is joined when it is asked for, from the outlines as they were at the time of
/// UpdatePainterPath.
///
/// Member-wise copies (copy constructor, assignment) share the member list, which the last of them frees; Copy and
/// Clone are deep. A group cannot hold itself: lists refuse the shape that would close the circle.
///
/// **Costs.** M is the number of members. Transforms and copies are O(M) calls of the members' operations and a
/// measuring of their rectangles; so is what has no cost of its own below. Getters are O(1).
class SHAPEMODEL_EXPORT CShapeGroup : public CShape
{
public:
    CShapeGroup();
    /// Shares other's members. Cost: O(1).
    CShapeGroup(const CShapeGroup& other);
    /// Keeps its own members when it is itself, at any depth, one of other's.
    CShapeGroup& operator=(const CShapeGroup& other);
    ~CShapeGroup() override;

    /// The members, owned by the group. After changing them call ResetPath or UpdatePainterPath.
    CShapeList* GetShapeList();
    /// The members, for reading only.
    const CShapeList* GetShapeList() const;

    /// Makes the painter path the members' bounding rectangle. Cost: O(M), and the members' paths that are missing.
    void ResetPath();

    /// Common record, then the members as a complete nested list.
    int Save(QFile* file) override;
    /// Frees the members and reads others. Returns the list's error code, see CShapeList::Read; at most 256 levels of
    /// groups are read. The painter path is not rebuilt.
    int Read(QFile* file, int version) override;
    /// Deep copy; true and no change from itself. False, and nothing changed, unless src is a group or an array.
    bool Copy(CShape* src) override;

    // Transforms return the list's result and reset the painter path in any case.

    bool Offset(double dx, double dy) override;
    bool Resize(QRectF target) override;
    bool RotateLeft(QPointF centre) override;
    bool RotateRight(QPointF centre) override;
    bool Rotate(double angle, QPointF centre, Qt::Axis axis) override;
    bool MirrorX(double axis) override;
    bool MirrorY(double axis) override;
    /// Passes false for bCommit to the members.
    bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit) override;
    bool MirrorAttachLine(double value, bool bVertical) override;

    /// The members' common rectangle. Cost: O(M).
    QRectF GetRect(bool bUpdate) override;
    /// The same in whole units, whatever the scale.
    QRect GetRectUI(double scale) override;
    /// The group's own colour and every member's.
    void SetColor(unsigned int color) override;
    /// Always false: a group has no outline of its own.
    bool IsClose() override;
    /// Always false, nothing is closed.
    bool Close(double tolerance, bool bFill) override;
    /// Does nothing: leads belong to the members.
    void SetGuideLine(SGuideLine guideLine) override;
    /// Does nothing: paths belong to the members.
    void SetPath(QPainterPath* path) override;
    /// Selects or deselects the group and every member.
    void Select(bool bSelect) override;
    ESHAPE_TYPE GetShapeType() override;
    /// Whether any member is hit, asked in order until one is. Cost: O(M) calls at most.
    bool Hit(QPointF p, int& part) override;
    CShape* Clone() override;
    /// The union of the members' outlines. Cost: O(M); O(elements) when the joined path is asked for.
    void UpdatePainterPath() override;

    using CShape::Contains;
    /// Whether the members' common rectangle contains p. Cost: O(M).
    virtual bool Contains(QPointF p);

protected:
    /// The members' rectangle at the time of construction. Measuring may lay out many texts, so it is done when the
    /// rectangle is asked for, or before code that may change the members gets them. Shared with the members.
    class LateRect
    {
    public:
        /// Keeps the pointer until the rectangle is measured.
        explicit LateRect(CShapeList* members) : m_pMembers(members) {}
        /// Measures on the first call.
        QRectF Rect();

    private:
        CShapeList* m_pMembers; ///< null once the rectangle was measured
        QRectF m_rect;
    };

    /// The members, for a transform. Drops a painter path in parts, which the transform replaces anyway.
    CShapeList* MembersToChange();
    /// Resets the painter path and returns the result.
    bool AfterReset(bool result);

    std::shared_ptr<CShapeList> m_pShapeList; ///< the members, shared with member-wise copies
    std::shared_ptr<LateRect> m_pLateRect;    ///< set by reading an array; null otherwise
};
