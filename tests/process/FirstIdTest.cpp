/// The number of a process's very first shape, which only a process of its own can show.
#include "shape/Shape.h"

#include <gtest/gtest.h>

TEST(FirstId, counts_from_zero_and_only_made_shapes_count)
{
    CShape* first = CShape::NewShape(ESHAPE_VECTOR);
    EXPECT_EQ(CShape::NewShape(static_cast<ESHAPE_TYPE>(9)), nullptr);
    CShape* second = CShape::NewShape(ESHAPE_VECTOR);
    ASSERT_TRUE(first && second);
    EXPECT_EQ(first->GetShapeId(), 0u);
    EXPECT_EQ(second->GetShapeId(), 1u);
    CShape::Release(first);
    CShape::Release(second);
}
