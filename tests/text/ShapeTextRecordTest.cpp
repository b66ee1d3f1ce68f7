/// Records of texts, version by version.
#include "support/Lists.h"
#include "support/Outline.h"
#include "support/StreamFile.h"
#include "text/ShapeText.h"

#include <gtest/gtest.h>

#include <sstream>

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
} kFields[] = {{1, "0000000000002440", "angle 10; ", "angle 0; "},
               {2, "0000000000005940 0000000000006940", "centre 100,200; ", "centre 0,0; "},
               {3, "01 01", "mirrors 11; ", "mirrors 00; "},
               {4, "0000000000000040 000000000000E03F", "scales 2,0.5; ", "scales 1,1; "},
               {5, "03000000 000000000000F83F", "align 3, letters 1.5; ", "align 0, letters 0; "},
               {8, "00000000000010C0", "lines -4; ", "lines 0; "},
               {11, "2A000000", "reserved 42; ", "reserved 0; "}};

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

/// The fields of kFields as a text holds them.
std::string Fields(const SText& text)
{
    std::ostringstream out;
    out << "angle " << text.dAngle << "; centre " << Point(text.ptCenter) << "; mirrors " << int(text.bMirrorX)
        << int(text.bMirrorY) << "; scales " << text.dScaleX << "," << text.dScaleY << "; align " << text.nAlign
        << ", letters " << text.dCharSpacing << "; lines " << text.dLineSpacing << "; reserved " << text.nReserved
        << "; ";
    return out.str();
}

/// The same where the fields of the version are read.
std::string FieldsOfVersion(int version)
{
    std::string text;
    for (const Field& field : kFields)
        text += version >= field.since ? field.meaning : field.unread;
    return text;
}

class OpenText : public CShapeText
{
public:
    using CShape::CachedPath;
};

} // namespace

TEST(ShapeTextRecord, versions_carry_their_fields)
{
    for (int version = -1; version <= 14; ++version) {
        StreamFile stream(RecordOf(version, kNoPoints) + "EEEE");
        OpenText shape;
        EXPECT_EQ(shape.Read(stream.File(), version), 0);
        EXPECT_EQ(stream.File()->bytesAvailable(), 2) << "version " << version << " ends in step";
        const SText& text = *shape.GetTextP();
        EXPECT_EQ(Fields(text), FieldsOfVersion(version)) << "version " << version;
        EXPECT_STREQ(text.pText, "Hi\nx");
        EXPECT_STREQ(text.font.szFamily, "Mono");
        EXPECT_TRUE(text.font.bBold && !text.font.bItalic && !text.font.bVerticalText);
        EXPECT_EQ(text.font.dSize, 30);
        EXPECT_EQ(shape.IsExtractContour(), version >= 7);
        EXPECT_EQ(shape.CachedPath() == nullptr, version == 0) << "version " << version << " is laid out";
    }
}

TEST(ShapeTextRecord, saves_what_version_14_carries)
{
    StreamFile stream(RecordOf(14, kNoPoints));
    CShapeText shape;
    shape.Read(stream.File(), 14);
    SText& text = *shape.GetTextP();
    text.font.bUnderline = text.font.bColumnsLeftToRight = text.bMirrorLine = text.bMirrorAttach = 1;
    StreamFile saved;
    EXPECT_EQ(shape.Save(saved.File()), 0);
    EXPECT_EQ(saved.Hex(), RecordOf(14, kNoPoints));
}

// Above version 14 the vector part reads nothing, so that its five bytes are taken for the text's.
TEST(ShapeTextRecord, version_15_comes_out_shifted)
{
    StreamFile stream(RecordOf(14, kNoPoints));
    CShapeText shape;
    EXPECT_EQ(shape.Read(stream.File(), 15), 0);
    // Length 0 from the vector type, then 01 04 00 00 as the family's.
    EXPECT_STREQ(shape.GetTextP()->pText, "");
    EXPECT_STRNE(shape.GetTextP()->font.szFamily, "Mono");
}

TEST(ShapeTextRecord, versions_0_and_1_take_the_centre_of_the_stored_outline)
{
    for (const int version : {0, 1}) {
        StreamFile stream(RecordOf(version, kRectPoints));
        OpenText shape;
        shape.GetTextP()->dAngle = 77;
        shape.Read(stream.File(), version);
        EXPECT_EQ(Point(shape.GetTextP()->ptCenter), "15,25");
        EXPECT_EQ(shape.GetTextP()->dAngle, version == 0 ? 0 : 10);
        EXPECT_EQ(shape.CachedPath() == nullptr, version == 0);
        EXPECT_GT(shape.GetPath(false)->elementCount(), 20) << "the text's letters, not the rectangle";
    }
    StreamFile stream(RecordOf(2, kRectPoints));
    CShapeText shape;
    shape.Read(stream.File(), 2);
    EXPECT_EQ(Point(shape.GetTextP()->ptCenter), "100,200");
}

TEST(ShapeTextRecord, lists_turn_texts_up_to_version_1_into_vectors)
{
    for (const int version : {-1, 0, 1, 2}) {
        StreamFile stream("01000000 02000000" + RecordOf(version, kNoPoints));
        const Document list = MakeList<Document>();
        EXPECT_EQ(list->Read(stream.File(), version), 0);
        if (version == 2) {
            ASSERT_EQ(list->GetCount(), 1u);
            EXPECT_EQ(list->GetShape(0)->GetShapeType(), ESHAPE_TEXT);
            continue;
        }
        // H, the bar and the dot of i, x.
        ASSERT_EQ(list->GetCount(), 4u) << "version " << version;
        auto* first = dynamic_cast<CShapeVector*>(list->GetShape(0));
        ASSERT_TRUE(first);
        EXPECT_EQ(first->GetVectorType(), EVECTOR_MIXED);
        EXPECT_EQ(first->GetColor(), 0xFFu);
        std::vector<QPointF> points;
        std::vector<unsigned char> types;
        first->GetShapePathData(points, types);
        EXPECT_EQ(points.size(), 13u) << "twelve corners and the closing point";
        EXPECT_EQ(types, std::vector<unsigned char>(13, 0));
    }
}

TEST(ShapeTextRecord, stored_lengths_beyond_the_buffers_are_cut)
{
    const std::string tail = "000000 0000000000003E40";
    const auto read = [&](const std::string& strings, CShapeText& shape) {
        StreamFile stream(kNoPoints + kVectorType + strings + tail + "EEEE");
        shape.Read(stream.File(), 0);
        return stream.File()->bytesAvailable();
    };
    const auto letters = [](size_t count) { return std::string(2 * count, '6'); };
    CShapeText longest;
    EXPECT_EQ(read("01400000" + letters(16385) + "41000000" + letters(65), longest), 2);
    EXPECT_EQ(std::strlen(longest.GetTextP()->pText), 16383u);
    EXPECT_EQ(std::strlen(longest.GetTextP()->font.szFamily), 63u);
    EXPECT_EQ(longest.GetTextP()->font.dSize, 30);
    CShapeText negative;
    EXPECT_EQ(read("FFFFFFFF 00000080", negative), 2);
    EXPECT_STREQ(negative.GetTextP()->pText, "");
    EXPECT_EQ(negative.GetTextP()->font.dSize, 30);
}

TEST(ShapeTextRecord, truncated_records_keep_what_they_do_not_reach)
{
    std::string hex = kNoPoints + kVectorType + kContour + kText;
    for (const Field& field : kFields) {
        StreamFile stream(hex);
        CShapeText shape;
        EXPECT_EQ(shape.Read(stream.File(), 14), 0);
        EXPECT_EQ(Fields(*shape.GetTextP()), FieldsOfVersion(field.since - 1));
        hex += field.hex;
    }
    for (size_t digits = 0; digits < hex.size(); digits += 7) {
        StreamFile stream(hex.substr(0, digits));
        CShapeText shape;
        EXPECT_EQ(shape.Read(stream.File(), 14), 0);
        EXPECT_GE(shape.GetPath(false)->elementCount(), 1);
    }
}

TEST(ShapeTextRecord, buffers_without_terminator_are_saved_bounded)
{
    CShapeText shape;
    std::memset(shape.GetTextP()->pText, 'x', TEXT_BUFFER_SIZE);
    std::memset(shape.GetTextP()->font.szFamily, 'y', sizeof shape.GetTextP()->font.szFamily);
    StreamFile stream;
    shape.Save(stream.File());
    stream.Rewind();
    CShapeText back;
    back.Read(stream.File(), 14);
    EXPECT_EQ(std::string(back.GetTextP()->pText), std::string(16383, 'x'));
    EXPECT_EQ(std::string(back.GetTextP()->font.szFamily), std::string(63, 'y'));
}

namespace {

/// "I" of 20 font pixels in version 14, unmirrored, its centre at 100, 200.
std::string PlainRecord()
{
    std::string hex =
        kNoPoints + kVectorType + kContour + "01000000 49 00000000 00 00 00 0000000000003440 0000000000000000";
    for (const Field& field : kFields)
        if (field.since > 1)
            hex += field.since == 3 ? "0000" : field.hex;
    return Compact(hex);
}

} // namespace

TEST(ShapeTextRecord, OutlineThatWaitsIsThatOfTheRecord)
{
    StreamFile stream(PlainRecord());
    const auto read = [&stream](CShapeText& text) {
        stream.Rewind();
        ASSERT_EQ(text.Read(stream.File(), 14), 0);
    };
    CShapeText asked;
    read(asked);
    const QRectF rect = asked.GetRect(false);
    ASSERT_EQ(rect.center(), QPointF(100, 200));

    CShapeText converted; // units change the parameters, the outline follows with the next rebuild
    read(converted);
    converted.PixToMm(2, QPointF());
    EXPECT_EQ(converted.GetRect(false), rect);

    CShapeText edited;
    read(edited);
    edited.GetTextP()->ptCenter = QPointF();
    EXPECT_EQ(edited.GetRect(false), rect);
    edited.UpdatePainterPath();
    EXPECT_EQ(edited.GetRect(false).center(), QPointF());

    CShapeText dropped; // whoever drops the outline first gets the new one
    read(dropped);
    CShape::DeletePath(&dropped);
    dropped.GetTextP()->ptCenter = QPointF();
    EXPECT_EQ(dropped.GetRect(false).center(), QPointF());

    CShapeText kept; // a host may keep the address from before
    SText* parameters = kept.GetTextP();
    read(kept);
    parameters->ptCenter = QPointF();
    EXPECT_EQ(kept.GetRect(false), rect);

    CShapeText itself;
    read(itself);
    const CShapeText& same = itself;
    itself = same;
    itself.GetTextP()->ptCenter = QPointF();
    EXPECT_EQ(itself.GetRect(false), rect);

    CShapeText source; // a copy starts without outline
    read(source);
    CShapeText copy(source);
    copy.GetTextP()->ptCenter = QPointF();
    EXPECT_EQ(copy.GetRect(false).center(), QPointF());
}

TEST(ShapeTextRecord, BufferOfATextThatWasReadIsWhole)
{
    StreamFile stream(PlainRecord());
    CShapeText text, assigned, target;
    for (CShapeText* shape : {&text, &assigned, &target}) {
        stream.Rewind();
        ASSERT_EQ(shape->Read(stream.File(), 14), 0);
    }
    SText longest;
    std::memset(longest.pText, 'x', TEXT_BUFFER_SIZE - 1);
    target.SetText(longest);
    assigned = target;
    std::memset(text.GetTextP()->pText, 'x', TEXT_BUFFER_SIZE - 1);
    for (CShapeText* shape : {&text, &assigned, &target})
        EXPECT_EQ(std::string(shape->GetTextP()->pText, TEXT_BUFFER_SIZE),
                  std::string(longest.pText, TEXT_BUFFER_SIZE));
    stream.Rewind();
    ASSERT_EQ(text.Read(stream.File(), 14), 0);
    EXPECT_STREQ(text.GetText().pText, "I");

    const CShapeText neverLent;
    for (const bool assign : {false, true}) { // a host may keep it over an assignment and the next reading
        SText* lent = text.GetTextP();
        if (assign)
            text = neverLent;
        stream.Rewind();
        ASSERT_EQ(text.Read(stream.File(), 14), 0);
        std::memset(lent->pText, 'y', TEXT_BUFFER_SIZE - 1);
        EXPECT_EQ(std::string(text.GetText().pText), std::string(TEXT_BUFFER_SIZE - 1, 'y'));
    }
}

namespace {

std::string SavedHex(CShapeText& text)
{
    StreamFile stream;
    text.Save(stream.File());
    return stream.Hex();
}

} // namespace

// The points of a mirrored text are mirrored with it, once.
TEST(ShapeTextRecord, points_are_saved_as_the_outline_is_drawn)
{
    StreamFile stream(RecordOf(14, kRectPoints)); // mirrored in both directions
    OpenText read;
    read.Read(stream.File(), 14);
    for (int round = 0; round < 3; ++round) {
        EXPECT_EQ(SavedHex(read), RecordOf(14, kRectPoints)) << "rebuilt " << round << " times";
        read.UpdatePainterPath();
    }
    CShapeText copy;
    copy.Copy(&read);
    copy.UpdatePainterPath();
    EXPECT_EQ(SavedHex(copy), RecordOf(14, kRectPoints));

    CShapeText turned; // mirrored after the last rebuild
    stream.Rewind();
    turned.Read(stream.File(), 14);
    turned.MirrorX(0);
    const std::string first = SavedHex(turned);
    turned.UpdatePainterPath();
    EXPECT_EQ(SavedHex(turned), first);
    turned.MirrorX(0);
    EXPECT_NE(first, RecordOf(14, kRectPoints));
    EXPECT_EQ(SavedHex(turned), RecordOf(14, kRectPoints));

    CShapeText fresh; // a mirrored text takes points of the host as unmirrored, wherever its own came from
    SText text = turned.GetText();
    fresh.SetText(text);
    const std::vector<QPointF> points{{10, 20}, {11, 23}};
    fresh.SetShapePoints(points, ELINE_SEGMENT_STRAIGHT);
    turned.SetShapePoints(points, ELINE_SEGMENT_STRAIGHT);
    SavedHex(turned), SavedHex(fresh);
    EXPECT_EQ(Outline(turned), Outline(fresh));
    EXPECT_NE(Outline(turned), "10,20 11,23");
}

TEST(ShapeTextRecord, pending_line_mirrors_are_carried_out_by_save)
{
    StreamFile stream(PlainRecord());
    CShapeText text;
    text.Read(stream.File(), 14);
    text.MirrorAttachLine(50, true); // the centre at 100,200 goes to 0,200
    const std::string saved = SavedHex(text);
    EXPECT_EQ(saved, SavedHex(text));
    StreamFile again(saved);
    CShapeText back;
    back.Read(again.File(), 14);
    EXPECT_EQ(back.GetRect(false).center(), QPointF(0, 200));
    EXPECT_TRUE(back.GetTextP()->bMirrorX);
}
