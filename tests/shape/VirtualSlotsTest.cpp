/// The order of the virtual operations, which hosts compiled against the interface rely on.
#include "vector/ShapeVector.h"

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
    EXPECT_EQ(Slot(&CShapeVector::UpdatePainterPath), Slot(&CShape::UpdatePainterPath));
}

} // namespace
