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

/// "path @ offset: reason", or "clean"
std::string Text(const std::optional<Fault>& fault)
{
    return fault ? QString("%1 @ %2: %3").arg(fault->path).arg(fault->offset).arg(fault->reason).toStdString()
                 : "clean";
}

std::string Verdict(const std::string& hex)
{
    return Text(CheckStream(Span(FromHex(hex)), 0, 14).fault);
}

// Bytes 0 to 51: count 1, tag, common fields without points.
const std::string kOneShape = "01000000", kNoise(104, 'E'), kZeros = "00000000 00000000 ";
const std::string kVector = kOneShape + "01000000" + kEmptyCommon, kGroup = kOneShape + "03000000" + kEmptyCommon;
const std::string kText = kOneShape + "02000000" + kEmptyCommon + "00000000 00"; // the text's length stands at 57
const std::string kArray = kOneShape + "04000000" + kEmptyCommon + "00000000"; // no members; the cells' count is at 56
const std::string kImage = kOneShape + "00000000" + kEmptyCommon + "03000000 00000000"; // the display picture is at 60
const std::string kOnePoint = kOneShape + "01000000" + kZeros + kDefaultGuide + "01000000"; // at 52

TEST(RecordWalk, first_fault)
{
    const std::pair<std::string, const char*> rows[] = {
        {"", "list > count @ 0: needs 4 bytes, 0 are left"},
        {"0100", "list > count @ 0: needs 4 bytes, 2 are left"},
        {"00000000", "clean"},
        {"00000000 EE", "list @ 4: 1 bytes stand behind the last shape"},
        {"02000000" + kVector.substr(8) + "00000000 00",
         "list > count @ 0: 2 shapes need at least 104 bytes, 53 are left"},
        {kOneShape + "09000000" + kNoise, "list > shape 1 > tag @ 4: 9 is no kind of shape"},
        {kOneShape + "01000000 10000000" + kNoise, "(vector) > status @ 8: 16 is outside -16 to 15"},
        {kOneShape + "01000000" + kZeros + "01000000 01000000 000000000000F07F" + kNoise,
         "(vector) > lead-in length @ 24: is not finite"},
        {kOneShape + "01000000" + kZeros + kDefaultGuide + "07000000 00000000 00",
         "(vector) > points @ 48: 7 points need 63 bytes, 5 are left"},
        {kOnePoint + "0000803F 0000C07F 00 00000000 00", "(vector) > point 1 > y @ 56: is not finite"},
        {kOnePoint + "0000803F 00000040 04 00000000 00", "(vector) > point 1 > type @ 60: 4 is outside 0 to 3"},
        {kVector + "07000000 00", "(vector) > vector type @ 52: 7 is outside 0 to 6"},
        {kVector + "06000000 02", "(vector) > extract contour @ 56: 2 is outside 0 to 1"},
        {kVector + "06000000", "(vector) > extract contour @ 56: needs 1 bytes, 0 are left"},
        {kText + "00400000", "(text) > text @ 57: length 16384 is outside 0 to 16383"},
        {kText + "FFFFFFFF", "(text) > text @ 57: length -1 is outside 0 to 16383"},
        {kText + "05000000 4142", "(text) > text @ 61: needs 5 bytes, 2 are left"},
        {kText + "02000000 4100", "(text) > text @ 62: holds a zero byte"},
        {kText + "00000000 40000000", "(text) > family @ 61: length 64 is outside 0 to 63"},
        {kGroup + "01000000 09000000" + kNoise, "(group) > member 1 > tag @ 56: 9 is no kind of shape"},
        // The group's first member takes bytes 56 to 108.
        {kGroup + "02000000 01000000" + kEmptyCommon + "00000000 00" + kText.substr(8) + "00000000 50000000",
         "(group) > member 2 (text) > family @ 166: length 80 is outside 0 to 63"},
        {kGroup + "02000000", "(group) > members @ 52: 2 shapes need at least 104 bytes, 0 are left"},
        {kArray + "FFFFFFFF", "(array) > cells @ 56: 4294967295 cells need 94489280490 bytes, 0 are left"},
        {kArray + "01000000 00000000 000000000000F03F 0000000000000040 02 00",
         "(array) > cell 1 > valid @ 80: 2 is outside 0 to 1"},
        {kImage + "04000000 02000000 08000000 03000000", "[sizes @ 60: 4 x 2 pixels in rows of 3 bytes"},
        {kImage + "04000000 00000000 08000000 04000000", "[sizes @ 60: 4 x 0 pixels in rows of 4 bytes"},
        {kImage + "00000000 02000000 08000000 00000000", "[sizes @ 60: 0 x 2 pixels in rows of 0 bytes"},
        {kImage + "04000000 02000000 18000000 04000000", "[bits @ 68: 24 is not 8"},
        {kImage + "04000000 02000000 08000000 04000000 FFFFFFFF", "[pixels @ 76: needs 8 bytes, 4 are left"},
        {kImage + "FFFFFF7F FFFFFF7F 08000000 FFFFFF7F", "[pixels @ 76: needs 4611686014132420609 bytes, 0 are left"},
    };
    for (const auto& [hex, told] : rows) {
        const std::string verdict = told[0] == '[' ? std::string("(image) > display picture > ") + (told + 1) : told;
        EXPECT_EQ(Verdict(hex), (verdict[0] == '(' ? "list > shape 1 " : "") + verdict);
    }
}

TEST(RecordWalk, groups_nest_256_levels_deep)
{
    const auto nested = [](int levels) { // lists of one group each
        return QByteArray::fromStdString(kGroup).repeated(levels).toStdString() + "00000000";
    };
    EXPECT_EQ(Verdict(nested(256)), "clean");
    const std::string verdict = Verdict(nested(257));
    EXPECT_EQ(verdict.substr(verdict.rfind(" > ")), " > members @ 13364: lies deeper than 256 groups"); // 257 * 52
}

TEST(StreamCheck, finds_where_the_list_begins)
{
    const QByteArray magic = "SHAPEDOC";
    const std::pair<QByteArray, const char*> rows[] = {
        {"", "0, -1: clean"},
        {magic + Raw(14), "12, 14: clean"},
        {magic + Raw(0), "12, 0: clean"},
        {magic + Raw(15), "12, -1: header > version @ 8: 15 is outside 0 to 14"},
        {magic + Raw(-1), "12, -1: header > version @ 8: -1 is outside 0 to 14"},
        {magic + "abc", "11, -1: header > version @ 8: needs 4 bytes, 3 are left"},
        {"SHAPED", "6, -1: header > version @ 6: needs 4 bytes, 0 are left"},
        {"xHApEDyC" + Raw(7), "12, 7: header > magic @ 0: is not \"SHAPEDOC\""},
        {"SHAPxDxC" + Raw(99), "12, -1: header > magic @ 4: is not \"SHAPEDOC\""},
        {"SHAPxxxx" + Raw(7), "0, -1: clean"}, // four letters: a bare stream
    };
    for (const auto& [bytes, told] : rows) {
        const StreamStart start = FindStream(Span(bytes));
        EXPECT_EQ(std::to_string(start.offset) + ", " + std::to_string(start.version) + ": " + Text(start.fault), told);
    }
}

TEST(StreamCheck, tells_which_versions_a_stream_fits_or_comes_nearest_to)
{
    const QByteArray plain = FromHex(kVector + "06000000"), image = FromHex(kImage), none = Raw(0, 0, 8, 0),
                     kept = Raw(1, 2), picture = Raw(4, 1, 8, 4, 5), process = Raw(0, 100, 0, 72, 0, 0, 1.0, 1, 0);
    const std::pair<QByteArray, const char*> rows[] = {
        {Raw(0), "0 to 14"},
        {plain, "0 to 6"},
        {plain + '\0', "7 to 14"},
        {plain + Raw(short{}), "14, 1: list @ 57: 1 bytes stand behind the last shape"},
        {FromHex(kVector + "09000000 00"), "14, 0: list > shape 1 (vector) > vector type @ 52: 9 is outside 0 to 6"},
        {Raw(1, 2) + OldText(0, "AB"), "0"},
        {Raw(1, 2) + OldText(1, "AB"), "1"},
        {image + none + kept, "0 to 12"},
        {image + picture + kept + none + process, "13 to 14"},
    };
    for (const auto& [bytes, told] : rows) {
        const FittingVersions found = FindVersions(Span(bytes), 0);
        const auto& [fault, shapes] = found.result;
        EXPECT_EQ(fault ? std::to_string(found.nearest) + ", " + std::to_string(shapes) + ": " + Text(fault)
                        : found.Text().toStdString(),
                  told);
        EXPECT_EQ(found.versions.empty(), fault.has_value());
    }
}

TEST(StreamCheck, repairs_with_the_version_that_loses_least)
{
    const QByteArray seven = FromHex(kVector + "06000000 00"), six = seven.chopped(1), broken = six + "EE" + six;
    const QByteArray two = FromHex("02000000 01000000" + kZeros + kDefaultGuide +
                                   "02000000 000000000000000000 0000803F0000004000 06000000 EEEE");
    const std::tuple<QByteArray, int, int, int, const char*> rows[] = {
        {seven, 14, 3, 3, "asked for"},
        {seven, 0, 0, 0, "asked for"},
        {six, 4, -1, 4, "the header's"},
        {six, 0, -1, 0, "the header's"},
        {broken, 9, -1, 9, "the header's"},
        {six, 9, -1, 6, "the latest that is clean"},
        {two, -1, -1, 6, "which keeps the most bytes"},
    };
    for (const auto& [stream, header, asked, version, why] : rows)
        EXPECT_EQ(RepairVersion(Span(stream), {0, header, {}}, asked), version) << why;
}

TEST(StoredTexts, come_with_their_families_members_included_as_far_as_the_stream_is_intact)
{
    const QByteArray text = Raw(2) + OldText(1, "AB"), vector = Raw(1) + FromHex(kEmptyCommon + "06000000"),
                     group = Raw(3) + FromHex(kEmptyCommon),
                     bytes = Raw(4) + text + vector + group + Raw(1) + text + text;
    for (const auto& [length, count] : {std::pair{bytes.size(), 3u}, {bytes.size() - 1, 2u}, {qsizetype{0}, 0u}}) {
        const auto stored = StoredTexts(Span(bytes).first(static_cast<size_t>(length)), 0, 1);
        ASSERT_EQ(stored.size(), count);
        for (const StoredText& one : stored)
            EXPECT_EQ(one.family + ": " + one.text, "Arial: AB");
    }
}

} // namespace
