/// The size of an opened picture in millimetres, by what its file says of its resolution.
#include "image/ImageFiles.h"
#include "image/ImageResolution.h"
#include "image/Pictures.h"
#include "support/Outline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using namespace test;

namespace {

const cv::Mat s_picture(4, 8, CV_8U, cv::Scalar(128));

struct Row
{
    const char* name;
    QByteArray file;
    unsigned int x, y; ///< dots per inch in use afterwards
};

std::ostream& operator<<(std::ostream& out, const Row& row)
{
    return out << row.name;
}

QByteArray WithJfif(int unit, int x, int y, const char* name = "JFIF")
{
    return Jpeg(Jfif(unit, x, y, name), s_picture);
}

QByteArray With(const Exif& exif)
{
    return Jpeg(exif.Segment(), s_picture);
}

/// One value for both resolutions.
QByteArray WithExif(const char* order, int format, quint32 value)
{
    return With(Exif(order).Add(282, format, 1, value).Add(283, format, 1, value));
}

QByteArray WithRational(const char* order, int numerator, int denominator, int format = 5)
{
    return With(
        Exif(order).AddRational(282, numerator, denominator, format).AddRational(283, numerator, denominator, format));
}

QByteArray WithPng(quint32 x, quint32 y, char unit = 1)
{
    return PngWithDensity(s_picture, x, y, unit);
}

class ImageSize : public testing::TestWithParam<Row>
{};

constexpr unsigned int kKeptX = 111, kKeptY = 222; ///< of the header that was read before
constexpr unsigned int kPlatform = 96;             ///< the decoder's, where a file says nothing
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

} // namespace

TEST_P(ImageSize, IsPixelsByResolution)
{
    const Row& row = GetParam();
    CShapeImage image;
    ASSERT_EQ(image.OpenImage(FileOf(WithJfif(1, kKeptX, kKeptY)).Path()), 0);
    ASSERT_EQ(image.OpenImage(FileOf(row.file).Path()), 0);
    EXPECT_EQ(image.GetXDpi(), row.x);
    EXPECT_EQ(image.GetYDpi(), row.y);
    EXPECT_EQ(Rect(image.GetOrgRect()), Rect({0, 0, 8 * 25.4 / row.x, 4 * 25.4 / row.y}));
    EXPECT_EQ(image.GetImageRect(), image.GetOrgRect());
}

INSTANTIATE_TEST_SUITE_P(Jfif, ImageSize,
                         testing::ValuesIn(std::vector<Row>{
                             {"inch_72", WithJfif(1, 72, 72), 72, 72},
                             {"inch_254", WithJfif(1, 254, 254), 254, 254},
                             {"inch_300x150", WithJfif(1, 300, 150), 300, 150},
                             {"inch_below_72_stays", WithJfif(1, 10, 20), 10, 20},
                             {"inch_largest", WithJfif(1, 65535, 65535), 65535, 65535},
                             {"inch_zero", WithJfif(1, 0, 0), 72, 72},
                             {"inch_one_is_zero", WithJfif(1, 300, 0), 72, 72},
                             {"centimetre_118", WithJfif(2, 118, 118), 299, 299},
                             {"centimetre_100", WithJfif(2, 100, 50), 254, 127},
                             {"centimetre_28", WithJfif(2, 28, 28), 71, 71},
                             {"aspect_1_asks_decoder", WithJfif(0, 1, 1), kPlatform, kPlatform},
                             {"aspect_300_asks_decoder", WithJfif(0, 300, 300), kPlatform, kPlatform},
                             {"density_1_across_asks_decoder", WithJfif(1, 1, 300), 72, 300},
                             {"density_1_down_asks_decoder", WithJfif(1, 300, 1), 300, 72},
                             {"density_1_per_centimetre_asks_decoder", WithJfif(2, 1, 118), 72, 300},
                             {"unknown_unit_keeps", WithJfif(3, 200, 200), kKeptX, kKeptY},
                             {"behind_fill_bytes", WithJfif(1, 300, 150).insert(2, "\xFF\xFF"), 300, 150},
                             {"other_name_asks_decoder", WithJfif(1, 300, 300, "JFXX"), kPlatform, kPlatform},
                         }),
                         [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Exif, ImageSize,
    testing::ValuesIn(std::vector<Row>{
        {"rational_little", With(Exif("II").AddRational(282, 300, 1).AddRational(283, 301, 2)), 300, 150},
        {"rational_big", With(Exif("MM").AddRational(282, 300, 1).AddRational(283, 301, 2)), 300, 150},
        {"signed_rational", WithRational("MM", -300, -1, 10), 300, 300},
        {"rational_negative", WithRational("II", -300, 1), 72, 72},
        {"rational_zero", WithRational("MM", 0, 1), 72, 72},
        {"rational_by_zero", WithRational("II", 300, 0), 72, 72},
        {"byte", WithExif("II", 1, 200), 200, 200},
        {"ascii_is_zero", WithExif("II", 2, 200), 72, 72},
        {"short_little", WithExif("II", 3, 60000), 60000, 60000},
        {"short_big", WithExif("MM", 3, 600), 600, 600},
        {"long_big", WithExif("MM", 4, 70000), 70000, 70000},
        {"signed_byte", WithExif("MM", 6, 100), 100, 100},
        {"signed_byte_negative", WithExif("MM", 6, 200), 72, 72},
        {"undefined_is_zero", WithExif("MM", 7, 200), 72, 72},
        {"signed_short", WithExif("II", 8, 1200), 1200, 1200},
        {"signed_long", WithExif("II", 9, 1200), 1200, 1200},
        {"float_big", With(Exif("MM").AddFloat(282, 150.9F).AddFloat(283, 96)), 150, 96},
        {"float_beyond_integers", With(Exif("II").AddFloat(282, 1e30F).AddFloat(283, 96)), 4294967295U, 96},
        {"double_little", With(Exif("II").AddDouble(282, 1200.5).AddDouble(283, 96)), 1200, 96},
        {"double_not_a_number", With(Exif("II").AddDouble(282, kNaN).AddDouble(283, 96)), 72, 72},
        {"double_beyond_float", With(Exif("MM").AddDouble(282, 1e300).AddDouble(283, 96)), 72, 72},
        {"no_component_is_zero", With(Exif("MM").Add(282, 3, 0, 300).Add(283, 3, 1, 300)), 72, 72},
        {"across_only_keeps_down", With(Exif("MM").Add(282, 3, 1, 300)), 300, kKeptY},
        {"other_tags_keep", With(Exif("II").Add(274, 3, 1, 6).Add(296, 3, 1, 3)), kKeptX, kKeptY},
        {"other_order_asks_decoder", With(Exif("IM").Add(282, 3, 1, 300)), kPlatform, kPlatform},
        {"illegal_format_asks_decoder", WithExif("II", 13, 300), kPlatform, kPlatform},
        {"value_outside_asks_decoder", WithExif("MM", 12, 0xFFFFFFF8), kPlatform, kPlatform},
        {"another_application_keeps", Jpeg(App1("http://ns.adobe.com/xap/1.0/"), s_picture), kKeptX, kKeptY},
    }),
    [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(
    Decoder, ImageSize,
    testing::ValuesIn(std::vector<Row>{
        {"png_plain", Encoded(".png", s_picture), kPlatform, kPlatform},
        {"png_254", WithPng(10000, 10000), 254, 254},
        {"png_100x300", WithPng(3937, 11811), 100, 300},
        {"png_raised_to_72", WithPng(1000, 11811), 72, 300},
        {"png_aspect", WithPng(10000, 10000, 0), kPlatform, kPlatform},
        {"png_zero", WithPng(0, 0), kPlatform, kPlatform},
        {"png_largest", WithPng(0x7FFFFFFF, 10000), 54546085, 254},
        {"png_beyond_integers", WithPng(0xFFFFFFFF, 0xFFFFFFFF), 72, 72},
        {"bmp_300x96", BmpWithDensity(s_picture, 11811, 3780), 300, 96},
        {"bmp_zero", BmpWithDensity(s_picture, 0, 0), kPlatform, kPlatform},
        {"bmp_negative", BmpWithDensity(s_picture, -11811, 3780), 72, 72},
        {"grey_map", Encoded(".pgm", s_picture), kPlatform, kPlatform},
        {"tiff_300x150",
         Encoded(".tiff", s_picture,
                 {cv::IMWRITE_TIFF_RESUNIT, 2, cv::IMWRITE_TIFF_XDPI, 300, cv::IMWRITE_TIFF_YDPI, 150}),
         300, 150},
        {"tiff_118_per_centimetre",
         Encoded(".tiff", s_picture,
                 {cv::IMWRITE_TIFF_RESUNIT, 3, cv::IMWRITE_TIFF_XDPI, 118, cv::IMWRITE_TIFF_YDPI, 59}),
         300, 150},
        {"tiff_plain", Encoded(".tiff", s_picture), kPlatform, kPlatform},
        {"webp", Encoded(".webp", s_picture), kPlatform, kPlatform},
    }),
    [](const auto& row) { return row.param.name; });

/// Whole and cut at every byte; the cuts are for the sanitizers.
TEST(ImageSizeByHand, TiffsOfBothByteOrdersStateTheirs)
{
    for (const char* order : {"II", "MM"}) {
        const QByteArray tiff =
            Exif(order).AddRational(282, 300, 1).AddRational(283, 301, 2).Add(296, 3, 1, 2).Segment().mid(12);
        unsigned int x = 0, y = 0;
        for (qsizetype length = 4; length < tiff.size(); ++length)
            shapes::GetImageDpi(tiff.left(length), x, y);
        EXPECT_TRUE(shapes::GetImageDpi(tiff, x, y));
        EXPECT_EQ(std::make_pair(x, y), std::make_pair(300U, 150U)) << order; // 5925 dots per metre, cut
    }
}

TEST(ImageSizeByHand, PaddedColumnsCount)
{
    CShapeImage image;
    const cv::Mat square(254, 254, CV_8U, cv::Scalar(9));
    ASSERT_EQ(image.OpenImage(FileOf(Jpeg(Jfif(1, 254, 254), square)).Path()), 0);
    EXPECT_EQ(Rect(image.GetOrgRect()), "0,0,25.6,25.4");
    EXPECT_EQ(Outline(image), "0,0 25.6,0 25.6,25.4 0,25.4 0,0");
}
