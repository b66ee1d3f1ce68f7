/// What is saved of streams that are damaged by hand, byte for byte.
#include "check/StreamRepair.h"
#include "support/StreamFile.h"

#include <gtest/gtest.h>

#include <tuple>

using namespace test;
using namespace shapedocument;

namespace {

/// A line to a place of its own; 71 bytes. state "08": a group's member.
std::string Line(const std::string& place, const std::string& state = "00")
{
    return "01000000" + state + "000000 FF000000" + kDefaultGuide + "02000000 0000803F 00000040 00 0000" + place +
           " 00008042 00 06000000 00 ";
}

std::string Group(const std::string& list, const std::string& state = "00")
{
    return "03000000" + state + "000000 00000000" + kDefaultGuide + "00000000" + list;
}

std::string Cell(const std::string& number)
{
    return number + "000000 0000000000002440 0000000000003440 01 00 ";
}

/// An array with three cells, or with those that are given.
std::string Array(const std::string& list, const std::string& cells = "03000000" + Cell("00") + Cell("01") + Cell("02"))
{
    return "04000000 00000000 00000000" + kDefaultGuide + "00000000" + list + cells;
}

const std::string kOne = "01000000", kTwo = "02000000", kThree = "03000000", kFour = "04000000";
const std::string A = Line("2041"), B = Line("3041"), C = Line("4041"), D = Line("5041");
const std::string mA = Line("2041", "08"), mB = Line("3041", "08"), mC = Line("4041", "08"), mD = Line("5041", "08");

/// The hex with one byte replaced.
std::string With(const std::string& hex, size_t byte, const std::string& value)
{
    return Compact(hex).replace(2 * byte, 2, value);
}

/// The hex without some of its bytes.
std::string Without(const std::string& hex, size_t byte, size_t count)
{
    return Compact(hex).erase(2 * byte, 2 * count);
}

// Byte 44 of a line is its count of points: no walk gets beyond a wrong one.
const std::string kBad = With(B, 44, "77"), kBadMember = With(mB, 44, "77");

/// A name, what is damaged, what is saved of it, and what is told: see ExpectSaved.
const std::tuple<const char*, std::string, std::string, const char*> kRows[] = {
    {"nothing wrong", kThree + A + B + C, kThree + A + B + C, "3+0 |"},
    {"empty list", "00000000", "00000000", "0+0 |"},
    {"a bad count of points", kThree + A + kBad + C, kTwo + A + C, "1+1 | 75-145"},
    {"a point's type", kThree + A + With(B, 65, "07") + C, kThree + A + B + C, "1+2 ~140 #2 |"},
    // The second point's x, bytes 57 to 60: then the first point's, 1.
    {"a coordinate", kThree + A + With(With(B, 59, "80"), 60, "7F") + C,
     kThree + A + With(With(With(B, 59, "80"), 60, "3F"), 58, "00") + C, "1+2 ~132 #2 |"},
    // 1e12 is no fault before the damage, and out of reach behind it.
    {"far coordinates",
     kFour + With(With(A, 59, "68"), 60, "53") + With(B, 0, "09") + C + With(With(D, 59, "68"), 60, "53"),
     kThree + With(With(A, 59, "68"), 60, "53") + C + With(With(D, 59, "80"), 60, "3F"), "1+2 ~274 #3 | 75-145"},
    {"the first point's", kThree + A + With(With(B, 50, "80"), 51, "7F") + C, kTwo + A + C, "1+1 | 75-145"},
    {"state", kThree + With(A, 4, "40") + B + C, kThree + A + B + C, "0+3 ~8 #1 |"},
    {"a group's state", kTwo + Group(kTwo + mA + mB, "11") + C, kTwo + Group(kTwo + mA + mB, "01") + C, "0+4 ~8 #1 |"},
    {"a member's vector type, and no third one", kTwo + Group(kThree + mA + With(mB, 66, "09")) + D,
     kTwo + Group(kTwo + mA + mB) + D, "1+3 in 1 ~193 #3 |"},
    {"an array's member's", kTwo + Array(kTwo + A + With(B, 66, "09")) + D, kTwo + Array(kTwo + A + B) + D,
     "1+3 ~193 #3 |"},
    {"the same, and what follows is neither a shape nor cells",
     kTwo + Array(kTwo + A + With(B, 66, "09") + "EEEEEEEE") + D, kTwo + Array(kOne + A) + D, "1+2 in 1 | 127-201"},
    {"a bad tag", kThree + With(A, 0, "09") + B + C, kTwo + B + C, "0+2 | 4-74"},
    {"a colour and a length that are unlikely", kFour + A + With(B, 0, "09") + With(C, 11, "EE") + With(D, 27, "7E"),
     kOne + A, "1+0 | 75-287"},
    {"a cut within points", kThree + A + Without(B, 50, 9) + C, kTwo + A + C, "1+1 | 75-136"},
    {"two damages", kFour + A + kBad + C + With(D, 0, "EE") + A, kThree + A + C + A, "1+2 | 75-145 217-287"},
    {"end within a shape", kThree + A + B + Without(C, 40, 31), kTwo + A + B, "2+0 | 146-185"},
    {"count too small", kOne + A + B + C, kThree + A + B + C, "1+2 |"},
    {"count too large", "09000000" + A + B, kTwo + A + B, "2+0 |"},
    {"no count", Without(kThree + A + B + C, 0, 3), kTwo + B + C, "0+2 | 4-71"},
    {"noise at the end", kTwo + A + B + "EEEEEEEE", kTwo + A + B, "2+0 | 146-149"},
    {"noise before", "EEEEEEEEEEEEEE" + A + B, kTwo + A + B, "0+2 | 4-6"},
    {"nothing to save", "EEEEEEEEEEEEEEEEEEEEEE", "00000000", "0+0 | 4-10"},
    {"every member", kTwo + Group(kOne + With(mA, 44, "77")) + D, kOne + D, "0+1 | 4-126"},
    {"a group's head", kTwo + With(Group(kTwo + mA + mB), 0, "EE") + C, kThree + A + B + C, "0+3 | 4-55"},
    {"a group in a group", kTwo + Group(kTwo + Group(kThree + mA + kBadMember + mC, "08") + mD) + D,
     kTwo + Group(kTwo + Group(kTwo + mA + mC, "08") + mD) + D, "1+5 in 1 | 179-249"},
    {"end within a group", kTwo + Group(kThree + mA + mB + Without(mC, 60, 11)), kOne + Group(kTwo + mA + mB),
     "2+1 in 1 | 198-257"},
    {"end within cells", kOne + Without(Array(kOne + A), 189, 4),
     kOne + Array(kOne + A, kTwo + Cell("00") + Cell("01")), "1+1 in 1 | 175-192"},
    {"cells that the host has numbered", kOne + Array(kOne + A, kTwo + Cell("00") + Cell("07")),
     kOne + Array(kOne + A, kTwo + Cell("00") + Cell("07")), "2+0 |"},
    {"an array's first cell", kTwo + Array(kOne + A, kTwo + With(Cell("00"), 20, "EE") + Cell("01")) + D,
     kTwo + Group(kOne + A) + D, "1+2 in 1 | 127-174"},
};

/// told: "shapes before the fault + behind it in groups that are not whole ~ values replaced # their shapes | bytes
/// left out".
void ExpectSaved(const std::string& hex, const std::string& saved, const std::string& told)
{
    const auto listed = [](const char* before, const std::vector<int64_t>& numbers) {
        std::string text;
        for (const int64_t number : numbers)
            text += before + std::to_string(number);
        return text;
    };
    const QByteArray damaged = FromHex(hex);
    const Salvage salvage = SalvageStream(Span(damaged), 0, 14);
    EXPECT_EQ(SavedStream(Span(damaged), salvage).toHex().toStdString(), Compact(saved));
    std::string text = std::to_string(salvage.keptBefore) + "+" + std::to_string(salvage.recovered);
    if (salvage.openGroups > 0)
        text += " in " + std::to_string(salvage.openGroups);
    text += listed(" ~", salvage.mended) + listed(" #", salvage.mendedShapes) + " |";
    for (const ByteRange& range : salvage.skipped)
        text += " " + std::to_string(range.begin) + "-" + std::to_string(range.end - 1);
    EXPECT_EQ(text, told);
}

TEST(StreamRepair, keeps_what_is_intact)
{
    for (const auto& [name, hex, saved, told] : kRows) {
        SCOPED_TRACE(name);
        ExpectSaved(hex, saved, told);
    }
    for (const bool array : {false, true}) {
        SCOPED_TRACE(array ? "array" : "group");
        const auto in = [&](const std::string& list) { return kTwo + (array ? Array(list) : Group(list)) + D; };
        ExpectSaved(in(kThree + mA + kBadMember + mC), in(kTwo + mA + mC), "1+3 in 1 | 127-197");
        ExpectSaved(in(kTwo + mA + kBadMember), in(kOne + mA), "1+2 in 1 | 127-197");
        ExpectSaved(in(kThree + A + kBad + C), in(kTwo + A + C), "1+3 in 1 | 127-197"); // not marked as members
    }
}

/// With the group around it the deepest that documents may have, and one more.
TEST(StreamRepair, nests_members_behind_the_damage_no_deeper_than_documents)
{
    const auto tower = [](int levels) {
        std::string list = kOne + mA;
        for (int level = 1; level < levels; ++level)
            list = kOne + Group(list, "08");
        return Group(list, "08");
    };
    ExpectSaved(kOne + Group(kTwo + kBadMember + tower(255)), kOne + Group(kOne + tower(255)), "0+257 in 1 | 56-126");
    ExpectSaved(kOne + Group(kTwo + kBadMember + tower(256)), kOne + Without(tower(256), 4, 1).insert(8, "00"),
                "0+257 | 4-126");
}

/// Every group of this nest promises much and breaks off 256 levels further in: the search must not walk them all.
TEST(StreamRepair, gives_up_on_bytes_made_to_keep_it_busy)
{
    constexpr int kLevels = 2'000;
    const QByteArray bytes = FromHex(kOne + Group("")).repeated(kLevels) + QByteArray(4, '\0');
    const Salvage salvage = SalvageStream(Span(bytes), 0, 14);
    EXPECT_TRUE(salvage.gaveUp);
    EXPECT_TRUE(salvage.Empty());
}

} // namespace
