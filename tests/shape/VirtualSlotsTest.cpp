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

TEST(VirtualSlots, stand_in_the_published_order)
{
    // Two destructor entries stand first, so that the first operation has slot 2.
    const std::ptrdiff_t operations[] = {Slot(&CShape::Save),
                                         Slot(&CShape::Read),
                                         Slot(&CShape::Copy),
                                         Slot(&CShape::Contains),
                                         Slot(&CShape::Offset),
                                         Slot(&CShape::Resize),
                                         Slot(&CShape::RotateLeft),
                                         Slot(&CShape::RotateRight),
                                         Slot(&CShape::Rotate),
                                         Slot(&CShape::MirrorX),
                                         Slot(&CShape::MirrorY),
                                         Slot(&CShape::MirrorFixedOrMovingLine),
                                         Slot(&CShape::MirrorAttachLine),
                                         Slot(&CShape::GetRect),
                                         Slot(&CShape::GetRectUI),
                                         Slot(&CShape::SetColor),
                                         Slot(&CShape::IsClose),
                                         Slot(&CShape::Close),
                                         Slot(&CShape::IsFilled),
                                         Slot(&CShape::RestoreFilledShape),
                                         Slot(&CShape::ProcessFilledShape),
                                         Slot(&CShape::SetGuideLine),
                                         Slot(&CShape::SetPath),
                                         Slot(&CShape::Select),
                                         Slot(&CShape::Flatten),
                                         Slot(&CShape::IsSelect),
                                         Slot(&CShape::GetShapeType),
                                         Slot(&CShape::Hit),
                                         Slot(&CShape::Clone),
                                         Slot(&CShape::UpdatePainterPath)};
    std::ptrdiff_t expected = 2;
    for (std::ptrdiff_t slot : operations)
        EXPECT_EQ(slot, expected++);

    EXPECT_EQ(Slot(&CShapeVector::Save), Slot(&CShape::Save));
    EXPECT_EQ(Slot(&CShapeVector::Hit), Slot(&CShape::Hit));
    EXPECT_EQ(Slot(&CShapeVector::UpdatePainterPath), Slot(&CShape::UpdatePainterPath));
}

} // namespace
