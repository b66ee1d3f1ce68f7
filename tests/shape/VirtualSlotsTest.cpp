/// The virtual tables, which hosts compiled against the interface rely on.
#include "group/ShapeArray.h"
#include "host/ICurveSimulate.h"
#include "host/IRuler.h"
#include "image/CodeShapeImage.h"
#include "list/ShapeList.h"
#include "text/ShapeText.h"

#include <gtest/gtest.h>

#include <bit>

namespace {

/// Slot in the virtual table. By the Itanium C++ ABI a pointer to a virtual member begins with its offset there, plus
/// 1, which marks it as virtual; on ARM the mark is in the second word. One that is not virtual begins with its
/// address.
template <class Member>
size_t Slot(Member member)
{
    struct Words
    {
        size_t offset, adjustment;
    };
    return std::bit_cast<Words>(member).offset / sizeof(void*);
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
constexpr auto kOwn = &HostClass<Base>::Own;

template <class... Members>
void ExpectSlotsFrom(size_t first, Members... members)
{
    for (const size_t slot : {Slot(members)...})
        EXPECT_EQ(slot, first++);
}

TEST(VirtualSlots, stand_in_the_published_order_and_are_no_more)
{
    // Two destructor entries stand first.
    ExpectSlotsFrom(2, &CShape::Save, &CShape::Read, &CShape::Copy, &CShape::Contains, &CShape::Offset, &CShape::Resize,
                    &CShape::RotateLeft, &CShape::RotateRight, &CShape::Rotate, &CShape::MirrorX, &CShape::MirrorY,
                    &CShape::MirrorFixedOrMovingLine, &CShape::MirrorAttachLine, &CShape::GetRect, &CShape::GetRectUI,
                    &CShape::SetColor, &CShape::IsClose, &CShape::Close, &CShape::IsFilled, &CShape::RestoreFilledShape,
                    &CShape::ProcessFilledShape, &CShape::SetGuideLine, &CShape::SetPath, &CShape::Select,
                    &CShape::Flatten, &CShape::IsSelect, &CShape::GetShapeType, &CShape::Hit, &CShape::Clone,
                    &CShape::UpdatePainterPath, kOwn<CShape>);
    ExpectSlotsFrom(2, &IRuler::MM2PixPoint, &IRuler::MM2PixRect, &IRuler::Pix2MMPoint, &IRuler::Pix2MMRect,
                    &IRuler::MM2PixLength, &IRuler::Pix2MMLength, kOwn<IRuler>);
    ExpectSlotsFrom(0, &ICurveSimulate::Reserved, &ICurveSimulate::Prepare, &ICurveSimulate::Optimize,
                    kOwn<ICurveSimulate>);
    ExpectSlotsFrom(2, kOwn<CShapeList>);
    ExpectSlotsFrom(32, static_cast<bool (CShapeText::*)(QPoint, int&)>(&CShapeText::Hit), kOwn<CShapeText>);
    ExpectSlotsFrom(32, static_cast<bool (CShapeGroup::*)(QPointF)>(&CShapeGroup::Contains), kOwn<CShapeGroup>);
    EXPECT_EQ(Slot(kOwn<CShapeArray>), 33u);
    for (const size_t slot : {Slot(kOwn<CShapeVector>), Slot(kOwn<CShapeImage>), Slot(kOwn<CCodeShapeImage>)})
        EXPECT_EQ(slot, 32u);
}

} // namespace
