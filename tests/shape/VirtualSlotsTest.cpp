/// The virtual tables, which hosts compiled against the interface rely on.
#include "group/ShapeArray.h"
#include "host/ICurveSimulate.h"
#include "host/IRuler.h"
#include "image/CodeShapeImage.h"
#include "list/ShapeList.h"
#include "text/ShapeText.h"

#include <gtest/gtest.h>

#include <cstring>

namespace {

/// Slot in the virtual table, by the layout of a pointer to a virtual member: 1 + 8 * slot.
template <class Member>
std::ptrdiff_t Slot(Member member)
{
    std::ptrdiff_t word = 0;
    std::memcpy(&word, &member, sizeof word);
    return (word - 1) / 8;
}

/// A host's class with an operation of its own, which gets the first slot behind those of its base.
template <class Base>
class HostClass : public Base
{
public:
    virtual void Own() {}

protected:
    ~HostClass() = default;
};

template <class Base>
std::ptrdiff_t SlotCount()
{
    return Slot(&HostClass<Base>::Own);
}

template <class... Members>
void ExpectSlotsFrom(std::ptrdiff_t first, Members... members)
{
    for (std::ptrdiff_t slot : {Slot(members)...})
        EXPECT_EQ(slot, first++);
}

TEST(VirtualSlots, stand_in_the_published_order)
{
    // Two destructor entries stand first.
    ExpectSlotsFrom(2, &CShape::Save, &CShape::Read, &CShape::Copy, &CShape::Contains, &CShape::Offset, &CShape::Resize,
                    &CShape::RotateLeft, &CShape::RotateRight, &CShape::Rotate, &CShape::MirrorX, &CShape::MirrorY,
                    &CShape::MirrorFixedOrMovingLine, &CShape::MirrorAttachLine, &CShape::GetRect, &CShape::GetRectUI,
                    &CShape::SetColor, &CShape::IsClose, &CShape::Close, &CShape::IsFilled, &CShape::RestoreFilledShape,
                    &CShape::ProcessFilledShape, &CShape::SetGuideLine, &CShape::SetPath, &CShape::Select,
                    &CShape::Flatten, &CShape::IsSelect, &CShape::GetShapeType, &CShape::Hit, &CShape::Clone,
                    &CShape::UpdatePainterPath);
    ExpectSlotsFrom(2, &IRuler::MM2PixPoint, &IRuler::MM2PixRect, &IRuler::Pix2MMPoint, &IRuler::Pix2MMRect,
                    &IRuler::MM2PixLength, &IRuler::Pix2MMLength);
    ExpectSlotsFrom(0, &ICurveSimulate::Reserved, &ICurveSimulate::Prepare, &ICurveSimulate::Optimize);
    EXPECT_EQ(Slot(static_cast<bool (CShapeText::*)(QPoint, int&)>(&CShapeText::Hit)), 32);
    EXPECT_EQ(Slot(static_cast<bool (CShapeGroup::*)(QPointF)>(&CShapeGroup::Contains)), 32);
}

TEST(VirtualSlots, are_as_many_as_published)
{
    EXPECT_EQ(SlotCount<CShape>(), 32);
    EXPECT_EQ(SlotCount<CShapeVector>(), 32);
    EXPECT_EQ(SlotCount<CShapeText>(), 33);
    EXPECT_EQ(SlotCount<CShapeImage>(), 32);
    EXPECT_EQ(SlotCount<CCodeShapeImage>(), 32);
    EXPECT_EQ(SlotCount<CShapeGroup>(), 33);
    EXPECT_EQ(SlotCount<CShapeArray>(), 33);
    EXPECT_EQ(SlotCount<CShapeList>(), 2);
    EXPECT_EQ(SlotCount<IRuler>(), 8);
    EXPECT_EQ(SlotCount<ICurveSimulate>(), 3);
}

} // namespace
