/// CShapeVector: fields, copies and the bytes of the record.
#include "support/Outline.h"
#include "support/StreamFile.h"
#include "support/StubShape.h"
#include "vector/ShapeVector.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace test;

namespace {

const std::string kEmptyCommon = "00000000 00000000 01000000 01000000 0000000000000840 01000000 00000000"
                                 "0000000000000840 00000000";

TEST(ShapeVectorRecord, golden_bytes)
{
    CShapeVector shape;
    shape.SetVectorType(static_cast<EVECTOR_TYPE>(-2)); // any number is kept
    shape.SetExtractContour(true);
    StreamFile stream;
    EXPECT_EQ(shape.Save(stream.File()), 0);
    EXPECT_EQ(stream.Hex(), Compact(kEmptyCommon + "FEFFFFFF 01"));
    shape.SetExtractContour(false);
    StreamFile other;
    shape.Save(other.File());
    EXPECT_EQ(other.Hex(), Compact(kEmptyCommon + "FEFFFFFF 00"));
    EXPECT_EQ(shape.Save(nullptr), 0);
    EXPECT_EQ(shape.Read(nullptr, 14), 0);
}

TEST(ShapeVectorRecord, the_version_says_which_fields_are_read)
{
    const std::tuple<int, const char*, int, bool, int> rows[] = {
        {0, "05000000 01 AA", 5, false, 48},  {3, "05000000 01 AA", 5, false, 48},
        {6, "05000000 01 AA", 5, false, 48},  {7, "05000000 01 AA", 5, true, 49},
        {14, "63000000 01 AA", 99, true, 49}, {15, "05000000 01 AA", 4, false, 44},
        {-1, "05000000 01 AA", 4, false, 44}, {INT32_MIN, "05000000 01 AA", 4, false, 44},
        {14, "05000000 80", 5, true, 49},     {14, "05000000", 5, false, 48},
        {14, "0601", 0x106, false, 46},       {14, "", 4, false, 44},
    };
    for (const auto& [version, fields, type, extract, position] : rows) {
        CShapeVector shape;
        shape.SetVectorType(EVECTOR_BEZIER_CHAIN);
        StreamFile stream(kEmptyCommon + fields);
        EXPECT_EQ(shape.Read(stream.File(), version), 0);
        EXPECT_EQ(shape.GetVectorType(), type) << version << " " << fields;
        EXPECT_EQ(shape.IsExtractContour(), extract) << version << " " << fields;
        EXPECT_EQ(stream.File()->pos(), position) << version << " " << fields;
    }
    CShapeVector shape;
    shape.SetExtractContour(true);
    StreamFile old(kEmptyCommon + "05000000");
    shape.Read(old.File(), 3);
    EXPECT_TRUE(shape.IsExtractContour()) << "keeps its value";
}

TEST(ShapeVectorCopy, takes_the_fields_of_vectors_only)
{
    CShapeVector source;
    source.SetVectorType(EVECTOR_BEZIER_SET);
    source.SetExtractContour(true);
    source.SetColor(5);
    SetOutline(source, "1,1 2,2");
    CShapeVector copy;
    EXPECT_FALSE(copy.Copy(nullptr));
    StubShape stub;
    stub.SetColor(9);
    EXPECT_FALSE(copy.Copy(&stub));
    EXPECT_EQ(copy.GetColor(), 0u);
    CShape* clone = source.Clone();
    auto* vector = dynamic_cast<CShapeVector*>(clone);
    ASSERT_TRUE(vector);
    EXPECT_EQ(vector->GetVectorType(), EVECTOR_BEZIER_SET);
    EXPECT_TRUE(vector->IsExtractContour());
    EXPECT_EQ(vector->GetColor(), 5u);
    EXPECT_EQ(Outline(*vector), "1,1 2,2");
    EXPECT_EQ(vector->GetShapeType(), ESHAPE_VECTOR);
    CShape::Release(clone);
}

} // namespace
