/// Pictures of an image shape: working, original, display; their stores, copies and log lines.
#include "image/ImageFiles.h"
#include "image/Pictures.h"
#include "list/ShapeList.h"
#include "support/HostDouble.h"
#include "support/Lists.h"
#include "support/Outline.h"
#include "support/StreamFile.h"
#include "vector/ShapeVector.h"

#include <gtest/gtest.h>

#include <functional>

using namespace test;

namespace {

const char* const kNoPicture = "There is no image to transform.";

class ShapeImagePixels : public testing::Test
{
protected:
    ShapeImagePixels() { TakeLog(); }
    std::string Shown() { return Pixels(shape.GetImage(false)); }
    std::string Working() { return Pixels(shape.GetImage(true)); }
    Stores stores;
    CShapeImage shape;
    cv::Mat original = Grey("a0b0c0d0");
};

} // namespace

TEST_F(ShapeImagePixels, the_display_image_follows_the_edits)
{
    const std::string picture = "10203040 50607080 90a0b0c0 d0e0f0ff";
    Place(shape, picture);
    shape.MirrorX(2);
    EXPECT_EQ(Shown(), "ff403020 ff807060 ffc0b0a0 fffff0e0");
    shape.UpdateCropImage({1, 0, 2, 3}, {0, 0, 2, 3}); // pixels of the flipped picture
    EXPECT_EQ(Shown(), "4030ffff 8070ffff c0b0ffff");
    shape.Reverse();
    shape.RemoveImageCache();
    EXPECT_EQ(Shown(), "4030ffff 8070ffff c0b0ffff") << "recorded, but not carried out";
    EXPECT_EQ(Working(), picture);
    EXPECT_EQ(TakeLog(), "");
}

TEST_F(ShapeImagePixels, cuts_are_held_against_the_picture)
{
    const auto cut = [&](QRectF rect) {
        Place(shape, "10203040 50607080");
        shape.RemoveImageCache();
        shape.UpdateCropImage(rect, {0, 0, 4, 2});
        return Shown();
    };
    for (const QRectF& whole : {QRectF(-9, -9, 100, 100), QRectF(-1e99, -1e99, 2e99, 2e99), QRectF(0, 0, qQNaN(), 1),
                                QRectF(0, 0, 1e300, 1)}) // the last two are ignored
        EXPECT_EQ(cut(whole), "10203040 50607080") << whole.width();
    EXPECT_EQ(cut({0.4, 0.4, 4, 1}), "10203040 10203040") << "rounded";
    EXPECT_EQ(TakeLog(), "");
    for (const QRectF& outside : {QRectF(4, 0, 4, 4), QRectF(0, 0, 0, 0), QRectF(1e99, 0, -2e99, 4)}) {
        EXPECT_EQ(cut(outside), "empty");
        EXPECT_EQ(TakeLog(), std::string("1 Input image is empty.; 3 CShapeImage::GetImage: ") + kNoPicture);
    }
}

TEST_F(ShapeImagePixels, the_cache_is_shown_and_pictures_handed_out_are_the_callers_own)
{
    Place(shape, "10203040");
    for (const bool cached : {true, true, false}) {
        if (!cached)
            CShapeImage::SetCacheImageMgr(nullptr);
        for (const bool raw : {false, true})
            for (cv::Mat image : {shape.GetImage(raw), shape.GetOrgImage(raw)})
                image.setTo(0);
        EXPECT_EQ(Working() + " " + Shown(), "10203040 10203040");
    }
    CShapeImage::SetCacheImageMgr(&stores.cache);
    shape.Offset(5, 5);
    shape.Reverse();
    stores.cache.Get(&shape)->setTo(77);
    EXPECT_EQ(Shown(), "4d4d4d4d") << "neither edit drops it";
}

/// GetOrgImage never reads the cache, but leaves its result there: for the host, never to be shown.
TEST_F(ShapeImagePixels, the_edited_original_in_the_cache_is_not_shown)
{
    Place(shape, "10203040");
    stores.original.Add(original, &shape);
    EXPECT_EQ(Shown(), "10203040");
    for (const bool raw : {true, false}) {
        EXPECT_EQ(Pixels(shape.GetOrgImage(raw)), "a0b0c0d0");
        EXPECT_EQ(Pixels(*stores.cache.Get(&shape)), raw ? "10203040" : "a0b0c0d0");
    }
    const std::unique_ptr<CShape> clone(shape.Clone());
    EXPECT_EQ(Pixels(static_cast<CShapeImage&>(*clone).GetImage(false)) + " " + Shown(), "10203040 10203040");
    EXPECT_EQ(Pixels(*stores.cache.Get(&shape)), "10203040");
    stores.original.Clear();
    EXPECT_EQ(Pixels(shape.GetOrgImage(false)), "10203040") << "the working image stands in";
}

TEST_F(ShapeImagePixels, the_path_is_there_wherever_a_picture_is_shown)
{
    int tolerance = 0;
    const std::function<void()> showing[] = {[&] { shape.GetImage(false); }, // computed
                                             [&] { shape.GetImage(false); }, // from the cache
                                             [&] { shape.GetOrgImage(false); }, [&] { StreamOf(shape); }};
    Place(shape, "10203040");
    for (const auto& show : showing) {
        shape.Offset(0, 0);
        EXPECT_FALSE(shape.Hit({2, 0.5}, tolerance)) << "a move drops the path";
        show();
        EXPECT_TRUE(shape.Hit({2, 0.5}, tolerance)) << &show - showing;
    }
}

TEST_F(ShapeImagePixels, missing_pictures_are_logged_and_empty)
{
    const std::string input = "1 Input image is empty.; 3 CShapeImage::";
    const auto logged = [](const cv::Mat& picture) { return Pixels(picture) + ": " + TakeLog(); };
    shape.SetOrgRect({0, 0, 4, 4}, true);
    EXPECT_EQ(logged(shape.GetImage(true)), "empty: 1 107 mat null ...");
    EXPECT_EQ(logged(shape.GetImage(false)), "empty: 1 107 mat null ...; " + input + "GetImage: " + kNoPicture);
    EXPECT_EQ(logged(shape.GetOrgImage(false)), "empty: 3 GetOrgImage failed");
    EXPECT_EQ(shape.GetBpp(), 1U);
    EXPECT_EQ(TakeLog(), "3 GetOrgImage failed");
    EXPECT_TRUE(shape.GetOriginalPixelSize() == QSize(0, 0) && shape.GetOriginaleSize() == QSize(0, 0));
    cv::Mat picture;
    shape.RestoreImage(picture);
    EXPECT_EQ(logged(picture), "empty: " + input + "RestoreImage: " + kNoPicture);
    Place(shape, "10203040");
    for (const QRectF& rect : {QRectF(), QRectF(0, 0, 4, 0)}) {
        shape.SetOrgRect(rect, true);
        EXPECT_EQ(logged(shape.GetImage(false)),
                  "empty: 3 CShapeImage::GetImage: The outline of the image has no area.");
    }
    CShapeImage::SetImageMgr(nullptr);
    CShapeImage::SetOrgImageMgr(nullptr);
    CShapeImage::SetCacheImageMgr(nullptr);
    EXPECT_EQ(logged(shape.GetImage(false)), "empty: " + input + "GetImage: " + kNoPicture);
    EXPECT_EQ(logged(shape.GetOrgImage(false)), "empty: " + input + "GetOrgImage: " + kNoPicture);
    shape.SetImage(original, false);
    EXPECT_EQ(shape.GetBpp(), 1U);
}

TEST_F(ShapeImagePixels, restore_image_applies_the_edits_to_any_picture)
{
    Place(shape, "10203040");
    shape.MirrorX(2);
    shape.Offset(10, 0);
    cv::Mat picture = original;
    EXPECT_EQ(Rect(shape.RestoreImage(picture)), "10,0,4,1");
    EXPECT_EQ(Pixels(picture), "ffd0c0b0");
    EXPECT_EQ(Pixels(original), "a0b0c0d0") << "its old pixels are not written to";

    shape.SetImage(picture, true); // the edits once more, then they are forgotten
    EXPECT_EQ(Pixels(picture) + " " + Working(), "ffb0c0d0 ffb0c0d0");
    EXPECT_EQ(Rect(shape.GetRect(true)), "0,0,4,1");
}

/// The stored picture itself may be handed in: other shapes that share it must not see the edits.
TEST_F(ShapeImagePixels, edits_are_baked_into_a_picture_that_others_share)
{
    CShapeImage other;
    for (ImageMgr* store : {&stores.image, &stores.original, &stores.cache}) {
        Place(shape, "10203040");
        store->Add(original, &other);
        shape.MirrorX(2);
        store->Add(original, &shape); // an edit drops a cached one
        shape.SetImage(*store->Get(&shape), true);
        EXPECT_EQ(Working() + " " + Pixels(*store->Get(&other)), "ffd0c0b0 a0b0c0d0");
        EXPECT_EQ(Pixels(*store->Get(&shape)), store == &stores.image ? "ffd0c0b0" : "a0b0c0d0");
    }
}

TEST_F(ShapeImagePixels, copies_share_what_their_source_has)
{
    Place(shape, "10203040");
    stores.original.Add(original, &shape);
    shape.SetProperty(CShapeImage::PROPERTY_CODE);
    shape.Rotate(-30, {0, 0}, Qt::ZAxis);
    SImageProcessInfo info{9};
    shape.SetProcessInfo(info);
    std::strcpy(shape.GetFilename(), "a.png");
    shape.GetImage(false);
    const cv::Mat* cached = stores.cache.Get(&shape);

    std::unique_ptr<CShape> clone(shape.Clone());
    auto* copy = dynamic_cast<CShapeImage*>(clone.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(stores.cache.Get(copy), cached);
    EXPECT_EQ(stores.cache.Get(&shape), nullptr) << "the source gives its cached picture away";
    for (ImageMgr* store : {&stores.image, &stores.original})
        EXPECT_EQ(store->Get(copy), store->Get(&shape));
    EXPECT_EQ(copy->GetProperty(), CShapeImage::PROPERTY_NONE) << "the property is not copied";
    EXPECT_TRUE(copy->GetRotateAngle() == 330 && copy->GetLastProcessInfo().processed);
    EXPECT_EQ(StreamOf(*copy), StreamOf(shape)) << "name, rectangle, process info";
    clone.reset();
    EXPECT_NE(stores.image.Get(&shape), nullptr);

    CShapeImage fieldsOnly(shape);
    EXPECT_EQ(stores.image.Get(&fieldsOnly), nullptr);
    EXPECT_EQ(fieldsOnly.GetProperty(), CShapeImage::PROPERTY_CODE);
    shape.GetImage(false);
    CShapeVector vector;
    EXPECT_TRUE(shape.Copy(&shape));
    EXPECT_FALSE(shape.Copy(&vector) || shape.Copy(nullptr));
    EXPECT_NE(stores.cache.Get(&shape), nullptr);
}

/// Plain assignment takes the fields; what is known of its pictures stays with the shape that has them.
TEST_F(ShapeImagePixels, assignment_leaves_the_pictures_alone)
{
    CShapeImage shown, hidden, saved, mirrored;
    for (CShapeImage* each : {&shape, &shown, &hidden, &saved, &mirrored})
        Place(*each, "01020304");
    stores.original.Add(original, &shape);
    stores.original.Add(original, &hidden);
    shown.GetImage(false);
    hidden.GetOrgImage(false); // leaves the edited original in the cache
    shape.GetOrgImage(false);
    hidden = shown;
    shown = shape;
    for (CShapeImage* each : {&hidden, &shown})
        EXPECT_EQ(Pixels(each->GetImage(false)), "01020304");
    EXPECT_EQ(Pixels(*stores.cache.Get(&shown)), "01020304");
    StreamOf(saved); // leaves the display image in the cache
    mirrored.MirrorX(0);
    saved = mirrored;
    EXPECT_EQ(Pixels(saved.GetImage(false)), Pixels(mirrored.GetImage(false))) << "with the other's edits";
}

TEST_F(ShapeImagePixels, nothing_of_an_earlier_picture_outlasts_the_next)
{
    StreamFile record;
    CShapeImage next, bare;
    SImageProcessInfo info;
    Place(next, "01020304");
    record.Fill(StreamOf(next));
    const std::function<bool()> ways[] = {[&] { return Open(shape, Encoded(".png", Grey("01020304"))) == 0; },
                                          [&] { return shape.Read(record.File(), 12) == 0; },
                                          [&] { return shape.Copy(&next); }};
    for (const auto& way : ways) {
        Place(shape, "10203040");
        stores.original.Add(original, &shape);
        shape.SetProcessInfo(info);
        shape.Rotate(30, {0, 0}, Qt::ZAxis);
        shape.GetImage(false);
        EXPECT_TRUE(way());
        EXPECT_EQ(Shown() + " " + Pixels(shape.GetOrgImage(true)), "01020304 01020304");
        EXPECT_FALSE(shape.GetRotateAngle() != 0 || shape.GetLastProcessInfo().processed);
    }
    EXPECT_TRUE(shape.Copy(&bare));
    for (ImageMgr* store : {&stores.image, &stores.original, &stores.cache})
        EXPECT_EQ(store->Get(&shape), nullptr) << "what the source lacks goes";
}

TEST_F(ShapeImagePixels, black_and_white_is_a_flag)
{
    for (const auto& [picture, flag] : {std::pair("00ff00ff", 1U), {"00ff00fe", 0U}}) {
        Place(shape, picture);
        EXPECT_EQ(shape.GetBpp(), flag);
    }
    EXPECT_EQ(shape.GetOriginalPixelSize(), QSize(4, 1));
}

TEST_F(ShapeImagePixels, the_clean_up_takes_out_images_without_picture)
{
    const Document list = MakeList<Document>({new CShapeImage, new CShapeImage});
    Place(*dynamic_cast<CShapeImage*>(list->GetShape(0)), "10203040");
    const std::unique_ptr<CShape> removed(list->GetShape(1));
    TakeLog();
    list->RemoveInvalidShapeItem();
    EXPECT_EQ(list->GetCount(), 1U);
    EXPECT_NE(TakeLog().find("1 图元链表_移除无效图元,图片数据已经无效"), std::string::npos);
    EXPECT_EQ(removed->GetShapeType(), ESHAPE_IMAGE) << "taken out, not freed";
}

/// 40 x 20, turned about its centre: 10,-10,20,40. What comes next goes by that.
TEST_F(ShapeImagePixels, a_list_fits_turned_images)
{
    for (const bool grouped : {false, true})
        for (const bool byList : {false, true}) {
            auto* image = new CShapeImage;
            image->SetOrgRect({0, 0, 40, 20}, true);
            CShape* member = Nested(grouped, image);
            const Document list = MakeList<Document>({member});
            byList ? list->Rotate(90, {20, 10}, Qt::ZAxis) : member->Rotate(90, {20, 10}, Qt::ZAxis);
            EXPECT_TRUE(list->Resize({0, 0, 10, 20}));
            EXPECT_EQ(Rect(member->GetRect(false)), "0,0,10,20") << grouped << byList;
            EXPECT_TRUE(list->MirrorX(10));
            EXPECT_EQ(Rect(list->GetRect(false)), "10,0,10,20");
        }
}
