/// Image files into grey pictures.
#include "image/GreyImage.h"
#include "image/ImageFiles.h"
#include "image/PictureHeader.h"
#include "image/Pictures.h"
#include "support/HostDouble.h"
#include "support/Outline.h"

#include <gtest/gtest.h>

#include <map>
#include <tuple>

using namespace test;

namespace {

QByteArray Webp(const QByteArray& chunk)
{
    return "RIFF" + LittleEndian(4, 100) + "WEBP" + chunk + QByteArray(80, '\0');
}

} // namespace

/// What the decoded files below do not show.
TEST(GreyImage, flattens_transparency_onto_white)
{
    for (const int type : {CV_8UC1, CV_8UC3, CV_16UC4}) {
        cv::Mat other(2, 2, type, cv::Scalar::all(7));
        EXPECT_FALSE(shapes::RemoveAlpha(other));
        EXPECT_EQ(cv::countNonZero(other.reshape(1) == 7), 4 * other.channels());
    }
    // The sums are rounded to single precision and then cut: white on white is not always white.
    cv::Mat white(1, 256, CV_8UC4, cv::Scalar::all(255));
    for (int alpha = 0; alpha < 256; ++alpha)
        white.at<cv::Vec4b>(alpha)[3] = static_cast<unsigned char>(alpha);
    EXPECT_TRUE(shapes::RemoveAlpha(white));
    EXPECT_EQ(cv::countNonZero(white == 254), 31);
    EXPECT_EQ(cv::countNonZero(white == 255), 225);
}

TEST(GreyImage, decodes_every_kind_of_file_into_grey)
{
    const cv::Mat grey = Grey("00408cff"), sixteen(1, 4, CV_16U, cv::Scalar(0x8000)), red(1, 4, CV_8UC3, {0, 0, 255}),
                  clear(1, 4, CV_8UC4, cv::Scalar(0, 0, 0, 0)), deep(1, 4, CV_16UC4, cv::Scalar(0, 0, 0, 0));
    cv::Mat redAndBlue = red.clone();
    redAndBlue.at<cv::Vec3b>(1) = {255, 0, 0};
    const QByteArray redIsClear = PngChunk("tRNS", FromHex("00ff 0000 0000"));
    const quint32 high = 0xFF0000, middle = 0xFF00, low = 0xFF, top = 0xFF000000;
    const std::tuple<const char*, QByteArray, const char*> rows[] = {
        {"png", Encoded(".png", grey), "00408cff"},
        {"padded", Encoded(".png", Grey("0102030405")), "0101020203040405"},
        {"padded", Encoded(".png", Grey("01 02")), "01010101 02020202"},
        {"red is clear", Encoded(".png", redAndBlue).insert(33, redIsClear), "ff1dffff"},
        {"16 bits", Encoded(".png", sixteen), "80808080"},
        {"clear, 16 bits", Encoded(".png", deep), "ffffffff"},
        {"clear png", Encoded(".png", clear), "ffffffff"},
        {"0 is clear", GreyPngWithClear(8, "00408000", 0), "ff4080ff"},
        {"64 is clear", GreyPngWithClear(8, "00408000", 0x40), "00ff8000"},
        {"0, 1, 0, 1", GreyPngWithClear(1, "50", 0), "ffffffff"},
        {"0, 1, 2, 3", GreyPngWithClear(2, "1b", 1), "00ffaaff"},
        {"bits above the depth do not count", GreyPngWithClear(4, "01f7", 0xFFF1), "00ffff77"},
        {"0001 is not the value", GreyPngWithClear(16, "0000000140000000", 0), "ff0040ff"},
        {"clear webp", Encoded(".webp", clear, {cv::IMWRITE_WEBP_QUALITY, 101}), "ffffffff"},
        {"tiff", Encoded(".tiff", grey), "00408cff"},
        {"clear tiff", Encoded(".tiff", clear), "ffffffff"},
        {"bmp", Encoded(".bmp", red), "4c4c4c4c"},
        {"red, green, blue, black", BmpWithMasks({high, middle, low}, {high, middle, low, 0}), "4c961d00"},
        {"blue first", BmpWithMasks({low, middle, high}, {high, middle, low, 0}), "1d964c00"},
        {"highest bytes", BmpWithMasks({top, high, middle}, {top, high, middle, 0}), "4c961d00"},
        {"ten bits each", BmpWithMasks({0x3FF00000, 0xFFC00, 0x3FF}, {0x3FF00000, 0xFFC00, 0x3FF, 0}), "empty"},
        {"last is clear", BmpWithMasks({high, middle, low, top}, {top | high, top | middle, top, low}), "4c9600ff"}};
    for (const auto& [name, file, pixels] : rows)
        EXPECT_EQ(Pixels(shapes::DecodeGrey(file)), pixels) << name;
    // (1 - 51/255) * 255 = 204; 100 * 51/255 + 204 = 224, over more rows than are narrowed at a time
    const cv::Mat tall(40, 4, CV_16UC4, cv::Scalar(25700, 25700, 25700, 13107));
    EXPECT_EQ(cv::countNonZero(shapes::DecodeGrey(Encoded(".png", tall)) == 224), 160);

    // The decoder hands out colours of 200 at half alpha as 100, and flattening multiplies them once more: 50 + 127.
    const auto tiff = [](int alphaKind, const char* pixel) {
        return Tiff(
            {{256, {4}}, {257, {1}}, {258, {8, 8, 8, 8}}, {262, {2}}, {277, {4}}, {278, {1}}, {338, {alphaKind}}},
            FromHex(pixel).repeated(4), 1, true);
    };
    EXPECT_EQ(Pixels(shapes::DecodeGrey(tiff(1, "64646480"))), "b1b1b1b1");
    EXPECT_EQ(Pixels(shapes::DecodeGrey(tiff(2, "c8c8c880"))), "b1b1b1b1");

    cv::Mat noise(16, 16, CV_8UC3);
    cv::randu(noise, 0, 256);
    for (const char* kind : {".png", ".jpg", ".bmp"}) {
        const QByteArray file = Encoded(kind, noise);
        const cv::Mat bytes(1, static_cast<int>(file.size()), CV_8U, const_cast<char*>(file.data()));
        EXPECT_EQ(Pixels(shapes::DecodeGrey(file)), Pixels(cv::imdecode(bytes, cv::IMREAD_GRAYSCALE)))
            << "the decoder's own grey, not that of a later conversion " << kind;
    }
}

TEST(GreyImage, is_never_turned_by_its_orientation)
{
    const cv::Mat picture(8, 16, CV_8U, cv::Scalar(128));
    EXPECT_EQ(shapes::DecodeGrey(Jpeg(Exif("II").Add(274, 3, 1, 6), picture)).size(), cv::Size(16, 8));
    for (const bool wide : {false, true})
        for (int turn = 1; turn <= 8; ++turn) {
            const QByteArray file = Tiff({{256, {4}}, {257, {2}}, {258, {8}}, {262, {1}}, {274, {turn}}, {278, {2}}},
                                         FromHex("1020304050607080"), 1, wide);
            EXPECT_EQ(Pixels(shapes::DecodeGrey(file)), "10203040 50607080") << turn << wide;
        }
}

/// Of 16 bits, in planes: three samples, then four, which the decoder would take from the first plane alone.
TEST(GreyImage, planes_that_the_decoder_mixes_up_are_refused)
{
    for (const int samples : {3, 4}) {
        std::map<int, std::vector<int>> fields{{256, {4}}, {257, {2}},       {258, std::vector<int>(samples, 16)},
                                               {262, {2}}, {277, {samples}}, {278, {2}},
                                               {284, {2}}};
        if (samples == 4)
            fields[338] = {2};
        QByteArray planes;
        for (const int sample : {64, 128, 192, 255})
            planes += QByteArray(2 * 4 * 2, static_cast<char>(sample));
        const QByteArray file = Tiff(fields, planes.first(16 * samples), samples, true);
        // 0.299 * 64 + 0.587 * 128 + 0.114 * 192 = 116
        EXPECT_EQ(Pixels(shapes::DecodeGrey(file)), samples == 3 ? "74747474 74747474" : "empty");
    }
}

TEST(GreyImage, files_that_are_no_picture_leave_the_shape_as_it_is)
{
    CShapeImage image;
    ASSERT_EQ(Open(image, Jpeg(Jfif(1, 254, 254), cv::Mat(4, 8, CV_8U, cv::Scalar(1)))), 0);
    const auto state = [&image] { return Outline(image) + image.GetFilename() + std::to_string(image.GetXDpi()); };
    const std::string before = state();
    const QByteArray png = Encoded(".png", cv::Mat(64, 64, CV_8UC4, cv::Scalar::all(9)));
    const auto claiming = [&png](quint32 side) {
        const QByteArray size = BigEndian(side) + BigEndian(side);
        return QByteArray(png).replace(8, 25, PngChunk("IHDR", size + QByteArray("\x08\x06\0\0\0", 5)));
    };
    for (const QByteArray& file :
         {QByteArray(), QByteArray("no picture"), png.left(20), claiming(30000), claiming(0x7FFFFFFF)})
        EXPECT_EQ(Open(image, file), 2) << file.size();
    char missing[] = "/no/such/file.png", folder[] = "/", device[] = "/dev/zero";
    for (char* path : {missing, folder, device, static_cast<char*>(nullptr)})
        EXPECT_EQ(image.OpenImage(path), 2);
    EXPECT_EQ(state(), before);
}

TEST(GreyImage, the_scans_of_a_jpeg_are_bounded)
{
    QByteArray jpeg = Encoded(".jpg", Textured(16, 16), {cv::IMWRITE_JPEG_PROGRESSIVE, 1});
    const auto scans = [&jpeg] { return shapes::CountJpegScans(Span(jpeg), 1000); };
    EXPECT_EQ(scans(), 6U) << "the usual number for grey";
    EXPECT_EQ(shapes::DecodeGrey(jpeg).size(), cv::Size(16, 16));
    const qsizetype last = jpeg.lastIndexOf("\xFF\xDA"), end = jpeg.lastIndexOf("\xFF\xD9");
    jpeg.insert(end, jpeg.mid(last, end - last).repeated(95));
    EXPECT_EQ(scans(), 101U);
    EXPECT_TRUE(shapes::DecodeGrey(jpeg).empty());
    EXPECT_EQ(shapes::DecodeGrey(Encoded(".jpg", Textured(16, 16)) + jpeg).size(), cv::Size(16, 16))
        << "what follows the picture is not counted";
}

/// A few bytes that claim 32768 x 32768 pixels (WebP: 16383 x 16383, which fit, but are not there).
TEST(GreyImage, sizes_beyond_the_bound_are_refused)
{
    const auto tiff = [](const char* order, int firstTag) {
        return Exif(order).Add(firstTag, 4, 1, 32768).Add(firstTag + 1, 4, 1, 32768).Tiff();
    };
    const auto header = [](const QByteArray& file) { return shapes::ReadPictureHeader(Span(file)); };
    const auto wideField = [](int tag) { return LittleEndian(4, 16 << 16 | tag) + Raw(qint64{1}, qint64{32768}); };
    QByteArray bmp = Encoded(".bmp", Grey("09090909")), jpeg = Encoded(".jpg", Grey("09090909"));
    bmp.replace(18, 8, Raw(32768, -32768));
    jpeg.replace(jpeg.indexOf("\xFF\xC0") + 5, 4, BigEndian<quint32>(0x80008000));
    const QByteArray side = LittleEndian(2, 16383), canvas = LittleEndian(3, 32767);
    const std::tuple<const char*, QByteArray, uint64_t> rows[] = {
        {"tiff", tiff("II", 256), 32768},
        {"tiff", tiff("MM", 256), 32768},
        {"tiff", tiff("MM", 322), 32768}, // tiles
        {"tiff", QByteArray("II+\0\x08\0\0", 8) + Raw(qint64{16}, qint64{2}) + wideField(256) + wideField(257), 32768},
        {"webp", Webp("VP8 " + LittleEndian(4, 30) + QByteArray("\0\0\0\x9d\x01\x2a", 6) + side + side), 16383},
        {"webp", Webp("VP8L" + LittleEndian(4, 30) + "/" + LittleEndian(4, 16382 | 16382 << 14)), 16383},
        {"webp", Webp("VP8X" + LittleEndian(4, 10) + LittleEndian(4, 0) + canvas + canvas), 32768},
        {"ppm", "P4 # width\n32768 32768 " + QByteArray(80, '\0'), 32768},
        {"bmp", bmp, 32768},
        {"jpeg", jpeg, 32768}};
    for (const auto& [format, file, expected] : rows) {
        const auto read = header(file);
        ASSERT_TRUE(read && read->width == expected && read->height == expected) << format;
        EXPECT_STREQ(read->format, format);
        EXPECT_TRUE(shapes::DecodeGrey(file).empty()) << format;
    }
    EXPECT_TRUE(header("P1 3 3") && header("P6\n3 3"));
    for (const std::string other : {"", "P", "P4", "P4 ", "Q4 3 3", "P0 3 3", "P7 3 3", "P43 3"}) {
        const std::vector<unsigned char> exact(other.begin(), other.end()); // no zero behind it
        EXPECT_FALSE(shapes::ReadPictureHeader(exact)) << other;
    }
    EXPECT_TRUE(shapes::DecodeGrey(Encoded(".jp2", Textured(64, 64))).empty()) << "a kind whose size is not looked at";
}

TEST(GreyImage, records_hold_eight_bit_grey_without_gaps)
{
    const std::pair<cv::Mat, const char*> rows[] = {{Grey("00408cff"), "00408cff"},
                                                    {Grey("1111111111"), "1111111111111111"},
                                                    {cv::Mat(1, 4, CV_8UC3, cv::Scalar(0, 0, 255)), "4c4c4c4c"},
                                                    {cv::Mat(1, 4, CV_8UC2, cv::Scalar(5, 9)), "05050505"},
                                                    {cv::Mat(1, 4, CV_16U, cv::Scalar(65535)), "ffffffff"},
                                                    {cv::Mat(1, 4, CV_32F, cv::Scalar(300.0)), "ffffffff"},
                                                    {Grey("01020304ff 05060708ff").colRange(0, 4), "01020304 05060708"},
                                                    {cv::Mat(std::vector{2, 2, 2}, CV_8U, cv::Scalar(1)), "empty"}};
    for (const auto& [picture, pixels] : rows) {
        const cv::Mat made = shapes::RecordImage(picture);
        EXPECT_EQ(Pixels(made), pixels);
        EXPECT_TRUE(made.empty() || made.isContinuous());
    }
}
