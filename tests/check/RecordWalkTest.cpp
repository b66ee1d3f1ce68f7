/// The strict walk: way, place and reason of the first fault, and which versions a stream fits.
#include "check/StreamCheck.h"
#include "support/StreamFile.h"

#include <gtest/gtest.h>

using namespace test;
using namespace shapedocument;

namespace {

std::string ToBytes(const std::string& hex)
{
    return QByteArray::fromHex(QByteArray::fromStdString(hex)).toStdString();
}

std::optional<Fault> FaultOf(const std::string& bytes, int version)
{
    return CheckStream({reinterpret_cast<const unsigned char*>(bytes.data()), bytes.size()}, 0, version).fault;
}

/// "clean", or "path @ offset: reason"
std::string Verdict(const std::string& bytes, int version = 14)
{
    const auto fault = FaultOf(bytes, version);
    return fault ? QString("%1 @ %2: %3").arg(fault->path).arg(fault->offset).arg(fault->reason).toStdString()
                 : "clean";
}

/// The versions that the stream fits.
std::string Versions(const std::string& hex)
{
    std::string versions;
    for (int version = 0; version <= 14; ++version)
        if (!FaultOf(ToBytes(hex), version))
            versions += (versions.empty() ? "" : " ") + std::to_string(version);
    return versions;
}

// Bytes 0 to 51: count 1, tag, common fields without points.
const std::string kOne = "01000000";
const std::string kVectorHead = kOne + "01000000" + kEmptyCommon;
const std::string kTextHead = kOne + "02000000" + kEmptyCommon + "00000000 00"; // the text's length stands at 57
const std::string kGroupHead = kOne + "03000000" + kEmptyCommon;
const std::string kArrayHead = kOne + "04000000" + kEmptyCommon + "00000000"; // no members; the cells' count is at 56
const std::string kImageHead = kOne + "00000000" + kEmptyCommon + "03000000 00000000"; // the display picture is at 60
const std::string kGuideTail = "01000000 00000000 0000000000000840 ";
const std::string kOnePoint = kOne + "01000000 00000000 00000000" + kDefaultGuide + "01000000"; // at 52
const std::string kNoise = "EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE "
                           "EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE EE";

struct FaultRow
{
    const char* name;
    std::string hex;
    const char* verdict;
};

TEST(RecordWalk, first_fault)
{
    const FaultRow rows[] = {
        {"no bytes", "", "list > count @ 0: needs 4 bytes, 0 are left"},
        {"half a count", "0100", "list > count @ 0: needs 4 bytes, 2 are left"},
        {"empty list", "00000000", "clean"},
        {"left over", "00000000 EE", "list @ 4: 1 bytes stand behind the last shape"},
        {"count", "02000000" + kVectorHead.substr(8) + "00000000 00",
         "list > count @ 0: 2 shapes need at least 104 bytes, 53 are left"},
        {"tag", kOne + "09000000" + kNoise, "list > shape 1 > tag @ 4: 9 is no kind of shape"},
        {"status", kOne + "01000000 10000000" + kNoise,
         "list > shape 1 (vector) > status @ 8: 16 is outside -16 to 15"},
        {"guide line", kOne + "01000000 00000000 00000000 01000000 01000000 000000000000F07F" + kGuideTail + kNoise,
         "list > shape 1 (vector) > lead-in length @ 24: is not finite"},
        {"points", kOne + "01000000 00000000 00000000" + kDefaultGuide + "07000000 00000000 00",
         "list > shape 1 (vector) > points @ 48: 7 points need 63 bytes, 5 are left"},
        {"coordinate", kOnePoint + "0000803F 0000C07F 00 00000000 00",
         "list > shape 1 (vector) > point 1 > y @ 56: is not finite"},
        {"point type", kOnePoint + "0000803F 00000040 04 00000000 00",
         "list > shape 1 (vector) > point 1 > type @ 60: 4 is outside 0 to 3"},
        {"vector type", kVectorHead + "07000000 00", "list > shape 1 (vector) > vector type @ 52: 7 is outside 0 to 6"},
        {"flag", kVectorHead + "06000000 02", "list > shape 1 (vector) > extract contour @ 56: 2 is outside 0 to 1"},
        {"end within a record", kVectorHead + "06000000",
         "list > shape 1 (vector) > extract contour @ 56: needs 1 bytes, 0 are left"},
        {"text too long", kTextHead + "00400000",
         "list > shape 1 (text) > text @ 57: length 16384 is outside 0 to 16383"},
        {"negative length", kTextHead + "FFFFFFFF",
         "list > shape 1 (text) > text @ 57: length -1 is outside 0 to 16383"},
        {"end within a text", kTextHead + "05000000 4142",
         "list > shape 1 (text) > text @ 61: needs 5 bytes, 2 are left"},
        {"zero within a text", kTextHead + "02000000 4100", "list > shape 1 (text) > text @ 62: holds a zero byte"},
        {"family", kTextHead + "00000000 40000000",
         "list > shape 1 (text) > family @ 61: length 64 is outside 0 to 63"},
        {"member", kGroupHead + "01000000 09000000" + kNoise,
         "list > shape 1 (group) > member 1 > tag @ 56: 9 is no kind of shape"},
        // The group's first member takes bytes 56 to 108.
        {"second member",
         kGroupHead + "02000000 01000000" + kEmptyCommon + "00000000 00" + kTextHead.substr(8) + "00000000 50000000",
         "list > shape 1 (group) > member 2 (text) > family @ 166: length 80 is outside 0 to 63"},
        {"too many members", kGroupHead + "02000000",
         "list > shape 1 (group) > members @ 52: 2 shapes need at least 104 bytes, 0 are left"},
        {"cells", kArrayHead + "FFFFFFFF",
         "list > shape 1 (array) > cells @ 56: 4294967295 cells need 94489280490 bytes, 0 are left"},
        {"cell", kArrayHead + "01000000 00000000 000000000000F03F 0000000000000040 02 00",
         "list > shape 1 (array) > cell 1 > valid @ 80: 2 is outside 0 to 1"},
        {"narrow rows", kImageHead + "04000000 02000000 08000000 03000000",
         "list > shape 1 (image) > display picture > sizes @ 60: 4 x 2 pixels in rows of 3 bytes"},
        {"flat picture", kImageHead + "04000000 00000000 08000000 04000000",
         "list > shape 1 (image) > display picture > sizes @ 60: 4 x 0 pixels in rows of 4 bytes"},
        {"bits", kImageHead + "04000000 02000000 18000000 04000000",
         "list > shape 1 (image) > display picture > bits @ 68: 24 is not 8"},
        {"pixels", kImageHead + "04000000 02000000 08000000 04000000 FFFFFFFF",
         "list > shape 1 (image) > display picture > pixels @ 76: needs 8 bytes, 4 are left"},
        {"huge picture", kImageHead + "FFFFFF7F FFFFFF7F 08000000 FFFFFF7F",
         "list > shape 1 (image) > display picture > pixels @ 76: needs 4611686014132420609 bytes, 0 are left"},
    };
    for (const FaultRow& row : rows)
        EXPECT_EQ(Verdict(ToBytes(row.hex)), row.verdict) << row.name;
}

TEST(RecordWalk, groups_nest_256_levels_deep)
{
    const auto nested = [](int levels) {
        std::string hex;
        for (int i = 0; i < levels; ++i)
            hex += kGroupHead; // a list of one group
        return ToBytes(hex + "00000000");
    };
    EXPECT_EQ(Verdict(nested(256)), "clean");
    const std::string verdict = Verdict(nested(257));
    EXPECT_EQ(verdict.substr(verdict.rfind(" > ")), " > members @ 13364: lies deeper than 256 groups"); // 257 * 52
}

TEST(RecordWalk, versions_that_a_stream_fits)
{
    EXPECT_EQ(Versions("00000000"), "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14");
    EXPECT_EQ(Versions(kVectorHead + "06000000"), "0 1 2 3 4 5 6");
    EXPECT_EQ(Versions(kVectorHead + "06000000 00"), "7 8 9 10 11 12 13 14");
    EXPECT_EQ(Versions(kVectorHead + "06000000 0000"), "");

    const std::string text = kOne + "02000000" + kEmptyCommon + "06000000";
    const std::string number = "0000000000003440"; // 20
    const std::string first = "02000000 4142 05000000 417269616C 00 01 00" + number;
    const std::string centre = number + number + number, mirrors = "01 00", scales = number + number;
    const std::string align = "03000000" + number;
    EXPECT_EQ(Versions(text + first), "0");
    EXPECT_EQ(Versions(text + first + number), "1");
    EXPECT_EQ(Versions(text + first + centre), "2");
    EXPECT_EQ(Versions(text + first + centre + mirrors), "3");
    EXPECT_EQ(Versions(text + first + centre + mirrors + scales), "4");
    EXPECT_EQ(Versions(text + first + centre + mirrors + scales + align), "5 6");
    const std::string later = text + "01" + first + centre + mirrors + scales + align;
    EXPECT_EQ(Versions(later), "7");
    EXPECT_EQ(Versions(later + number), "8 9 10");
    EXPECT_EQ(Versions(later + number + "2A000000"), "11 12 13 14");

    const std::string picture = "04000000 01000000 08000000 04000000 00FF00FF", reserved = "EEEEEEEE EEEEEEEE";
    const std::string process =
        "00000000 64000000 00000000 48000000 00000000 00000000 000000000000F03F 01000000 00000000";
    EXPECT_EQ(Versions(kImageHead + picture + reserved), "0 1 2 3 4 5 6 7 8 9 10 11 12");
    EXPECT_EQ(Versions(kImageHead + picture + reserved + picture + process), "13 14");
}

} // namespace
