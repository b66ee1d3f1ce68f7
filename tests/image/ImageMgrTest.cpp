/// Which shapes share which pictures.
#include "image/Pictures.h"
#include "image/PixelBytes.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <set>
#include <string_view>

using test::Grey;
using test::Pixels;

namespace {

class ImageMgrTest : public testing::Test
{
protected:
    /// "1a 2b": adds picture 1 for shape a, then picture 2 for shape b.
    void Add(std::string_view steps)
    {
        for (size_t at = 0; at < steps.size(); at += 3)
            store.Add(pictures.at(steps[at]), shapes.at(steps[at + 1]));
    }
    /// Which of the shapes a, b, c share an entry: equal letters for equal entries, "-" for none.
    std::string Sharing()
    {
        std::string text;
        std::map<cv::Mat*, char> letters;
        for (const auto& [name, shape] : shapes) {
            const char next = static_cast<char>('A' + letters.size());
            cv::Mat* image = store.Get(shape);
            text += image ? letters.try_emplace(image, next).first->second : '-';
        }
        return text;
    }
    int Uses(char picture) { return pictures[picture].u->refcount; }

    ImageMgr store;
    CShapeImage a, b, c;
    std::map<char, CShapeImage*> shapes{{'a', &a}, {'b', &b}, {'c', &c}};
    std::map<char, cv::Mat> pictures{{'1', Grey("01020304")},
                                     {'=', Grey("01020304")},
                                     {'2', Grey("01020305")},
                                     {'|', Grey("01 02 03 04")},
                                     {'p', Grey("01020304ffff 05060708ffff").colRange(0, 4)},
                                     {'q', Grey("01020304eeee 05060708eeee").colRange(0, 4)},
                                     {'0', {}}};
};

} // namespace

TEST_F(ImageMgrTest, equal_pictures_share_the_first_entry_that_holds_them)
{
    const std::pair<const char*, const char*> rows[] = {
        {"1a =b 2c", "AAB"},       {"1a |b", "AB-"}, // of another layout
        {"0a 0b", "AB-"},                            // no pixels
        {"pa qb", "AA-"},                            // what lies beside a part does not count
        {"1a 2b 1b", "AA-"},                         // joins an entry before its own
        {"1a 2b 1b 2b", "AB-"},                      // one byte differs
        {"1a 1b 1a", "AB-"},                         // already in the matching entry: gets a fresh one
        {"1a 1b 1a 1c", "ABB"},                      // the first matching entry is the one that was there before
        {"1a 1b 1a 1c 1b", "ABC"},                   // no entry behind its own is compared
        {"1a 1b =b", "AB-"},                         // pixels that lie somewhere else: into an entry of its own, behind
        {"1a 1b =b =c", "ABA"},                      // nevertheless the first is joined
    };
    for (const auto& [steps, sharing] : rows) {
        store.Clear();
        Add(steps);
        EXPECT_EQ(Sharing(), sharing) << steps;
    }
}

TEST_F(ImageMgrTest, an_entry_lasts_while_somebody_uses_it)
{
    Add("1a =b 2c");
    store.Add(pictures['='], nullptr);
    EXPECT_EQ(store.Get(&b)->data, pictures['1'].data) << "the first picture is kept, the equal one is not";
    EXPECT_EQ(Uses('='), 1);
    EXPECT_TRUE(store.Remove(&a));
    EXPECT_EQ(Sharing(), "-AB");
    EXPECT_FALSE(store.Remove(&a) || store.Remove(nullptr));
    EXPECT_TRUE(store.Remove(&b));
    EXPECT_EQ(Uses('1'), 1) << "the picture went with its entry";
    Add("1a 1c");
    EXPECT_EQ(Uses('2'), 1) << "the entry left behind is gone";
    store.Clear();
    EXPECT_EQ(Sharing(), "---");
    EXPECT_EQ(Uses('1'), 1);
}

TEST_F(ImageMgrTest, takes_a_picture_from_itself)
{
    Add("1a");
    pictures['1'].release();
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
    for (const cv::Mat& other : {tall, none, signedBytes, deep})
        EXPECT_FALSE(shapes::SameLayout(wide, other) || shapes::SameLayout(other, wide));
    EXPECT_FALSE(shapes::SameLayout(none, none) || shapes::SameLayout(part, narrow));
    EXPECT_TRUE(shapes::SameBytes(part, narrow) && !shapes::SameBytes(part, Grey("0102 0507")));
    EXPECT_NE(shapes::FullHash(part), shapes::FullHash(tall.colRange(1, 3)));
}

/// Pixels that were changed in place are not found, nor taken for others.
TEST_F(ImageMgrTest, pixels_changed_in_place_are_not_mixed_up)
{
    Add("1a 1b =b");
    pictures['1'].setTo(9);
    Add("=c");
    EXPECT_EQ(Pixels(*store.Get(&c)), "01020304");
    store.Get(&a)->release();
    EXPECT_TRUE(store.Remove(&a));
    EXPECT_EQ(Sharing(), "-AA");
}

/// Scans of one size that differ in few bytes near their end: what a sample sees of them is the same.
TEST_F(ImageMgrTest, finds_the_first_equal_picture_among_those_with_the_same_samples)
{
    CShapeImage users[16];
    auto file = [&, user = users](int number) mutable {
        cv::Mat picture(64, 64, CV_8U, cv::Scalar(255));
        std::memcpy(picture.ptr(62, 21), &number, sizeof number);
        store.Add(picture, user);
        return store.Get(user++);
    };
    std::vector<cv::Mat*> entries;
    for (int number = 0; number < 10; ++number)
        entries.push_back(file(number));
    EXPECT_EQ(std::set<cv::Mat*>(entries.begin(), entries.end()).size(), 10U);
    EXPECT_EQ(file(7), entries[7]);
    // Whose shape is in the first equal entry moves behind all others; the next equal picture still joins the first.
    store.Add(*entries[7], &users[7]);
    EXPECT_NE(store.Get(&users[7]), entries[7]);
    EXPECT_EQ(file(7), entries[7]);
    // An entry that is gone is not found again.
    store.Remove(&users[9]);
    const cv::Mat* again = file(9);
    EXPECT_EQ(file(9), again);
}
