/// The resolution that image files state, and the size in millimetres of pictures that are opened.
#include "image/ImageResolution.h"
#include "image/FileNumbers.h"
#include "image/ImageFiles.h"
#include "image/JpegResolution.h"
#include "image/Pictures.h"
#include "support/Outline.h"

#include <gtest/gtest.h>

#include <cmath>
#include <tuple>

using namespace test;

namespace {

const cv::Mat s_picture(4, 8, CV_8U, cv::Scalar(128));

/// "yes 300x150", "no 96x96 error text": what the parser makes of a header when 11 x 22 was known before.
std::string Read(const QByteArray& header)
{
    shapes::JpegResolution read{11, 22, ""};
    const QByteArray file = header.size() < 31 ? header.leftJustified(64, '\0') : header;
    const bool found = shapes::ReadJpegResolution(Span(file), read);
    const QString text = QString("%1 %2x%3 %4").arg(found ? "yes" : "no").arg(read.x).arg(read.y).arg(read.error);
    return text.trimmed().toStdString();
}

/// One value across, of any format.
Exif Across(const char* order, int format, quint32 value)
{
    return Exif(order).Add(282, format, 1, value);
}

TEST(FileNumbers, are_read_in_either_order_within_the_bytes)
{
    const unsigned char bytes[] = {0x01, 0x02, 0xFF, 0xFE, 0x80};
    const shapes::FileNumbers big(bytes, true), little(bytes, false);
    EXPECT_TRUE(big.Get<uint16_t>(0) == 0x0102 && little.Get<uint16_t>(0) == 0x0201);
    EXPECT_TRUE(big.Get<uint32_t>(1) == 0x02FFFE80 && little.Get<uint32_t>(1) == 0x80FEFF02);
    EXPECT_TRUE(big.GetSigned<int16_t>(2) == -2 && little.GetSigned<int16_t>(2) == -257);
    EXPECT_EQ(little.GetSigned<int8_t>(4), -128);
    for (const uint64_t beyond : {uint64_t{2}, uint64_t{5}, UINT64_MAX})
        EXPECT_EQ(big.Get<uint32_t>(beyond), 0u) << beyond;
}

TEST(JpegResolution, of_a_header)
{
    const QByteArray jfif = Jfif(2, 118, 118).leftJustified(64, '\0'), exif = Across("II", 3, 200);
    const auto damaged = [&](int at, const char* byte) { return QByteArray(exif).replace(at, 1, byte); };
    const std::pair<QByteArray, const char*> rows[] = {
        {Jfif(1, 300, 150), "yes 300x150"},
        {Jfif(1, 300, 0), "yes 300x0"},
        {Jfif(2, 118, 50), "yes 299.72x127"}, // centimetres
        {Jfif(0, 300, 300), "no 96x96"},      // an aspect
        {Jfif(1, 1, 300), "no 96x96"},
        {Jfif(2, 300, 1), "no 96x96"},
        {Jfif(3, 200, 200), "yes 11x22"}, // an unknown unit keeps what was known
        {Jfif(1, 300, 300, "JFXX"), "no 11x22"},
        {Jfif(1, 300, 150).insert(2, "\xFF\xFF"), "no 11x22"}, // fill bytes
        {Exif("II").AddRational(282, 300, 1).AddRational(283, 301, 2), "yes 300x150.5"},
        {Exif("MM").AddRational(282, 300, 1).AddRational(283, 301, 2), "yes 300x150.5"},
        {Exif("MM").AddRational(282, -300, -1, 10), "yes 300x22"},
        {Exif("II").AddRational(282, -300, 1), "yes 0x22"},
        {Exif("II").AddRational(282, 300, 0), "yes 0x22"},
        {Across("II", 1, 200), "yes 200x22"},
        {Across("II", 2, 200), "yes 0x22"}, // letters
        {Across("II", 3, 60000), "yes 60000x22"},
        {Across("MM", 4, 70000), "yes 70000x22"},
        {Across("MM", 6, 100), "yes 100x22"},
        {Across("MM", 6, 200), "yes 0x22"}, // a signed byte
        {Across("II", 8, 1200), "yes 1200x22"},
        {Across("II", 9, 1200), "yes 1200x22"},
        {Exif("MM").AddFloat(282, 150.5F), "yes 150.5x22"},
        {Exif("II").AddDouble(282, 1200.5).AddDouble(283, 96), "yes 1200.5x96"},
        {Exif("II").AddDouble(282, std::nan("")), "yes 0x22"},
        {Exif("MM").AddDouble(282, 1e300), "yes 0x22"}, // beyond single precision
        {Exif("MM").Add(282, 3, 0, 300), "yes 0x22"},   // no component
        {Exif("II").Add(274, 3, 1, 6).Add(296, 3, 1, 3), "yes 11x22"},
        {Across("IM", 3, 300), "no 11x22 Invalid Exif alignment marker."},
        {Across("MM", 13, 300), "no 11x22 Illegal format code in EXIF dir"},
        {Across("II", 3, 200).Add(283, 0, 1, 0), "no 200x22 Illegal format code in EXIF dir"},
        {Across("MM", 5, 57), "no 11x22 Illegal pointer offset value in EXIF."}, // 8 bytes, one beyond the end
        {Exif("II").Add(700, 12, 0xFFFFFFFF, 8), "no 11x22 Illegal pointer offset value in EXIF."},
        {"abc" + jfif.mid(3), "yes 299.72x299.72"}, // the bytes before the fourth are not compared
        {jfif.left(32), "yes 299.72x299.72"},
        {jfif.left(31), "no 11x22"},
        {"\xFF\xD8\xFF\xDB", "no 11x22"},
        {App1("http://ns.adobe.com/xap/1.0/"), "yes 11x22"}, // another application keeps what was known
        {damaged(11, "x"), "no 11x22 Incorrect Exif header"},
        {damaged(14, "+"), "no 11x22 Invalid Exif start (1)"},
        {damaged(20, "\x09"), "no 11x22 Illegally sized directory"},
        {damaged(5, "\x1c"), "yes 200x22"}, // signature, TIFF header, count, one entry: just enough
        {damaged(5, "\x1b"), "no 11x22 Illegally sized directory"},
        {damaged(5, "\x0f"), "no 11x22 Illegally sized directory"},
        {damaged(5, "\x08"), "no 11x22 Invalid Exif start (1)"},
        {damaged(5, "\x07"), "no 11x22 Invalid Exif alignment marker."},
        {damaged(5, "\x05"), "no 11x22 Incorrect Exif header"},
        {damaged(4, "\xFF"), "yes 200x22"}, // longer than the file: the file's end counts
    };
    for (const auto& [header, expected] : rows)
        EXPECT_EQ(Read(header), expected) << expected;
}

/// "300x150" or "none", when a JPEG before it stated 111 x 222.
std::string Dpi(const QByteArray& file)
{
    unsigned int x = 0, y = 0;
    EXPECT_TRUE(shapes::GetImageDpi(Jpeg(Jfif(1, 111, 222), s_picture), x, y));
    return shapes::GetImageDpi(file, x, y) ? std::to_string(x) + "x" + std::to_string(y) : "none";
}

/// 96 is the decoder's, where a file says nothing.
TEST(ImageResolution, is_the_headers_or_the_decoders)
{
    const std::pair<QByteArray, const char*> rows[] = {
        {Jpeg(Jfif(1, 10, 20), s_picture), "10x20"},
        {Jpeg(Jfif(0, 300, 300), s_picture), "96x96"},
        {Jpeg(Jfif(1, 1, 300), s_picture), "72x300"},
        {Jpeg(Jfif(2, 1, 118), s_picture), "72x300"},
        {Jpeg(Jfif(1, 300, 150).insert(2, "\xFF\xFF"), s_picture), "300x150"},
        {Jpeg(Jfif(1, 300, 300, "JFXX"), s_picture), "96x96"},
        {Jpeg(Jfif(1, 300, 300, "JFXX") + "x" + Jfif(1, 300, 150).mid(2), s_picture), "96x96"}, // no marker there
        {Jpeg(App1("http://ns.adobe.com/xap/1.0/"), s_picture), "111x222"},
        {Jpeg(Exif("II").AddFloat(282, 1e30F).AddFloat(283, 96.9F), s_picture), "4294967295x96"},
        {Jpeg(Across("II", 13, 300), s_picture), "96x96"},
        {PngWithDensity(s_picture, 3937, 11811), "100x300"},
        {PngWithDensity(s_picture, 1000, 11811), "72x300"}, // raised
        {PngWithDensity(s_picture, 10000, 10000, 0), "96x96"},
        {PngWithDensity(s_picture, 0x7FFFFFFF, 10000), "54546085x254"},
        {PngWithDensity(s_picture, 0xFFFFFFFF, 0xFFFFFFFF), "72x72"},
        {BmpWithDensity(s_picture, 11811, 3780), "300x96"},
        {BmpWithDensity(s_picture, -11811, 3780), "none"},
        {Encoded(".pgm", s_picture), "96x96"},
        {Encoded(".tiff", s_picture,
                 {cv::IMWRITE_TIFF_RESUNIT, 3, cv::IMWRITE_TIFF_XDPI, 118, cv::IMWRITE_TIFF_YDPI, 59}),
         "300x150"},
        {Exif("II").AddRational(282, 300, 1).AddRational(283, 301, 2).Add(296, 3, 1, 2).Tiff(), "300x150"}, // cut
        {Exif("MM").AddRational(282, 300, 1).AddRational(283, 301, 2).Add(296, 3, 1, 2).Tiff(), "300x150"},
        {Encoded(".tiff", s_picture), "96x96"},
        {Encoded(".webp", s_picture), "96x96"},
        {"no picture", "none"},
    };
    for (const auto& [file, expected] : rows)
        EXPECT_EQ(Dpi(file), expected);
}

TEST(ImageResolution, makes_the_size_in_millimetres)
{
    const cv::Mat square(254, 254, CV_8U, cv::Scalar(9)); // padded columns count
    const std::tuple<QByteArray, double, double, const char*> rows[] = {
        {Jpeg(Jfif(1, 254, 127), s_picture), 254, 127, "0,0,0.8,0.8"},
        {Jpeg(Jfif(1, 254, 254), square), 254, 254, "0,0,25.6,25.4"},
        {Jpeg(Jfif(1, 300, 0), s_picture), 72, 72, "0,0,2.822222,1.411111"}, // what cannot be used
        {BmpWithDensity(s_picture, -11811, 3780), 72, 72, "0,0,2.822222,1.411111"}};
    for (const auto& [file, x, y, rect] : rows) {
        CShapeImage image;
        ASSERT_EQ(Open(image, file), 0);
        EXPECT_TRUE(image.GetXDpi() == x && image.GetYDpi() == y);
        EXPECT_EQ(Rect(image.GetOrgRect()), rect);
        EXPECT_EQ(image.GetImageRect(), image.GetOrgRect());
    }
}

} // namespace
