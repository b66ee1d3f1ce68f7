/// CShapeVector: fields, copies and the bytes of the record.
#include "support/Lists.h"

#include <tuple>

using namespace test;

namespace {

TEST(ShapeVectorRecord, the_version_says_which_fields_are_read)
{
    const std::tuple<int, const char*, std::vector<qint64>> rows[] = {
        // type, contour flag, position behind it
        {6, "05000000 01 AA", {5, 0, 48}},  {7, "05000000 80 AA", {5, 1, 49}},  {14, "63000000 01 AA", {99, 1, 49}},
        {15, "05000000 01 AA", {4, 0, 44}}, {-1, "05000000 01 AA", {4, 0, 44}}, {14, "0601", {0x106, 0, 46}},
    };
    for (const auto& [version, fields, expected] : rows) {
        CShapeVector shape = Vector(EVECTOR_BEZIER_CHAIN, "");
        StreamFile stream(kEmptyCommon + fields);
        EXPECT_EQ(shape.Read(stream.File(), version), 0);
        EXPECT_EQ((std::vector<qint64>{shape.GetVectorType(), shape.IsExtractContour(), stream.File()->pos()}),
                  expected);
    }
    CShapeVector shape;
    shape.SetExtractContour(true);
    StreamFile old(kEmptyCommon + "05000000");
    EXPECT_EQ(shape.Read(old.File(), 3) + shape.Save(nullptr) + shape.Read(nullptr, 14), 0);
    EXPECT_EQ(StreamOf(shape), FromHex(kEmptyCommon + "05000000 01")) << "the contour flag keeps its value";
}

TEST(ShapeVectorCopy, takes_the_fields_of_vectors_only)
{
    CShapeVector source = Vector(EVECTOR_BEZIER_SET, "1,1 2,2");
    source.SetExtractContour(true);
    source.SetColor(5);
    const std::unique_ptr<CShape> clone(source.Clone());
    auto& copy = dynamic_cast<CShapeVector&>(*clone);
    EXPECT_TRUE(copy.GetVectorType() == EVECTOR_BEZIER_SET && copy.IsExtractContour());
    EXPECT_EQ(Outline(copy), "1,1 2,2");
    StubShape stub;
    EXPECT_FALSE(copy.Copy(nullptr) || copy.Copy(&stub));
    EXPECT_EQ(copy.GetColor(), 5u) << "nothing is taken from other classes";
    EXPECT_TRUE(copy.Copy(&source));
}

} // namespace
