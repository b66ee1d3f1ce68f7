/// CShape: the bytes of the common record and of strings.
#include "support/Lists.h"

#include <tuple>

using namespace test;

namespace {

TEST(ShapeRecord, golden_bytes)
{
    StubShape shape;
    EXPECT_EQ(StreamOf(shape), FromHex(kEmptyCommon));
    const unsigned int id = shape.GetShapeId();
    StreamFile stream("07000000 FF000000 02000000 00000000 000000000000F8BF FFFFFFFF DEADBEEF 000000000000D03F"
                      "01000000 CDCCCC3D 00002040 01");
    EXPECT_EQ(shape.Read(stream.File(), 14), 0);
    EXPECT_TRUE(shape.GetShapeId() == id && shape.GetStatus() == 7 && shape.GetColor() == 255);
    const auto [mode, in, inLength, out, outLength] = shape.GetGuideLine();
    EXPECT_TRUE(mode == 2 && in == 0 && inLength == -1.5 && out == -1 && outLength == 0.25);
    EXPECT_EQ(shape.m_listPoints[0].x(), 0.100000001490116119384765625);
    stream.Rewind();
    shape.Read(stream.File(), 14);
    EXPECT_EQ(Outline(shape), "c0.1,2.5 c0.1,2.5") << "reading appends";

    SetOutline(shape, "| c0.1,2.5 f-1,16777217"); // 2^24 + 1 is no float: rounds to even
    EXPECT_EQ(StreamOf(shape), FromHex("07000000 FF000000"
                                       "02000000 00000000 000000000000F8BF FFFFFFFF 00000000 000000000000D03F"
                                       "03000000 00000000 00000000 02 CDCCCC3D 00002040 01 000080BF 0000804B 03"));
}

TEST(ShapeRecord, missing_types_are_written_as_zero_and_surplus_ones_left_out)
{
    for (const auto& [outline, points] : {std::pair{"c1,1 ?2,2", "02000000 0000803F0000803F01 000000400000004000"},
                                          {"c1,1 +2 +3", "01000000 0000803F0000803F01"}}) {
        StubShape shape = Outlined(outline);
        EXPECT_EQ(StreamOf(shape).sliced(40), FromHex(points));
    }
}

TEST(ShapeRecord, short_streams_keep_what_is_whole)
{
    const std::string head = "07000000 FF000000" + kDefaultGuide;
    const std::tuple<const char*, std::string, unsigned int, unsigned int, const char*> rows[] = {
        {"nothing", "", 0x8, 0x11223344, ""},
        {"half_a_colour", "07000000 FFEE", 7, 0x1122EEFF, ""},
        {"four_thousand_million_points", head + "FFFFFFFF 0000803F 00000040 01 0000803F 000000", 7, 0xFF, "c1,2"},
        {"type_of_last_point_missing", head + "01000000 0000803F 00000040", 7, 0xFF, ""}};
    for (const auto& [name, bytes, status, color, outline] : rows) {
        StubShape shape;
        shape.SetGroup(true);
        shape.SetColor(0x11223344);
        StreamFile stream(bytes);
        EXPECT_EQ(shape.Read(stream.File(), 14), 0) << name;
        EXPECT_TRUE(shape.GetStatus() == status && shape.GetColor() == color) << name;
        EXPECT_EQ(Outline(shape), outline) << name;
        EXPECT_LT(shape.m_listPoints.capacity(), 100u) << name;
    }
}

TEST(ShapeRecord, strings)
{
    StubShape shape;
    char abc[] = "abc", buffer[8] = "xxxxxxx";
    StreamFile saved, inside("05000000 6162"), none("0500");
    EXPECT_TRUE(shape.SaveString(saved.File(), abc));
    EXPECT_EQ(saved.Hex(), Compact("03000000 616263"));
    // Whatever the length says, only what the stream holds is written.
    EXPECT_TRUE(shape.ReadString(inside.File(), buffer) && buffer == std::string("ab"));
    EXPECT_TRUE(shape.ReadString(none.File(), buffer) && buffer == std::string(""));
    EXPECT_EQ(shape.Save(nullptr) + shape.Read(nullptr, 14), 0);
    EXPECT_FALSE(shape.SaveString(nullptr, abc) || shape.ReadString(nullptr, abc) ||
                 shape.ReadString(saved.File(), nullptr));
}

} // namespace
