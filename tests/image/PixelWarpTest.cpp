/// Kernels that warp, turn and mirror pixels.
#include "image/PixelWarp.h"
#include "image/Pictures.h"
#include "support/HostDouble.h"

#include <QSizeF>

#include <gtest/gtest.h>

#include <tuple>

using namespace test;

namespace {

cv::Mat Warp(const cv::Mat& picture, QPointF p0, QPointF p1, QPointF p2, QPointF p3)
{
    return shapes::ApplyTransform(picture, p0, p1, p2, p3);
}

cv::Mat OntoRect(const cv::Mat& picture, const QRectF& rect)
{
    return Warp(picture, rect.topLeft(), rect.topRight(), rect.bottomRight(), rect.bottomLeft());
}

cv::Mat Black(int columns, int rows)
{
    return cv::Mat(rows, columns, CV_8U, cv::Scalar(0));
}

} // namespace

TEST(PixelWarp, an_unedited_picture_is_itself)
{
    const cv::Mat picture = Grey("00112233 44556677");
    for (const QRectF rect : {QRectF(0, 0, 4, 2), QRectF(-7, 1e6, 4, 2), QRectF(3, 4, 40, 20), QRectF(0, 0, 0.4, 0.2)})
        EXPECT_EQ(OntoRect(picture, rect).data, picture.data);
    EXPECT_EQ(Pixels(OntoRect(Grey("001122 445566"), {0, 0, 3, 2})), "001122ff 445566ff") << "padded with white";
    // At odd resolutions the height times the density falls just below the number of rows.
    for (int dpi = 72; dpi < 1300; dpi += 7) {
        const cv::Mat black = Black(52, 52 + dpi % 11);
        const QRectF rect(dpi / 3.0, 1e3 / dpi, 52.0 / dpi * 25.4, black.rows / double(dpi) * 25.4);
        EXPECT_EQ(OntoRect(black, rect).size(), black.size()) << dpi;
    }
}

TEST(PixelWarp, turns_flips_and_stretches)
{
    const cv::Mat picture = Grey("10203040 50607080 90a0b0c0 d0e0f0ff");
    // Sampled at the pixels' corners: a half turn or a flip leaves the first row or column white.
    EXPECT_EQ(Pixels(Warp(picture, {4, 0}, {0, 0}, {0, 4}, {4, 4})), "ff403020 ff807060 ffc0b0a0 fffff0e0");
    EXPECT_EQ(Pixels(Warp(picture, {0, 4}, {4, 4}, {4, 0}, {0, 0})), "ffffffff d0e0f0ff 90a0b0c0 50607080");
    EXPECT_EQ(Pixels(Warp(picture, {4, 0}, {4, 4}, {0, 4}, {0, 0})), "ffd09050 ffe0a060 fff0b070 ffffc080");
    // The last half row rounds outwards.
    EXPECT_EQ(Pixels(OntoRect(picture.rowRange(0, 2), {0, 0, 4, 4})), "10203040 10203040 50607080 ffffffff");
    EXPECT_EQ(Pixels(OntoRect(picture, {0, 0, 4, 2})), "10203040 90a0b0c0");
}

TEST(PixelWarp, uncovered_parts_are_white)
{
    const QPointF corners[] = {{50, 0}, {100, 50}, {50, 100}, {0, 50}};
    for (size_t first = 0; first < 4; ++first) { // whichever corner lies farthest out
        const cv::Mat turned = Warp(Black(100, 100), corners[first], corners[(first + 1) % 4], corners[(first + 2) % 4],
                                    corners[(first + 3) % 4]);
        ASSERT_EQ(turned.size(), cv::Size(100, 100));
        for (const cv::Point corner : {cv::Point(0, 0), cv::Point(99, 0), cv::Point(99, 99), cv::Point(0, 99)})
            EXPECT_EQ(turned.at<unsigned char>(corner), 255);
        EXPECT_EQ(turned.at<unsigned char>(50, 50), 0);
        EXPECT_NEAR(cv::countNonZero(turned == 0), 5000, 100) << "half of the square";
    }
    const cv::Mat colour = Warp(cv::Mat(4, 4, CV_8UC3, cv::Scalar(0, 0, 0)), {2, 0}, {4, 2}, {2, 4}, {0, 2});
    EXPECT_EQ(colour.at<cv::Vec3b>(0, 0), cv::Vec3b(255, 255, 255));
}

TEST(PixelWarp, sides_are_limited)
{
    const std::tuple<int, int, double, double, cv::Size> rows[] = {
        {1000, 1000, 30, 1, {1000, 33}}, // the source's density across
        {1000, 1000, 1, 2, {1000, 2000}},
        {1000, 1000, 1, 30, {68, 2000}}, // 66 columns, rounded up
        {12000, 16, 12000, 16, {10240, 13}},
        {100, 8000, 100, 10240, {100, 10240}},
        {100, 8000, 100, 16000, {64, 10240}},
        {8, 40000, 8, 40000, {4, 10240}},
        {400, 4, 100, 0.1, {400, 1}}, // at least one row
        {4, 4, 1e-9, 1e9, {4, 8}},    // at least one column
        {6, 4, 6, 4, {8, 4}}};
    for (const auto& [columns, height, across, down, size] : rows)
        EXPECT_EQ(OntoRect(Black(columns, height), {0, 0, across, down}).size(), size) << columns << " " << down;

    // Sources beyond the sampling limit are shrunk first.
    cv::Mat wide = Black(40000, 8);
    wide.colRange(20000, 40000).setTo(200);
    const cv::Mat warped = OntoRect(wide, {0, 0, 40000, 8});
    ASSERT_EQ(warped.size(), cv::Size(10240, 2));
    EXPECT_EQ(warped.at<unsigned char>(0, 5118), 0);
    EXPECT_EQ(warped.at<unsigned char>(0, 5122), 200);
    EXPECT_EQ(warped.at<unsigned char>(1, 10239), 200);
}

TEST(PixelWarp, refuses_what_has_no_area_or_pixels)
{
    const cv::Mat picture = Black(4, 4), deep(std::vector{2, 2, 2}, CV_8U);
    for (const QRectF& rect : {QRectF(0, 0, 0, 0), QRectF(0, 0, 4, 0), QRectF(0, 0, 0, 4), QRectF(0, 0, qInf(), 4),
                               QRectF(qQNaN(), 0, 4, 4), QRectF(0, 0, 1e-300, 1e300)})
        EXPECT_THROW(OntoRect(picture, rect), std::invalid_argument) << rect.width();
    EXPECT_THROW(Warp(picture, {0, 0}, {4, 4}, {4, 4}, {0, 0}), std::invalid_argument) << "a slanting line";
    EXPECT_THROW(OntoRect(deep, {0, 0, 4, 4}), std::invalid_argument);
    TakeLog();
    EXPECT_THROW(OntoRect({}, {0, 0, 4, 4}), std::invalid_argument);
    EXPECT_EQ(TakeLog(), "1 Input image is empty.");
}

/// What no edit calls: the enlarging goes by the aspect, the turn makes room for the corners.
TEST(PixelWarp, scale_rotate_mirror_and_reverse_mat)
{
    const std::pair<QSizeF, cv::Size> rows[] = {{{3, 1}, {120, 60}},     {{1, 2.5}, {100, 50}},
                                                {{10, 10}, {40, 20}},    // neither side is longer
                                                {{20.05, 10}, {40, 20}}, // nearly the picture's own aspect
                                                {{0, 10}, {40, 20}},     {{1e9, 1}, {40, 20}}}; // beyond any picture
    for (const auto& [size, scaled] : rows) {
        cv::Mat picture = Black(40, 20);
        shapes::ScaleMat(picture, size);
        EXPECT_EQ(picture.size(), scaled) << size.width();
    }
    cv::Mat picture = Grey("10203040 50607080 90a0b0c0 d0e0f0ff"), slanted = Black(200, 100), wide = Black(4681, 1);
    shapes::ScaleMat(wide, {7, 1}); // 32767 columns, one too many to be sampled
    EXPECT_EQ(wide.cols, 4681);
    shapes::RotateMat(picture, 90); // clockwise
    EXPECT_EQ(Pixels(picture), "ffd09050 ffe0a060 fff0b070 ffffc080");
    shapes::RotateMat(slanted, 30); // 200 cos 30 + 100 sin 30 = 223.2; 200 sin 30 + 100 cos 30 = 186.6
    EXPECT_EQ(slanted.size(), cv::Size(223, 186));
    // Its corners lie at the top at x = 50 and at the bottom at x = 173: black just within.
    EXPECT_TRUE(slanted.at<unsigned char>(9, 56) == 0 && slanted.at<unsigned char>(177, 167) == 0);
    EXPECT_EQ(slanted.at<unsigned char>(0, 0), 255);
    TakeLog();
    shapes::RotateMat(slanted, qInf());
    EXPECT_EQ(Pixels(slanted) + " " + TakeLog(), "empty 3 CShapeImage::RotateMat: The angle is not finite.");
    picture = Grey("1020 3040");
    shapes::MirrorMat(picture, true);
    EXPECT_EQ(Pixels(picture), "2010 4030");
    shapes::MirrorMat(picture, false);
    EXPECT_EQ(Pixels(picture), "4030 2010");
    shapes::ReverseMat(picture);
    EXPECT_EQ(Pixels(picture), "bfcf dfef");
}
