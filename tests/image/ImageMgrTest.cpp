/// Which shapes share which pictures.
#include "image/Pictures.h"
#include "image/PixelBytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <memory>
#include <set>

using test::Grey;
using test::Pixels;

namespace {

class ImageMgrTest : public testing::Test
{
protected:
    /// Which of the shapes a, b, c share an entry: equal letters for equal entries, "-" for none.
    std::string Sharing()
    {
        std::string text;
        std::vector<cv::Mat*> seen;
        for (CShapeImage* shape : {&a, &b, &c}) {
            cv::Mat* image = store.Get(shape);
            const auto at = std::find(seen.begin(), seen.end(), image);
            text += image ? static_cast<char>('A' + (at - seen.begin())) : '-';
            if (image && at == seen.end())
                seen.push_back(image);
        }
        return text;
    }

    ImageMgr store;
    CShapeImage a, b, c;
    cv::Mat one = Grey("01020304"), oneAgain = Grey("01020304"), two = Grey("01020305");
};

} // namespace

TEST_F(ImageMgrTest, equal_bytes_share_an_entry_that_lasts_while_somebody_uses_it)
{
    store.Add(one, &a);
    store.Add(oneAgain, &b);
    store.Add(two, &c);
    EXPECT_EQ(Sharing(), "AAB");
    EXPECT_EQ(store.Get(&b)->data, one.data) << "the first picture is kept, the equal one is not";
    EXPECT_EQ(oneAgain.u->refcount, 1);
    EXPECT_TRUE(store.Remove(&a));
    EXPECT_EQ(Sharing(), "-AB");
    EXPECT_FALSE(store.Remove(&a));
    EXPECT_FALSE(store.Remove(nullptr));
    EXPECT_TRUE(store.Remove(&b));
    EXPECT_EQ(one.u->refcount, 1) << "the picture went with its entry";
    store.Clear();
    EXPECT_EQ(Sharing(), "---");
    EXPECT_EQ(two.u->refcount, 1);
}

TEST_F(ImageMgrTest, a_shape_is_in_one_entry_only)
{
    store.Add(one, &a);
    store.Add(two, &b);
    store.Add(one, &b); // joins an entry before its own
    EXPECT_EQ(Sharing(), "AA-");
    EXPECT_EQ(two.u->refcount, 1) << "the entry left behind is gone";
    store.Add(two, &b); // one byte differs
    EXPECT_EQ(Sharing(), "AB-");
}

TEST_F(ImageMgrTest, a_shape_that_is_already_in_the_matching_entry_gets_a_fresh_one)
{
    store.Add(one, &a);
    store.Add(one, &b);
    store.Add(one, &a);
    EXPECT_EQ(Sharing(), "AB-");
    store.Add(one, &c);
    EXPECT_EQ(Sharing(), "ABB") << "the first matching entry is the one that was there before";
    store.Add(one, &b);
    EXPECT_EQ(Sharing(), "ABC") << "no entry behind its own is looked at";
}

TEST_F(ImageMgrTest, takes_a_picture_from_itself)
{
    store.Add(one, &a);
    one.release();
    store.Add(*store.Get(&a), &a);
    EXPECT_EQ(Pixels(*store.Get(&a)), "01020304");
    store.Add(*store.Get(&a), &b);
    EXPECT_EQ(Sharing(), "AA-");
}

TEST(PixelBytes, of_another_size_kind_or_row_length_are_another_layout)
{
    const cv::Mat wide = Grey("0102030405060708"), tall = Grey("01020304 05060708"), none, part = tall.colRange(0, 2);
    const cv::Mat signedBytes(1, 8, CV_8S, wide.data), deep(std::vector{1, 1, 8}, CV_8U, wide.data);
    const cv::Mat narrow = Grey("0102 0506");
    EXPECT_TRUE(shapes::SameLayout(wide, wide.clone()));
    for (const cv::Mat& other : {tall, none, signedBytes, deep})
        EXPECT_FALSE(shapes::SameLayout(wide, other) || shapes::SameLayout(other, wide));
    EXPECT_FALSE(shapes::SameLayout(none, none) || shapes::SameLayout(part, narrow));
    EXPECT_TRUE(shapes::SameBytes(part, narrow));
    EXPECT_FALSE(shapes::SameBytes(part, Grey("0102 0507")));
    EXPECT_EQ(shapes::FullHash(wide), shapes::FullHash(wide.clone()));
    EXPECT_NE(shapes::FullHash(part), shapes::FullHash(tall.colRange(1, 3)));
}

TEST_F(ImageMgrTest, shares_only_pictures_of_equal_layout)
{
    cv::Mat wide = Grey("0102030405060708"), tall = Grey("01020304 05060708"), none;
    cv::Mat signedBytes(1, 8, CV_8S, wide.data), part = Grey("01020304ffff 05060708ffff").colRange(0, 4);
    const std::vector<cv::Mat*> pictures{&wide, &tall, &signedBytes, &part, &none, &none};
    std::vector<CShapeImage> shapes(pictures.size());
    std::set<cv::Mat*> entries;
    for (size_t i = 0; i < pictures.size(); ++i) {
        store.Add(*pictures[i], &shapes[i]);
        entries.insert(store.Get(&shapes[i]));
    }
    EXPECT_EQ(entries.size(), pictures.size());
    cv::Mat samePart = Grey("01020304eeee 05060708eeee").colRange(0, 4);
    store.Add(samePart, &a);
    EXPECT_EQ(store.Get(&a), store.Get(&shapes[3])) << "what lies beside a part does not count";
    store.Add(samePart, nullptr);
}

/// Where pixels lie somewhere else than those of the first equal entry, that entry is joined nevertheless.
TEST_F(ImageMgrTest, equal_entries_keep_their_order)
{
    store.Add(one, &a);
    store.Add(one, &b);
    store.Add(oneAgain, &b); // into an entry of its own, behind
    EXPECT_EQ(Sharing(), "AB-");
    store.Add(oneAgain, &c);
    EXPECT_EQ(Sharing(), "ABA");
}

/// Pixels that were changed in place are not found, nor taken for others.
TEST_F(ImageMgrTest, pixels_changed_in_place_are_not_mixed_up)
{
    store.Add(one, &a);
    store.Add(one, &b);
    store.Add(oneAgain, &b);
    one.setTo(9);
    store.Add(oneAgain, &c);
    EXPECT_EQ(Pixels(*store.Get(&c)), "01020304");
    store.Get(&a)->release();
    EXPECT_TRUE(store.Remove(&a));
    EXPECT_EQ(Sharing(), "-AA");
}

/// Scans of one size that differ in few bytes near their end: what a sample sees of them is the same.
TEST_F(ImageMgrTest, finds_the_first_equal_picture_among_thousands)
{
    std::vector<std::unique_ptr<CShapeImage>> shapes;
    const auto file = [&](int number) {
        cv::Mat picture(64, 64, CV_8U, cv::Scalar(255));
        std::memcpy(picture.ptr(62, 21), &number, sizeof number);
        shapes.push_back(std::make_unique<CShapeImage>());
        store.Add(picture, shapes.back().get());
        return store.Get(shapes.back().get());
    };
    std::vector<cv::Mat*> entries;
    for (int number = 0; number < 1'500; ++number)
        entries.push_back(file(number));
    EXPECT_EQ(std::set<cv::Mat*>(entries.begin(), entries.end()).size(), 1'500U);
    EXPECT_EQ(file(7), entries[7]);
    EXPECT_EQ(file(1'200), entries[1'200]);
    // Whose shape is in the first equal entry moves behind all others; the next equal picture still joins the first.
    store.Add(*entries[7], shapes[7].get());
    EXPECT_NE(store.Get(shapes[7].get()), entries[7]);
    EXPECT_EQ(file(7), entries[7]);
    // An entry that is gone is not found again.
    store.Remove(shapes[9].get());
    const cv::Mat* again = file(9);
    EXPECT_EQ(file(9), again);
}
