/// Records of image shapes and code images, byte for byte, and what damaged ones give.
#include "image/CodeShapeImage.h"
#include "image/Pictures.h"
#include "list/ShapeList.h"
#include "support/HostDouble.h"
#include "support/Lists.h"
#include "support/Outline.h"
#include "support/StreamFile.h"

#include <gtest/gtest.h>

#include <climits>
#include <functional>

using namespace test;

namespace {

// Status, colour, guide line and the outline 1,2 5,2 5,4 1,4.
const std::string kCommon = "00000000 00000000 " + kDefaultGuide +
                            "05000000"
                            "0000803f 00000040 00  0000a040 00000040 00  0000a040 00008040 00"
                            "0000803f 00008040 00  0000803f 00000040 00";
const std::string kName = "03000000 05000000 612e706e67"; // format 3, "a.png"
const std::string kDisplay = "04000000 02000000 08000000 04000000 10203040 50607080";
const std::string kReserved = "0000000000000000";
const std::string kOriginal = "04000000 02000000 08000000 04000000 a1a2a3a4 a5a6a7a8";
const std::string kProcess = "00000000 64000000 00000000 48000000 00000000 00000000"
                             "000000000000f03f 00000000 00000000";
const std::string kVersion12 = kCommon + kName + kDisplay + kReserved;
const std::string kVersion13 = kVersion12 + kOriginal + kProcess;

/// Of 60 x 47 pixels at 300 dots per inch.
const QSizeF kSize(60 * 25.4 / 300, 47 * 25.4 / 300);

class ShapeImageRecord : public testing::Test
{
protected:
    ShapeImageRecord() { TakeLog(); }

    /// "display | original | unread bytes"
    std::string Read(const std::string& hex, int version)
    {
        StreamFile file(hex);
        shape = std::make_unique<CShapeImage>();
        EXPECT_EQ(shape->Read(file.File(), version), 0);
        const cv::Mat *display = stores.image.Get(shape.get()), *original = stores.original.Get(shape.get());
        return Pixels(display ? *display : cv::Mat()) + " | " + Pixels(original ? *original : cv::Mat()) + " | " +
               std::to_string(file.File()->size() - file.File()->pos());
    }
    std::string Saved() { return StreamOf(*shape).toHex().toStdString(); }
    void SaveAndRead()
    {
        StreamFile file(Saved());
        shape = std::make_unique<CShapeImage>();
        EXPECT_EQ(shape->Read(file.File(), 13), 0);
    }
    std::string Shown() { return Pixels(shape->GetImage(false)); }
    std::string ShownOriginal() { return Pixels(shape->GetOrgImage(false)); }

    Stores stores;
    std::unique_ptr<CShapeImage> shape = std::make_unique<CShapeImage>();
};

/// A display block with that width, height and stride and 8 bytes of pixels.
std::string Sized(int width, int height, int stride)
{
    return kCommon + kName + Raw(width, height, 8, stride).toHex().toStdString() + "1020304050607080" + kReserved;
}

} // namespace

TEST_F(ShapeImageRecord, is_saved_byte_for_byte)
{
    cv::Mat display = Grey("10203040 50607080"), original = Grey("a1a2a3a4 a5a6a7a8");
    Place(*shape, display, {1, 2, 4, 2});
    stores.original.Add(original, shape.get());
    std::strcpy(shape->GetFilename(), "a.png");
    for (int time = 0; time < 2; ++time) { // saving neither shows nor saves another one next time
        EXPECT_EQ(Saved(), Compact(kVersion13));
        EXPECT_EQ(TakeLog(), "");
        ASSERT_NE(stores.cache.Get(shape.get()), nullptr) << "saving leaves the shown picture";
        EXPECT_EQ(Pixels(*stores.cache.Get(shape.get())), "10203040 50607080");
        EXPECT_EQ(Shown(), "10203040 50607080");
    }

    // What the host has been shown stays shown until it drops it, but is not saved.
    cv::Mat edited = Grey("a0b0c0d0 00112233");
    std::string changed = kVersion13;
    changed.replace(changed.find("10203040 50607080"), 17, "a0b0c0d0 00112233");
    shape->SetImage(edited, false);
    EXPECT_EQ(Shown(), "10203040 50607080");
    EXPECT_EQ(Saved(), Compact(changed));
    EXPECT_EQ(Shown(), "a0b0c0d0 00112233");
    shape->RemoveImageCache();
    Saved();
    shape->SetImage(display, false);
    EXPECT_EQ(stores.cache.Get(shape.get()), nullptr) << "nobody but Save has seen it";
    EXPECT_EQ(Saved(), Compact(kVersion13));
}

TEST_F(ShapeImageRecord, version12_ends_behind_the_display_image)
{
    EXPECT_EQ(Read(kVersion12 + "ab", 12), "10203040 50607080 | empty | 1");
    EXPECT_EQ(shape->GetLastProcessInfo().value1, 100) << "as by default";
    EXPECT_EQ(Read(kVersion13 + "ab", 13), "10203040 50607080 | a1a2a3a4 a5a6a7a8 | 1");
    EXPECT_STREQ(shape->GetFilename(), "a.png");
    EXPECT_EQ(shape->GetXDpi(), 96U);
    EXPECT_EQ(Rect(shape->GetOrgRect()) + "; " + Rect(shape->GetImageRect()), "1,2,4,2; 1,2,4,2");
    EXPECT_FALSE(shape->GetLastProcessInfo().processed) << "as stored";
    for (const bool again : {false, true}) { // a second read replaces the outline
        EXPECT_EQ(Outline(*shape), "1,2 5,2 5,4 1,4 1,2") << again;
        EXPECT_EQ(shape->Read(StreamFile(kVersion13).File(), 13), 0);
    }
    EXPECT_EQ(shape->Save(nullptr) + shape->Read(nullptr, 13), 0);
}

TEST_F(ShapeImageRecord, the_rectangle_needs_five_points_that_are_numbers)
{
    std::string four = kCommon.substr(0, kCommon.rfind("0000803f")), noNumber = kCommon;
    four.replace(four.find("05000000"), 2, "04");
    noNumber.replace(noNumber.find("0000803f"), 8, "0000c07f");
    for (const std::string& common : {four, noNumber}) {
        EXPECT_EQ(Read(common + kName + kDisplay + kReserved, 12), "10203040 50607080 | empty | 0");
        EXPECT_EQ(Rect(shape->GetOrgRect()) + ": " + Outline(*shape), "0,0,0,0: 0,0 0,0 0,0 0,0 0,0");
    }
}

/// Turned pictures are saved as they look, within the upright rectangle around them; the edits are gone when read.
TEST_F(ShapeImageRecord, edits_are_saved_as_pixels)
{
    Place(*shape, "10203040 50607080 90a0b0c0 d0e0f0ff");
    shape->Rotate(90, {0, 0}, Qt::ZAxis);
    Saved();
    EXPECT_EQ(Outline(*shape), "0,0 0,4 -4,4 -4,0 0,0") << "the shape itself stays turned";
    SaveAndRead();
    EXPECT_EQ(Outline(*shape), "-4,0 0,0 0,4 -4,4 -4,0");
    EXPECT_EQ(Shown(), "ffd09050 ffe0a060 fff0b070 ffffc080");
}

/// What the record's single precision does to the corners must not reach the pixels, however often a document is saved.
TEST_F(ShapeImageRecord, pictures_do_not_wear_away)
{
    for (const double angle : {0.0, 30.0, 45.0, 90.0, 123.4, 180.0, 270.0}) {
        shape = std::make_unique<CShapeImage>();
        Place(*shape, Textured(60, 47), {QPointF(), kSize});
        shape->Offset(123.4567891, 77.654321);
        if (angle != 0)
            shape->Rotate(angle, shape->GetRect(true).center(), Qt::ZAxis);
        const std::string first = Shown(), firstOriginal = ShownOriginal();
        for (int cycle = 0; cycle < 50; ++cycle) {
            SaveAndRead();
            if (cycle % 2)
                shape->Offset(0.1 + 0.01 * cycle, -0.07 * cycle);
        }
        EXPECT_EQ(Shown(), first) << angle;
        EXPECT_EQ(ShownOriginal(), firstOriginal) << angle;
    }
}

/// A host that processes the working picture hands it back before each save: the original is not touched by that.
TEST_F(ShapeImageRecord, originals_outlast_edits_of_the_working_picture)
{
    Place(*shape, Textured(60, 47), {QPointF(123.4567891, 77.654321), kSize});
    stores.original.Add(*stores.image.Get(shape.get()), shape.get());
    const std::string first = ShownOriginal();
    for (int cycle = 0; cycle < 10; ++cycle) {
        cv::Mat working = shape->GetImage(true);
        shape->SetImage(working, cycle % 2);
        SaveAndRead();
    }
    EXPECT_EQ(ShownOriginal(), first);
    shape->SetOrgRect({0, 0, 60, 94}, true);
    EXPECT_EQ(shape->GetOrgImage(false).rows, 94) << "another rectangle warps it again";
}

/// The rectangle of the record is twice as high as its picture: only a warp would make up for that.
TEST_F(ShapeImageRecord, only_edits_warp_a_picture_that_was_read)
{
    // Rows of the picture, rounded to even: 0, 0.5, 1 and 1.5, which lies outside.
    const char *const asRead = "10203040 50607080", *const warped = "10203040 10203040 50607080 ffffffff";
    std::string tall = kVersion13;
    for (size_t at; (at = tall.find("00008040 00 ")) != std::string::npos;)
        tall.replace(at, 8, "0000c040"); // the bottom: 6 instead of 4
    const std::pair<std::function<void(CShapeImage&)>, const char*> rows[] = {
        {[](CShapeImage&) {}, asRead},
        {[](CShapeImage& image) { image.Offset(0.5, 3); }, asRead},
        {[](CShapeImage& image) { image.MovePos(QPointF(7, 8)); }, asRead},
        {[](CShapeImage& image) { image.Reverse(); }, asRead},
        {[](CShapeImage& image) { image.SetOrgRect(image.GetOrgRect(), false); }, warped},
        {[](CShapeImage& image) { image.Resize(QRectF(1, 2, 4, 4)); }, warped},
        {[](CShapeImage& image) { image.UpdateCropImage(QRectF(0, 0, 4, 2), QRectF(1, 2, 4, 2)); },
         "10203040 10203040"},
        {[](CShapeImage& image) { image.SetImage(*std::make_unique<cv::Mat>(image.GetImage(true)), false); }, warped}};
    for (const auto& [work, pixels] : rows)
        for (const bool saved : {false, true}) {
            Read(tall, 13);
            if (saved)
                Saved();
            work(*shape);
            EXPECT_EQ(Shown(), pixels) << saved;
        }
    Read(tall, 13);
    EXPECT_EQ(ShownOriginal(), "a1a2a3a4 a5a6a7a8");
    cv::Mat working = shape->GetImage(true), other = Grey("10203040");
    shape->RestoreImage(working);
    shape->RestoreImage(other);
    EXPECT_EQ(Pixels(working), asRead);
    EXPECT_EQ(other.rows, 2) << "not the picture that was read";
    CShapeImage assigned;
    Place(assigned, "10203040 50607080");
    assigned = *shape;
    EXPECT_EQ(Pixels(assigned.GetImage(false)), warped) << "its picture is its own, which nobody has read";
    const std::unique_ptr<CShape> clone(shape->Clone());
    EXPECT_EQ(Pixels(static_cast<CShapeImage&>(*clone).GetImage(false)), asRead);
}

TEST_F(ShapeImageRecord, empty_pictures_are_saved_as_such_and_logged)
{
    const std::string empty = "00000000 00000000 08000000 00000000";
    EXPECT_TRUE(Saved().ends_with(Compact("03000000 00000000" + empty + kReserved + empty + kProcess)));
    const std::string log = TakeLog();
    EXPECT_TRUE(log.find("; 3 Invalid ShapeImage ; ") != log.npos && log.ends_with("; 3 Org Invalid ShapeImage "))
        << log;
    EXPECT_EQ(Read(kCommon + kName + empty + kReserved + "ab", 12), "empty | empty | 1");
}

TEST_F(ShapeImageRecord, impossible_sizes_and_names_give_an_empty_image_in_step)
{
    const auto named = [](const char* length, size_t bytes) {
        return kCommon + "03000000" + length + std::string(2 * bytes, '6') + kDisplay + kReserved;
    };
    const std::pair<std::string, const char*> rows[] = {
        {Sized(3, 2, 4), "102030 506070 | empty | 1"}, // rows longer than the picture
        {kCommon + kName + kDisplay.substr(0, kDisplay.size() - 4), "10203040 5060ab00 | empty | 0"}, // black
        {Sized(5, 2, 4), "empty | empty | 1"}, // stride below width
        {Sized(0, 2, 4), "empty | empty | 1"},
        {Sized(-1, 2, 4), "empty | empty | 1"},
        {Sized(4, -1, 4), "empty | empty | 9"}, // no rows, no bytes
        {Sized(4, 2, -1), "empty | empty | 9"},
        {Sized(INT_MAX, INT_MAX, INT_MAX), "empty | empty | 0"}, // the whole rest is claimed
        {named("04010000", 260), "empty | empty | 1"},
        {named("ffffffff", 0), "empty | empty | 1"},
        {named("ffffff7f", 0), "empty | empty | 0"},
        {named("03010000", 259), "10203040 50607080 | empty | 1"}};
    for (const auto& [record, expected] : rows)
        EXPECT_EQ(Read(record + "ab", 12), expected);
    EXPECT_EQ(strlen(shape->GetFilename()), 259U);
}

TEST_F(ShapeImageRecord, code_images_carry_kind_and_text)
{
    CCodeShapeImage code;
    EXPECT_EQ(code.GetProperty(), CShapeImage::PROPERTY_CODE);
    Place(code, "10203040");
    code.SetCodeType(false);
    code.SetCodeText(QString::fromUtf8("Ä1"));
    EXPECT_EQ(StreamOf(code).last(8).toHex(), "0003000000c38431") << "bytes, not characters";

    const std::unique_ptr<CShape> clone(code.Clone());
    auto* copy = dynamic_cast<CCodeShapeImage*>(clone.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(copy->GetShapeType(), ESHAPE_CODEIMAGE);
    EXPECT_EQ(copy->GetCodeText(), QString::fromUtf8("Ä1"));
    EXPECT_FALSE(copy->GetCodeType());
    EXPECT_EQ(stores.image.Get(copy), stores.image.Get(&code));
    EXPECT_FALSE(code.Copy(shape.get())) << "a plain image says nothing of a code";
    EXPECT_EQ(code.GetCodeText(), QString::fromUtf8("Ä1"));
    EXPECT_TRUE(shape->Copy(&code));
    EXPECT_EQ(shape->GetProperty(), CShapeImage::PROPERTY_NONE);
}

TEST_F(ShapeImageRecord, code_fields_are_bounded_by_the_stream)
{
    const auto text = [](const std::string& fields) {
        StreamFile file(kVersion12 + fields);
        CCodeShapeImage code;
        code.SetCodeText("before");
        code.SetCodeType(false);
        EXPECT_EQ(code.Read(file.File(), 12), 0);
        return code.GetCodeText().toStdString() + (code.GetCodeType() ? " 1 " : " 0 ") +
               std::to_string(file.File()->bytesAvailable());
    };
    EXPECT_EQ(text("01 02000000 6162 ff"), "ab 1 1");
    EXPECT_EQ(text("00 00000000 ff"), " 0 1");
    EXPECT_EQ(text("02 ffffff7f 6162"), "ab 1 0") << "any byte but 0 is true";
    EXPECT_EQ(text("00 ffffffff ff"), " 0 1");
    EXPECT_EQ(text(""), " 1 0") << "not stored: the defaults";
    EXPECT_EQ(text("00 0200"), " 0 0");
}

/// A plain image with the property of codes is tagged as one, though its record has no code fields.
TEST_F(ShapeImageRecord, lists_tag_images_that_hold_a_code)
{
    const Document list = MakeList<Document>();
    for (const auto property : {CShapeImage::PROPERTY_NONE, CShapeImage::PROPERTY_CODE}) {
        auto* image = new CShapeImage;
        Place(*image, "10203040");
        image->SetProperty(property);
        list->AddTail(image);
    }
    const Document read = ListFrom(StreamOf(*list), 13);
    EXPECT_EQ(TakeLog(), "3 A plain image with the property of codes is saved: the document cannot be read back.");
    ASSERT_EQ(read->GetCount(), 2U);
    EXPECT_EQ(read->GetShape(0)->GetShapeType(), ESHAPE_IMAGE);
    EXPECT_EQ(read->GetShape(1)->GetShapeType(), ESHAPE_CODEIMAGE);
    EXPECT_EQ(Pixels(dynamic_cast<CShapeImage*>(read->GetShape(1))->GetImage(false)), "10203040");
    const View images = MakeList();
    read->GetAllImageShapes(images.get());
    EXPECT_EQ(images->GetCount(), 1U) << "code images are not among them";
}
