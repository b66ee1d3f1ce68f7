/// The strict walk and what goes by it: the first fault, where the list begins, which versions it fits, stored texts.
#include "check/StoredTexts.h"
#include "check/StreamCheck.h"
#include "check/StreamRepair.h"
#include "support/StreamFile.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace test;
using namespace shapedocument;

namespace {

std::optional<Fault> FaultOf(const std::string& hex, int version)
{
    return CheckStream(Span(FromHex(hex)), 0, version).fault;
}

/// "path @ offset: reason"
std::string Text(const Fault& fault)
{
    return QString("%1 @ %2: %3").arg(fault.path).arg(fault.offset).arg(fault.reason).toStdString();
}

/// "clean", or "path @ offset: reason"
std::string Verdict(const std::string& hex)
{
    const auto fault = FaultOf(hex, 14);
    return fault ? Text(*fault) : "clean";
}

/// The versions that the stream fits.
std::string Versions(const std::string& hex)
{
    std::string versions;
    for (int version = 0; version <= 14; ++version)
        if (!FaultOf(hex, version))
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
const std::string kNoise(104, 'E');

TEST(RecordWalk, first_fault)
{
    const std::pair<std::string, const char*> rows[] = {
        {"", "list > count @ 0: needs 4 bytes, 0 are left"},
        {"0100", "list > count @ 0: needs 4 bytes, 2 are left"},
        {"00000000", "clean"},
        {"00000000 EE", "list @ 4: 1 bytes stand behind the last shape"},
        {"02000000" + kVectorHead.substr(8) + "00000000 00",
         "list > count @ 0: 2 shapes need at least 104 bytes, 53 are left"},
        {kOne + "09000000" + kNoise, "list > shape 1 > tag @ 4: 9 is no kind of shape"},
        {kOne + "01000000 10000000" + kNoise, "(vector) > status @ 8: 16 is outside -16 to 15"},
        {kOne + "01000000 00000000 00000000 01000000 01000000 000000000000F07F" + kGuideTail + kNoise,
         "(vector) > lead-in length @ 24: is not finite"},
        {kOne + "01000000 00000000 00000000" + kDefaultGuide + "07000000 00000000 00",
         "(vector) > points @ 48: 7 points need 63 bytes, 5 are left"},
        {kOnePoint + "0000803F 0000C07F 00 00000000 00", "(vector) > point 1 > y @ 56: is not finite"},
        {kOnePoint + "0000803F 00000040 04 00000000 00", "(vector) > point 1 > type @ 60: 4 is outside 0 to 3"},
        {kVectorHead + "07000000 00", "(vector) > vector type @ 52: 7 is outside 0 to 6"},
        {kVectorHead + "06000000 02", "(vector) > extract contour @ 56: 2 is outside 0 to 1"},
        {kVectorHead + "06000000", "(vector) > extract contour @ 56: needs 1 bytes, 0 are left"},
        {kTextHead + "00400000", "(text) > text @ 57: length 16384 is outside 0 to 16383"},
        {kTextHead + "FFFFFFFF", "(text) > text @ 57: length -1 is outside 0 to 16383"},
        {kTextHead + "05000000 4142", "(text) > text @ 61: needs 5 bytes, 2 are left"},
        {kTextHead + "02000000 4100", "(text) > text @ 62: holds a zero byte"},
        {kTextHead + "00000000 40000000", "(text) > family @ 61: length 64 is outside 0 to 63"},
        {kGroupHead + "01000000 09000000" + kNoise, "(group) > member 1 > tag @ 56: 9 is no kind of shape"},
        // The group's first member takes bytes 56 to 108.
        {kGroupHead + "02000000 01000000" + kEmptyCommon + "00000000 00" + kTextHead.substr(8) + "00000000 50000000",
         "(group) > member 2 (text) > family @ 166: length 80 is outside 0 to 63"},
        {kGroupHead + "02000000", "(group) > members @ 52: 2 shapes need at least 104 bytes, 0 are left"},
        {kArrayHead + "FFFFFFFF", "(array) > cells @ 56: 4294967295 cells need 94489280490 bytes, 0 are left"},
        {kArrayHead + "01000000 00000000 000000000000F03F 0000000000000040 02 00",
         "(array) > cell 1 > valid @ 80: 2 is outside 0 to 1"},
        {kImageHead + "04000000 02000000 08000000 03000000",
         "(image) > display picture > sizes @ 60: 4 x 2 pixels in rows of 3 bytes"},
        {kImageHead + "04000000 00000000 08000000 04000000",
         "(image) > display picture > sizes @ 60: 4 x 0 pixels in rows of 4 bytes"},
        {kImageHead + "00000000 02000000 08000000 00000000",
         "(image) > display picture > sizes @ 60: 0 x 2 pixels in rows of 0 bytes"},
        {kImageHead + "04000000 02000000 18000000 04000000", "(image) > display picture > bits @ 68: 24 is not 8"},
        {kImageHead + "04000000 02000000 08000000 04000000 FFFFFFFF",
         "(image) > display picture > pixels @ 76: needs 8 bytes, 4 are left"},
        {kImageHead + "FFFFFF7F FFFFFF7F 08000000 FFFFFF7F",
         "(image) > display picture > pixels @ 76: needs 4611686014132420609 bytes, 0 are left"},
    };
    for (const auto& [hex, verdict] : rows)
        EXPECT_EQ(Verdict(hex), (verdict[0] == '(' ? "list > shape 1 " : "") + std::string(verdict));
}

TEST(RecordWalk, groups_nest_256_levels_deep)
{
    const auto nested = [](int levels) { // lists of one group each
        return QByteArray::fromStdString(kGroupHead).repeated(levels).toStdString() + "00000000";
    };
    EXPECT_EQ(Verdict(nested(256)), "clean");
    const std::string verdict = Verdict(nested(257));
    EXPECT_EQ(verdict.substr(verdict.rfind(" > ")), " > members @ 13364: lies deeper than 256 groups"); // 257 * 52
}

TEST(RecordWalk, versions_that_a_stream_fits)
{
    const std::string text = kOne + "02000000" + kEmptyCommon + "06000000";
    const std::string first = "02000000 4142 05000000 417269616C 00 01 00 0000000000003440"; // AB, Arial, 20
    const std::string picture = "04000000 01000000 08000000 04000000 00FF00FF", reserved = "EEEEEEEE EEEEEEEE";
    const std::string none = "00000000 00000000 08000000 00000000";
    const std::string process =
        "00000000 64000000 00000000 48000000 00000000 00000000 000000000000F03F 01000000 00000000";
    const std::pair<std::string, const char*> rows[] = {
        {"00000000", "0 1 2 3 4 5 6 7 8 9 10 11 12 13 14"},
        {kVectorHead + "06000000", "0 1 2 3 4 5 6"},
        {kVectorHead + "06000000 00", "7 8 9 10 11 12 13 14"},
        {kVectorHead + "06000000 0000", ""},
        {text + first, "0"},
        {text + first + "0000000000003440", "1"},
        {kImageHead + none + reserved, "0 1 2 3 4 5 6 7 8 9 10 11 12"},
        {kImageHead + picture + reserved + none + process, "13 14"},
    };
    for (const auto& [hex, versions] : rows)
        EXPECT_EQ(Versions(hex), versions) << hex;
}

TEST(StreamCheck, finds_where_the_list_begins)
{
    const QByteArray magic = "SHAPEDOC";
    const std::tuple<QByteArray, int64_t, int, const char*> rows[] = {
        {"", 0, -1, ""},
        {magic + Raw(14), 12, 14, ""},
        {magic + Raw(0), 12, 0, ""},
        {magic + Raw(15), 12, -1, "header > version @ 8: 15 is outside 0 to 14"},
        {magic + Raw(-1), 12, -1, "header > version @ 8: -1 is outside 0 to 14"},
        {magic + "abc", 11, -1, "header > version @ 8: needs 4 bytes, 3 are left"},
        {"SHAPED", 6, -1, "header > version @ 6: needs 4 bytes, 0 are left"},
        {"xHApEDyC" + Raw(7), 12, 7, "header > magic @ 0: is not \"SHAPEDOC\""},
        {"SHAPxDxC" + Raw(99), 12, -1, "header > magic @ 4: is not \"SHAPEDOC\""},
        {"SHAPxxxx" + Raw(7), 0, -1, ""}, // four letters: a bare stream
    };
    for (const auto& [bytes, offset, version, fault] : rows) {
        SCOPED_TRACE(bytes.toStdString());
        const StreamStart start = FindStream(Span(bytes));
        EXPECT_EQ(start.offset, offset);
        EXPECT_EQ(start.version, version);
        EXPECT_EQ(start.Bare(), offset == 0);
        EXPECT_EQ(start.fault ? Text(*start.fault) : "", fault);
    }
}

TEST(StreamCheck, tells_which_versions_a_stream_fits_or_comes_nearest_to)
{
    const auto told = [](const std::string& hex) {
        const FittingVersions found = FindVersions(Span(FromHex(hex)), 0);
        return std::to_string(found.versions.empty() ? found.nearest : -found.versions.back()) + ", " +
               std::to_string(found.result.shapes) + (found.result.fault ? ", " + Text(*found.result.fault) : "");
    };
    EXPECT_EQ(told(kVectorHead + "06000000"), "-6, 1");
    EXPECT_EQ(told(kVectorHead + "06000000 0000"), "14, 1, list @ 57: 1 bytes stand behind the last shape");
    EXPECT_EQ(told(kVectorHead + "09000000 00"),
              "14, 0, list > shape 1 (vector) > vector type @ 52: 9 is outside 0 to 6");
}

TEST(StreamCheck, repairs_with_the_version_that_loses_least)
{
    const QByteArray seven = FromHex(kVectorHead + "06000000 00"), six = seven.chopped(1), broken = six + "EE" + six;
    const auto version = [](const QByteArray& stream, int header, int asked) {
        return RepairVersion(Span(stream), {0, header, {}}, asked);
    };
    EXPECT_EQ(version(seven, 14, 3), 3) << "asked for";
    EXPECT_EQ(version(seven, 0, 0), 0) << "asked for";
    EXPECT_EQ(version(six, 4, -1), 4) << "the header's, clean";
    EXPECT_EQ(version(six, 0, -1), 0) << "the header's, clean";
    EXPECT_EQ(version(six, 9, -1), 6) << "the latest that is clean";
    EXPECT_EQ(version(broken, 9, -1), 9) << "the header's";
    const std::string two = "02000000 01000000 00000000 00000000" + kDefaultGuide + "02000000 000000000000000000" +
                            "0000803F0000004000 06000000";
    EXPECT_EQ(version(FromHex(two + "EEEE"), -1, -1), 6) << "which keeps the most bytes";
}

TEST(StoredTexts, come_with_their_families_members_included_as_far_as_the_stream_is_intact)
{
    const std::string text = "02000000" + kEmptyCommon +
                             "06000000 02000000 4142 05000000 417269616C 00 01 00" + // AB, Arial
                             "0000000000003440 0000000000000000";
    const std::string vector = "01000000" + kEmptyCommon + "06000000", group = "03000000" + kEmptyCommon;
    const QByteArray bytes = FromHex("04000000" + text + vector + group + "01000000" + text + text);
    for (const auto& [length, count] : {std::pair{bytes.size(), 3u}, {bytes.size() - 1, 2u}, {qsizetype{0}, 0u}}) {
        const auto stored = StoredTexts(Span(bytes).first(static_cast<size_t>(length)), 0, 1);
        ASSERT_EQ(stored.size(), count);
        for (const StoredText& one : stored)
            EXPECT_EQ(one.family + ": " + one.text, "Arial: AB");
    }
}

} // namespace
