/// Records of texts, version by version.
#include "support/Lists.h"
#include "support/Outline.h"
#include "support/StreamFile.h"
#include "text/MakeText.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstring>
#include <functional>
#include <sstream>
#include <tuple>
#include <utility>

using namespace test;

namespace {

// Colour 0xFF, guide lines as by default.
const std::string kHead = "00000000 FF000000 " + kDefaultGuide;
const std::string kNoPoints = kHead + "00000000 ";
// The rectangle (10,20) to (20,30): five straight points.
const std::string kRectPoints = kHead + "05000000 00002041 0000A041 00 0000A041 0000A041 00 0000A041 0000F041 00"
                                        "00002041 0000F041 00 00002041 0000A041 00 ";
const std::string kVectorType = "00000000 ";
const std::string kContour = "01 ";
// "Hi" LF "x", family "Mono", bold, not italic, horizontal, size 30.
const std::string kText = "04000000 48690A78 04000000 4D6F6E6F 01 00 00 0000000000003E40 ";

/// The fields behind them, each with the first version that carries it, what it holds and what a new text holds.
const struct Field
{
    int since;
    const char *hex, *meaning, *unread;
} kFields[] = {{1, "0000000000002440", "angle 10 ", "angle 0 "},
               {2, "0000000000005940 0000000000006940", "at 100,200 ", "at 0,0 "},
               {3, "01 01", "mirrors 11 ", "mirrors 00 "},
               {4, "0000000000000040 000000000000E03F", "scales 2,0.5 ", "scales 1,1 "},
               {5, "03000000 000000000000F83F", "align 3, letters 1.5 ", "align 0, letters 0 "},
               {8, "00000000000010C0", "lines -4 ", "lines 0 "},
               {11, "2A000000", "reserved 42 ", "reserved 0 "}};

std::string RecordOf(int version, const std::string& points)
{
    std::string hex = points;
    if (version >= 0 && version <= 14)
        hex += kVectorType;
    if (version >= 7 && version <= 14)
        hex += kContour;
    hex += kText;
    for (const Field& field : kFields)
        if (version >= field.since)
            hex += field.hex;
    return Compact(hex);
}

/// What a text holds, the fields of kFields last.
std::string Fields(const SText& text)
{
    std::ostringstream out;
    out << text.pText << " " << text.font.szFamily << " " << int(text.font.bBold) << int(text.font.bItalic)
        << int(text.font.bVerticalText) << " " << text.font.dSize << " angle " << text.dAngle << " at "
        << Point(text.ptCenter) << " mirrors " << int(text.bMirrorX) << int(text.bMirrorY) << " scales " << text.dScaleX
        << "," << text.dScaleY << " align " << text.nAlign << ", letters " << text.dCharSpacing << " lines "
        << text.dLineSpacing << " reserved " << text.nReserved << " ";
    return out.str();
}

std::string SavedHex(CShapeText& text)
{
    return StreamOf(text).toHex().toStdString();
}

/// Reads the hex literal; how many bytes it leaves.
qint64 ReadHex(CShapeText& text, const std::string& hex, int version = 14)
{
    StreamFile stream(hex);
    EXPECT_EQ(text.Read(stream.File(), version), 0);
    return stream.File()->bytesAvailable();
}

/// A host's own class: its layout may look at more than the record, so it is asked at once.
class HostText : public CShapeText
{
public:
    using CShape::CachedPath;
};

} // namespace

/// The layout waits for the first look, but shows the record as it was read, whatever becomes of the parameters.
TEST(ShapeTextRecord, versions_carry_their_fields)
{
    for (int version = -1; version <= 14; ++version) {
        SCOPED_TRACE(version);
        CShapeText shape;
        EXPECT_EQ(ReadHex(shape, RecordOf(version, kNoPoints) + "EEEE", version), 2) << "ends in step";
        SText text = shape.GetText();
        std::string fields = "Hi\nx Mono 100 30 ";
        for (const Field& field : kFields)
            fields += version >= field.since ? field.meaning : field.unread;
        EXPECT_EQ(Fields(text), fields);
        EXPECT_EQ(shape.IsExtractContour(), version >= 7);
        shape.GetTextP()->ptCenter = {-99, -99};
        if (version == 0) // is not laid out by reading
            text.ptCenter = {-99, -99};
        EXPECT_EQ(PathText(shape), PathText(*TextOf(text)));
        HostText hosts;
        ReadHex(hosts, RecordOf(version, kNoPoints), version);
        EXPECT_EQ(hosts.CachedPath() == nullptr, version == 0);
    }
}

TEST(ShapeTextRecord, saves_what_version_14_carries)
{
    CShapeText shape;
    ReadHex(shape, RecordOf(14, kNoPoints));
    SText& text = *shape.GetTextP();
    text.font.bUnderline = text.font.bColumnsLeftToRight = text.bMirrorLine = text.bMirrorAttach = 1;
    EXPECT_EQ(SavedHex(shape), RecordOf(14, kNoPoints));
}

TEST(ShapeTextRecord, versions_0_and_1_take_the_centre_of_the_stored_outline)
{
    const char* const rows[] = {"15,25 0", "15,25 10", "100,200 10"};
    for (const int version : {0, 1, 2}) {
        CShapeText shape;
        shape.GetTextP()->dAngle = 77;
        ReadHex(shape, RecordOf(version, kRectPoints), version);
        EXPECT_EQ(Point(shape.GetTextP()->ptCenter) + " " + Number(shape.GetTextP()->dAngle), rows[version]);
        EXPECT_GT(shape.GetPath(false)->elementCount(), 20) << "the text's letters, not the rectangle";
    }
}

TEST(ShapeTextRecord, lists_turn_texts_up_to_version_1_into_vectors)
{
    for (const int version : {-1, 0, 1, 2}) {
        const Document list = ListFrom(FromHex("01000000 02000000" + RecordOf(version, kNoPoints)), version);
        ASSERT_EQ(list->GetCount(), version == 2 ? 1u : 4u) << "H, the bar and the dot of i, x";
        EXPECT_EQ(list->GetShape(0)->GetShapeType(), version == 2 ? ESHAPE_TEXT : ESHAPE_VECTOR);
        EXPECT_EQ(list->GetShape(0)->GetColor(), 0xFFu);
        const std::string outline = Outline(*list->GetShape(0));
        EXPECT_EQ(std::ranges::count(outline, ' '), version == 2 ? 0 : 12) << "13 points, closed";
        EXPECT_EQ(outline.find('c'), std::string::npos);
    }
}

/// Lengths in the record and in memory, where a host may have left no terminator.
TEST(ShapeTextRecord, strings_beyond_the_buffers_are_cut)
{
    const auto times = [](int count, const char* byte) { return QByteArray(byte).repeated(count).toStdString(); };
    const std::tuple<std::string, size_t, size_t> rows[] = {
        {"01400000" + times(16385, "66") + "41000000" + times(65, "66"), 16383, 63}, {"FFFFFFFF 00000080", 0, 0}};
    for (const auto& [strings, text, family] : rows) {
        CShapeText shape;
        EXPECT_EQ(ReadHex(shape, kNoPoints + kVectorType + strings + "000000 0000000000003E40" + "EEEE", 0), 2);
        const SText& read = *shape.GetTextP();
        EXPECT_EQ(std::tuple(std::strlen(read.pText), std::strlen(read.font.szFamily), read.font.dSize),
                  std::tuple(text, family, 30));
    }
    CShapeText shape;
    std::memset(shape.GetTextP()->pText, 'x', TEXT_BUFFER_SIZE);
    std::memset(shape.GetTextP()->font.szFamily, 'y', sizeof shape.GetTextP()->font.szFamily);
    const std::string saved = "ff3f0000" + times(16383, "78") + "3f000000" + times(63, "79") + "000000";
    EXPECT_EQ(SavedHex(shape).substr(Compact(kNoPoints + kVectorType + kContour).size(), saved.size()), saved);
}

/// "I" of 20 font pixels in version 14, unmirrored, its centre at 100, 200.
const std::string kPlain = kNoPoints + kVectorType + kContour +
                           "01000000 49 00000000 00 00 00 0000000000003440 0000000000000000" + kFields[1].hex + "0000" +
                           kFields[3].hex + kFields[4].hex + kFields[5].hex + kFields[6].hex;

TEST(ShapeTextRecord, an_outline_that_waits_is_that_of_the_record)
{
    CShapeText asked;
    ReadHex(asked, kPlain);
    const QRectF rect = asked.GetRect(false);
    ASSERT_EQ(rect.center(), QPointF(100, 200));
    const auto move = [](CShapeText& text) { text.GetTextP()->ptCenter = QPointF(); };
    const std::tuple<const char*, std::function<void(CShapeText&)>, QPointF> rows[] = {
        {"units change the parameters", [](CShapeText& text) { text.PixToMm(2, QPointF()); }, rect.center()},
        {"edited", move, rect.center()},
        {"rebuilt", [&](CShapeText& text) { move(text), text.UpdatePainterPath(); }, {}},
        {"dropped before", [&](CShapeText& text) { CShape::DeletePath(&text), move(text); }, {}},
        {"assigned to itself", [&](CShapeText& text) { text = std::as_const(text), move(text); }, rect.center()},
        {"member-wise copies start without", [&](CShapeText& text) { text = CShapeText(text), move(text); }, {}}};
    for (const auto& [name, change, centre] : rows) {
        CShapeText text;
        ReadHex(text, kPlain);
        change(text);
        EXPECT_EQ(Point(text.GetRect(false).center()), Point(centre)) << name;
    }
    CShapeText kept; // a host may keep the address from before
    SText* parameters = kept.GetTextP();
    ReadHex(kept, kPlain);
    parameters->ptCenter = QPointF();
    EXPECT_EQ(kept.GetRect(false), rect);
}

/// Texts that were read keep no more than their letters, until a host asks for the buffer; from then on it stays.
TEST(ShapeTextRecord, buffer_of_a_text_that_was_read_is_whole)
{
    CShapeText text, assigned, target;
    for (CShapeText* shape : {&text, &assigned, &target})
        ReadHex(*shape, kPlain);
    SText longest;
    std::memset(longest.pText, 'x', TEXT_BUFFER_SIZE); // without terminator
    target.SetText(longest);
    assigned = target;
    std::memset(text.GetTextP()->pText, 'x', TEXT_BUFFER_SIZE);
    for (CShapeText* shape : {&text, &assigned, &target})
        EXPECT_EQ(std::memcmp(shape->GetTextP()->pText, longest.pText, TEXT_BUFFER_SIZE), 0);
    ReadHex(text, kPlain);
    EXPECT_STREQ(text.GetText().pText, "I");

    const CShapeText neverLent;
    for (const bool assign : {false, true}) { // a host may keep it over an assignment and the next reading
        SText* lent = text.GetTextP();
        if (assign)
            text = neverLent;
        ReadHex(text, kPlain);
        std::memset(lent->pText, 'y', TEXT_BUFFER_SIZE - 1);
        EXPECT_EQ(std::string(text.GetText().pText, TEXT_BUFFER_SIZE - 1), std::string(TEXT_BUFFER_SIZE - 1, 'y'));
    }
}

// The points of a mirrored text are mirrored with it, once.
TEST(ShapeTextRecord, points_are_saved_as_the_outline_is_drawn)
{
    const std::string record = RecordOf(14, kRectPoints); // mirrored in both directions
    CShapeText text, copy;
    ReadHex(text, record);
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(SavedHex(text), record) << "rebuilt " << round << " times";
        text.UpdatePainterPath();
    }
    copy.Copy(&text);
    copy.UpdatePainterPath();
    EXPECT_EQ(SavedHex(copy), record);

    text.MirrorX(0); // after the last rebuild
    const std::string turned = SavedHex(text);
    EXPECT_NE(turned, record);
    text.UpdatePainterPath();
    EXPECT_EQ(SavedHex(text), turned);
    text.MirrorX(0);
    EXPECT_EQ(SavedHex(text), record);
}

TEST(ShapeTextRecord, pending_line_mirrors_are_carried_out_by_save)
{
    CShapeText text, back;
    ReadHex(text, kPlain);
    text.MirrorAttachLine(50, true); // the centre at 100,200 goes to 0,200
    const std::string saved = SavedHex(text);
    EXPECT_EQ(saved, SavedHex(text));
    ReadHex(back, saved);
    EXPECT_EQ(back.GetRect(false).center(), QPointF(0, 200));
    EXPECT_TRUE(back.GetTextP()->bMirrorX);
}
