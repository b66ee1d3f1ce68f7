/// Pictures of an image shape: working, original, display; their stores, copies and log lines.
#include "group/ShapeGroup.h"
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
    Stores stores;
    CShapeImage shape;
};

} // namespace

TEST_F(ShapeImagePixels, the_display_image_follows_the_edits)
{
    Place(shape, "10203040 50607080 90a0b0c0 d0e0f0ff");
    EXPECT_EQ(Pixels(shape.GetImage(false)), "10203040 50607080 90a0b0c0 d0e0f0ff");
    shape.MirrorX(2);
    EXPECT_EQ(Pixels(shape.GetImage(false)), "ff403020 ff807060 ffc0b0a0 fffff0e0");
    shape.UpdateCropImage({1, 0, 2, 3}, {0, 0, 2, 3}); // pixels of the flipped picture
    EXPECT_EQ(Pixels(shape.GetImage(false)), "4030ffff 8070ffff c0b0ffff");
    EXPECT_EQ(Pixels(shape.GetImage(true)), "10203040 50607080 90a0b0c0 d0e0f0ff") << "the working image stays";
    shape.Reverse();
    shape.RemoveImageCache();
    EXPECT_EQ(Pixels(shape.GetImage(false)), "4030ffff 8070ffff c0b0ffff") << "recorded, but not carried out";
    EXPECT_EQ(TakeLog(), "");
}

TEST_F(ShapeImagePixels, cuts_are_held_against_the_picture)
{
    const auto cut = [&](QRectF rect) {
        Place(shape, "10203040 50607080");
        shape.RemoveImageCache();
        shape.UpdateCropImage(rect, {0, 0, 4, 2});
        return Pixels(shape.GetImage(false));
    };
    EXPECT_EQ(cut({-9, -9, 100, 100}), "10203040 50607080");
    EXPECT_EQ(cut({-1e99, -1e99, 2e99, 2e99}), "10203040 50607080");
    EXPECT_EQ(cut({0, 0, qQNaN(), 1}) + cut({0, 0, 1e300, 1}), "10203040 5060708010203040 50607080") << "ignored";
    EXPECT_EQ(cut({0.4, 0.4, 4, 1}), "10203040 10203040") << "rounded";
    EXPECT_EQ(TakeLog(), "");
    for (const QRectF& outside : {QRectF(4, 0, 4, 4), QRectF(0, 0, 0, 0), QRectF(1e99, 0, -2e99, 4)}) {
        EXPECT_EQ(cut(outside), "empty");
        EXPECT_EQ(TakeLog(), std::string("1 Input image is empty.; 3 CShapeImage::GetImage: ") + kNoPicture);
    }
}

TEST_F(ShapeImagePixels, the_cache_lasts_until_an_edit_of_pixels)
{
    Place(shape, "10203040 50607080");
    const std::function<void(CShapeImage&)> edits[] = {
        [](CShapeImage& s) { s.Rotate(90, QPointF(0, 0), Qt::ZAxis); },
        [](CShapeImage& s) { s.MirrorX(0); },
        [](CShapeImage& s) { s.MirrorY(0); },
        [](CShapeImage& s) { s.MirrorFixedOrMovingLine(QPointF(0, 0), QPointF(1, 3), true); },
        [](CShapeImage& s) { s.Resize(QRectF(0, 0, 9, 9)); },
        [](CShapeImage& s) { s.UpdateCropImage(QRectF(0, 0, 2, 2), QRectF(0, 0, 2, 2)); },
        [](CShapeImage& s) { s.RemoveImageCache(); }};
    for (const auto& edit : edits) {
        EXPECT_FALSE(shape.GetImage(false).empty());
        EXPECT_NE(stores.cache.Get(&shape), nullptr);
        edit(shape);
        EXPECT_EQ(stores.cache.Get(&shape), nullptr) << &edit - edits;
    }
    shape.GetImage(false);
    shape.Offset(5, 5);
    shape.Reverse();
    stores.cache.Get(&shape)->setTo(77);
    EXPECT_EQ(shape.GetImage(false).at<unsigned char>(0), 77)
        << "a move keeps the cache, and the cache is what is shown";
}

TEST_F(ShapeImagePixels, pictures_handed_out_are_the_callers_own)
{
    Place(shape, "10203040");
    for (int round = 0; round < 2; ++round)
        for (const bool raw : {false, true})
            for (cv::Mat image : {shape.GetImage(raw), shape.GetOrgImage(raw)})
                image.setTo(0);
    EXPECT_EQ(Pixels(shape.GetImage(true)), "10203040");
    EXPECT_EQ(Pixels(shape.GetImage(false)), "10203040");
    CShapeImage::SetCacheImageMgr(nullptr);
    shape.GetImage(false).setTo(0);
    EXPECT_EQ(Pixels(shape.GetImage(true)), "10203040");
}

/// GetOrgImage never reads the cache, but leaves its result there: for the host, never to be shown.
TEST_F(ShapeImagePixels, the_edited_original_in_the_cache_is_not_shown)
{
    Place(shape, "10203040");
    cv::Mat original = Grey("a0b0c0d0");
    stores.original.Add(original, &shape);
    EXPECT_EQ(Pixels(shape.GetImage(false)), "10203040");
    EXPECT_EQ(Pixels(shape.GetOrgImage(true)), "a0b0c0d0");
    EXPECT_EQ(Pixels(shape.GetImage(false)), "10203040");
    EXPECT_EQ(Pixels(shape.GetOrgImage(false)), "a0b0c0d0");
    EXPECT_EQ(Pixels(*stores.cache.Get(&shape)), "a0b0c0d0");
    const std::unique_ptr<CShape> clone(shape.Clone());
    EXPECT_EQ(Pixels(static_cast<CShapeImage&>(*clone).GetImage(false)), "10203040");
    EXPECT_EQ(Pixels(shape.GetImage(false)), "10203040");
    EXPECT_EQ(Pixels(*stores.cache.Get(&shape)), "10203040");
    stores.original.Clear();
    EXPECT_EQ(Pixels(shape.GetOrgImage(false)), "10203040") << "the working image stands in";
}

TEST_F(ShapeImagePixels, the_path_is_there_wherever_a_picture_is_shown)
{
    int tolerance = 0;
    const auto hit = [&] { return shape.Hit({2, 0.5}, tolerance); };
    Place(shape, "10203040");
    shape.GetImage(false);
    EXPECT_TRUE(hit()) << "computed";
    shape.Offset(1, 0);
    EXPECT_FALSE(hit()) << "a move drops the path";
    shape.GetImage(false);
    EXPECT_TRUE(hit()) << "from the cache";
    shape.Offset(-1, 0);
    shape.GetOrgImage(false);
    EXPECT_TRUE(hit()) << "the original";
    shape.Save(StreamFile().File());
    EXPECT_TRUE(hit()) << "saved";
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
    EXPECT_EQ(shape.GetOriginalPixelSize(), QSize(0, 0));
    EXPECT_EQ(shape.GetOriginaleSize(), QSize(0, 0));
    cv::Mat none, picture = Grey("10203040");
    shape.RestoreImage(none);
    EXPECT_EQ(TakeLog(), input + "RestoreImage: " + kNoPicture);

    CShapeImage::SetImageMgr(nullptr);
    CShapeImage::SetOrgImageMgr(nullptr);
    CShapeImage::SetCacheImageMgr(nullptr);
    EXPECT_EQ(logged(shape.GetImage(false)), "empty: " + input + "GetImage: " + kNoPicture);
    EXPECT_EQ(logged(shape.GetOrgImage(false)), "empty: " + input + "GetOrgImage: " + kNoPicture);
    shape.SetImage(picture, false);
    EXPECT_EQ(shape.GetBpp(), 1U);
}

TEST_F(ShapeImagePixels, an_outline_without_area_shows_nothing)
{
    Place(shape, "10203040");
    for (const QRectF& rect : {QRectF(), QRectF(0, 0, 4, 0)}) {
        shape.SetOrgRect(rect, true);
        EXPECT_EQ(Pixels(shape.GetImage(false)), "empty");
        EXPECT_EQ(TakeLog(), "3 CShapeImage::GetImage: The outline of the image has no area.");
    }
}

TEST_F(ShapeImagePixels, restore_image_applies_the_edits_to_any_picture)
{
    Place(shape, "10203040");
    shape.MirrorX(2);
    shape.Offset(10, 0);
    cv::Mat picture = Grey("a0b0c0d0");
    const cv::Mat before = picture;
    EXPECT_EQ(Rect(shape.RestoreImage(picture)), "10,0,4,1");
    EXPECT_EQ(Pixels(picture), "ffd0c0b0");
    EXPECT_EQ(Pixels(before), "a0b0c0d0") << "its old pixels are not written to";

    shape.SetImage(picture, true); // the edits once more, then they are forgotten
    EXPECT_EQ(Pixels(picture), "ffb0c0d0");
    EXPECT_EQ(Pixels(shape.GetImage(true)), "ffb0c0d0");
    EXPECT_EQ(Rect(shape.GetRect(true)), "0,0,4,1");
}

/// The stored picture itself may be handed in: other shapes that share it must not see the edits.
TEST_F(ShapeImagePixels, edits_are_baked_into_a_picture_that_others_share)
{
    Place(shape, "10203040");
    CShapeImage other;
    Place(other, "10203040");
    shape.MirrorX(2);
    shape.SetImage(*stores.image.Get(&shape), true);
    EXPECT_EQ(Pixels(shape.GetImage(true)), "ff403020");
    EXPECT_EQ(Pixels(other.GetImage(true)), "10203040");

    cv::Mat picture = Grey("a0b0c0d0");
    for (ImageMgr* store : {&stores.original, &stores.cache}) {
        store->Add(picture, &shape);
        store->Add(picture, &other);
        shape.MirrorX(2);
        store->Add(picture, &shape); // the edit dropped the cached one
        shape.SetImage(*store->Get(&shape), true);
        EXPECT_EQ(Pixels(shape.GetImage(true)), "ffd0c0b0");
        EXPECT_EQ(Pixels(*store->Get(&shape)) + " " + Pixels(*store->Get(&other)), "a0b0c0d0 a0b0c0d0");
    }
}

TEST_F(ShapeImagePixels, copies_share_what_their_source_has)
{
    Place(shape, "10203040");
    cv::Mat original = Grey("a0b0c0d0");
    stores.original.Add(original, &shape);
    shape.SetProperty(CShapeImage::PROPERTY_CODE);
    shape.Rotate(-30, {0, 0}, Qt::ZAxis);
    SImageProcessInfo info;
    info.value0 = 9;
    shape.SetProcessInfo(info);
    std::strcpy(shape.GetFilename(), "a.png");
    shape.GetImage(false);
    const cv::Mat* cached = stores.cache.Get(&shape);

    std::unique_ptr<CShape> clone(shape.Clone());
    auto* copy = dynamic_cast<CShapeImage*>(clone.get());
    ASSERT_NE(copy, nullptr);
    EXPECT_EQ(stores.cache.Get(copy), cached);
    EXPECT_EQ(stores.cache.Get(&shape), nullptr) << "the source gives its cached picture away";
    EXPECT_EQ(stores.image.Get(copy), stores.image.Get(&shape));
    EXPECT_EQ(stores.original.Get(copy), stores.original.Get(&shape));
    EXPECT_EQ(copy->GetProperty(), CShapeImage::PROPERTY_NONE) << "the property is not copied";
    EXPECT_EQ(copy->GetRotateAngle(), 330);
    EXPECT_EQ(copy->GetLastProcessInfo().value0, 9);
    EXPECT_TRUE(copy->GetLastProcessInfo().processed) << "set by SetProcessInfo";
    EXPECT_STREQ(copy->GetFilename(), "a.png");
    EXPECT_EQ(Rect(copy->GetRect(true)), Rect(shape.GetRect(true)));
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
    CShapeImage shown, hidden;
    cv::Mat original = Grey("a0b0c0d0");
    for (CShapeImage* each : {&shape, &shown, &hidden})
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
}

TEST_F(ShapeImagePixels, pictures_that_the_source_lacks_go_with_a_copy_or_a_new_file)
{
    CShapeImage bare;
    cv::Mat picture = Grey("a0b0c0d0");
    const auto held = [&] {
        return bool(stores.image.Get(&shape)) + bool(stores.original.Get(&shape)) + bool(stores.cache.Get(&shape));
    };
    Place(shape, "10203040");
    stores.original.Add(picture, &shape);
    shape.GetImage(false);
    SImageProcessInfo info;
    shape.SetProcessInfo(info);
    shape.Rotate(30, {0, 0}, Qt::ZAxis);
    ASSERT_EQ(shape.OpenImage(FileOf(Encoded(".png", picture)).Path()), 0);
    EXPECT_EQ(Pixels(shape.GetImage(false)), "a0b0c0d0") << "no longer the picture before";
    EXPECT_EQ(shape.GetRotateAngle(), 0);
    EXPECT_FALSE(shape.GetLastProcessInfo().processed);
    EXPECT_TRUE(shape.Copy(&shape));
    EXPECT_EQ(held(), 3);
    EXPECT_TRUE(shape.Copy(&bare));
    EXPECT_EQ(held(), 0);
}

TEST_F(ShapeImagePixels, black_and_white_is_a_flag)
{
    Place(shape, "00ff00ff");
    EXPECT_EQ(shape.GetBpp(), 1U);
    Place(shape, "00ff00fe");
    EXPECT_EQ(shape.GetBpp(), 0U);
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
            CShape* member = image;
            if (grouped) {
                auto* group = new CShapeGroup;
                group->GetShapeList()->AddTail(image);
                member = group;
            }
            const Document list = MakeList<Document>({member});
            byList ? list->Rotate(90, {20, 10}, Qt::ZAxis) : member->Rotate(90, {20, 10}, Qt::ZAxis);
            EXPECT_TRUE(list->Resize({0, 0, 10, 20}));
            EXPECT_EQ(Rect(member->GetRect(false)), "0,0,10,20") << grouped << byList;
            EXPECT_TRUE(list->MirrorX(10));
            EXPECT_EQ(Rect(list->GetRect(false)), "10,0,10,20");
        }
}
