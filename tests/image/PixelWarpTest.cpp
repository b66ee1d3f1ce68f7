#include "image/PixelWarp.h"
#include "image/Pictures.h"
#include "support/HostDouble.h"

#include <QSizeF>

#include <gtest/gtest.h>

#include <limits>

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

constexpr double kInfinity = std::numeric_limits<double>::infinity();

} // namespace

TEST(PixelWarp, AnUneditedPictureIsItself)
{
    const cv::Mat picture = Grey("00112233 44556677");
    for (const QRectF rect : {QRectF(0, 0, 4, 2), QRectF(-7, 1e6, 4, 2), QRectF(3, 4, 40, 20), QRectF(0, 0, 0.4, 0.2)})
        EXPECT_EQ(OntoRect(picture, rect).data, picture.data);
    EXPECT_EQ(Pixels(OntoRect(Grey("001122 445566"), {0, 0, 3, 2})), "001122ff 445566ff") << "padded with white";
}

/// At odd resolutions the height times the density falls just below the number of rows.
TEST(PixelWarp, KeepsTheLastRowAtEveryResolution)
{
    for (int dpi = 72; dpi < 1300; dpi += 7) {
        for (const int columns : {4, 52, 1000}) {
            const int rows = columns + dpi % 11;
            const cv::Mat picture = Black(columns, rows);
            const QRectF rect(dpi / 3.0, 1e3 / dpi, columns / double(dpi) * 25.4, rows / double(dpi) * 25.4);
            EXPECT_EQ(OntoRect(picture, rect).size(), picture.size()) << dpi;
        }
    }
}

TEST(PixelWarp, TurnsFlipsAndStretches)
{
    const cv::Mat picture = Grey("10203040 50607080 90a0b0c0 d0e0f0ff");
    // Sampled at the pixels' corners: a half turn or a flip leaves the first row or column white.
    EXPECT_EQ(Pixels(Warp(picture, {4, 0}, {0, 0}, {0, 4}, {4, 4})), "ff403020 ff807060 ffc0b0a0 fffff0e0");
    EXPECT_EQ(Pixels(Warp(picture, {0, 4}, {4, 4}, {4, 0}, {0, 0})), "ffffffff d0e0f0ff 90a0b0c0 50607080");
    EXPECT_EQ(Pixels(Warp(picture, {4, 0}, {4, 4}, {0, 4}, {0, 0})), "ffd09050 ffe0a060 fff0b070 ffffc080");
    EXPECT_EQ(Pixels(OntoRect(Grey("10203040 50607080"), {0, 0, 4, 4})), "10203040 10203040 50607080 ffffffff")
        << "the last half row rounds outwards";
    EXPECT_EQ(Pixels(OntoRect(picture, {0, 0, 4, 2})), "10203040 90a0b0c0");
}

TEST(PixelWarp, UncoveredPartsAreWhite)
{
    const cv::Mat turned = Warp(Black(100, 100), {50, 0}, {100, 50}, {50, 100}, {0, 50});
    ASSERT_EQ(turned.size(), cv::Size(100, 100));
    for (const cv::Point corner : {cv::Point(0, 0), cv::Point(99, 0), cv::Point(99, 99), cv::Point(0, 99)})
        EXPECT_EQ(turned.at<unsigned char>(corner), 255);
    EXPECT_EQ(turned.at<unsigned char>(50, 50), 0);
    EXPECT_NEAR(cv::countNonZero(turned == 0), 5000, 100) << "half of the square";
    const cv::Mat colour = Warp(cv::Mat(4, 4, CV_8UC3, cv::Scalar(0, 0, 0)), {2, 0}, {4, 2}, {2, 4}, {0, 2});
    EXPECT_EQ(colour.at<cv::Vec3b>(0, 0), cv::Vec3b(255, 255, 255));
}

TEST(PixelWarp, SidesAreLimited)
{
    const auto size = [](int columns, int rows, double width, double height) {
        const cv::Size of = OntoRect(Black(columns, rows), {0, 0, width, height}).size();
        return std::to_string(of.width) + "x" + std::to_string(of.height);
    };
    EXPECT_EQ(size(1000, 1000, 30, 1), "1000x33") << "the source's density across";
    EXPECT_EQ(size(1000, 1000, 1, 2), "1000x2000");
    EXPECT_EQ(size(1000, 1000, 1, 30), "68x2000") << "66 columns, rounded up";
    EXPECT_EQ(size(12000, 16, 12000, 16), "10240x13");
    EXPECT_EQ(size(100, 8000, 100, 10240), "100x10240");
    EXPECT_EQ(size(100, 8000, 100, 16000), "64x10240");
    EXPECT_EQ(size(400, 4, 100, 0.1), "400x1") << "at least one row";
    EXPECT_EQ(size(4, 4, 1e-9, 1e9), "4x8") << "at least one column";
    EXPECT_EQ(size(6, 4, 6, 4), "8x4");
}

TEST(PixelWarp, SourcesBeyondTheSamplingLimitAreShrunkFirst)
{
    cv::Mat wide = Black(40000, 8);
    wide.colRange(20000, 40000).setTo(200);
    const cv::Mat warped = OntoRect(wide, {0, 0, 40000, 8});
    ASSERT_EQ(warped.size(), cv::Size(10240, 2));
    EXPECT_EQ(warped.at<unsigned char>(0, 5118), 0);
    EXPECT_EQ(warped.at<unsigned char>(0, 5122), 200);
    EXPECT_EQ(warped.at<unsigned char>(1, 10239), 200);
}

TEST(PixelWarp, RefusesWhatHasNoAreaOrPixels)
{
    const cv::Mat picture = Black(4, 4);
    for (const QRectF& rect : {QRectF(0, 0, 0, 0), QRectF(0, 0, 4, 0), QRectF(0, 0, 0, 4), QRectF(0, 0, kInfinity, 4),
                               QRectF(qQNaN(), 0, 4, 4), QRectF(0, 0, 1e-300, 1e300)})
        EXPECT_THROW(OntoRect(picture, rect), std::invalid_argument) << rect.width();
    EXPECT_THROW(Warp(picture, {0, 0}, {4, 4}, {4, 4}, {0, 0}), std::invalid_argument) << "a slanting line";
    TakeLog();
    EXPECT_THROW(OntoRect({}, {0, 0, 4, 4}), std::invalid_argument);
    EXPECT_EQ(TakeLog(), "1 Input image is empty.");
    const int sides[] = {2, 2, 2};
    EXPECT_THROW(OntoRect(cv::Mat(3, sides, CV_8U), {0, 0, 4, 4}), std::invalid_argument);
}

TEST(PixelWarp, RotateMatMakesRoomForTheCorners)
{
    cv::Mat picture = Grey("10203040 50607080 90a0b0c0 d0e0f0ff");
    shapes::RotateMat(picture, 90); // clockwise; sampled at the corners, so one column is white
    EXPECT_EQ(Pixels(picture), "ffd09050 ffe0a060 fff0b070 ffffc080");
    cv::Mat wide = Black(200, 100);
    shapes::RotateMat(wide, 90);
    EXPECT_EQ(wide.size(), cv::Size(100, 200));
    cv::Mat slanted = Black(200, 100);
    shapes::RotateMat(slanted, 30); // 200 cos 30 + 100 sin 30 = 223.2; 200 sin 30 + 100 cos 30 = 186.6
    EXPECT_EQ(slanted.size(), cv::Size(223, 186));
    EXPECT_EQ(slanted.at<unsigned char>(0, 0), 255);
    TakeLog();
    for (const double angle : {kInfinity, 0.0}) {
        cv::Mat none;
        shapes::RotateMat(none, angle);
        EXPECT_TRUE(none.empty());
        EXPECT_EQ(TakeLog().substr(0, 26), "3 CShapeImage::RotateMat: ");
    }
}

TEST(PixelWarp, ScaleMatEnlargesBothSidesByTheAspect)
{
    const auto scaled = [](QSizeF size) {
        cv::Mat picture = Black(40, 20);
        shapes::ScaleMat(picture, size);
        return std::to_string(picture.cols) + "x" + std::to_string(picture.rows);
    };
    EXPECT_EQ(scaled({30, 10}), "120x60");
    EXPECT_EQ(scaled({10, 25}), "100x50");
    EXPECT_EQ(scaled({10, 10}), "40x20") << "neither side is longer";
    EXPECT_EQ(scaled({20.05, 10}), "40x20") << "nearly the picture's own aspect";
    EXPECT_EQ(scaled({0, 10}), "40x20");
    EXPECT_EQ(scaled({1e9, 1}), "40x20") << "beyond any picture";
}

TEST(PixelWarp, MirrorMatAndReverseMat)
{
    cv::Mat picture = Grey("1020 3040");
    shapes::MirrorMat(picture, true);
    EXPECT_EQ(Pixels(picture), "2010 4030");
    shapes::MirrorMat(picture, false);
    EXPECT_EQ(Pixels(picture), "4030 2010");
    shapes::ReverseMat(picture);
    EXPECT_EQ(Pixels(picture), "bfcf dfef");
}
