#include "image/GreyImage.h"
#include "image/ImageFiles.h"
#include "image/PictureHeader.h"
#include "image/Pictures.h"
#include "support/HostDouble.h"
#include "support/Outline.h"

#include <gtest/gtest.h>

using namespace test;

namespace {

cv::Mat OnePixel(int blue, int green, int red, int alpha)
{
    return cv::Mat(1, 1, CV_8UC4, cv::Scalar(blue, green, red, alpha));
}

QByteArray Little(int bytes, quint32 value)
{
    QByteArray number;
    for (int i = 0; i < bytes; ++i)
        number += static_cast<char>(i < 4 ? value >> (8 * i) : 0);
    return number;
}

QByteArray Webp(const QByteArray& chunk)
{
    return "RIFF" + Little(4, 100) + "WEBP" + chunk + QByteArray(80, '\0');
}

QByteArray Orientation(int turn)
{
    return Exif("II").Add(274, 3, 1, static_cast<quint32>(turn)).Segment();
}

} // namespace

TEST(GreyImage, FlattensTransparencyOntoWhite)
{
    const auto flattened = [](cv::Mat picture) {
        EXPECT_TRUE(shapes::RemoveAlpha(picture));
        return Pixels(picture);
    };
    EXPECT_EQ(flattened(OnePixel(0, 0, 0, 0)), "ff") << "transparent black";
    EXPECT_EQ(flattened(OnePixel(10, 20, 30, 0)), "ff");
    EXPECT_EQ(flattened(OnePixel(0, 0, 0, 255)), "00");
    EXPECT_EQ(flattened(OnePixel(255, 255, 255, 255)), "ff");
    EXPECT_EQ(flattened(OnePixel(255, 0, 0, 255)), "1d") << "blue: 0.114 * 255";
    EXPECT_EQ(flattened(OnePixel(0, 0, 255, 255)), "4c") << "red: 0.299 * 255";
    // (1 - 51/255) * 255 = 204; 100 * 51/255 + 204 = 224
    EXPECT_EQ(flattened(OnePixel(100, 100, 100, 51)), "e0");
    for (const int type : {CV_8UC1, CV_8UC3, CV_16UC4}) {
        cv::Mat other(2, 2, type, cv::Scalar::all(7));
        const cv::Mat before = other.clone();
        EXPECT_FALSE(shapes::RemoveAlpha(other));
        EXPECT_EQ(cv::norm(other.reshape(1), before.reshape(1)), 0);
    }
}

/// The sums are rounded to single precision and then cut: white on white is not always white.
TEST(GreyImage, FlattensWhiteTo254AtThirtyOneAlphas)
{
    cv::Mat white(1, 256, CV_8UC4, cv::Scalar::all(255));
    for (int alpha = 0; alpha < 256; ++alpha)
        white.at<cv::Vec4b>(alpha)[3] = static_cast<unsigned char>(alpha);
    shapes::RemoveAlpha(white);
    EXPECT_EQ(cv::countNonZero(white == 254), 31);
    EXPECT_EQ(cv::countNonZero(white == 255), 225);
}

TEST(GreyImage, DecodesEveryKindOfFileIntoGrey)
{
    cv::Mat colour(2, 4, CV_8UC3, cv::Scalar(0, 0, 255));
    EXPECT_EQ(Pixels(shapes::DecodeGrey(Encoded(".bmp", colour))), "4c4c4c4c 4c4c4c4c");
    EXPECT_EQ(Pixels(shapes::DecodeGrey(Encoded(".png", Grey("00408cff")))), "00408cff");
    EXPECT_EQ(Pixels(shapes::DecodeGrey(Encoded(".tiff", Grey("00408cff")))), "00408cff");
    cv::Mat sixteen(1, 4, CV_16U, cv::Scalar(0x8000));
    EXPECT_EQ(Pixels(shapes::DecodeGrey(Encoded(".png", sixteen))), "80808080");
    const cv::Mat clear(1, 4, CV_8UC4, cv::Scalar(0, 0, 0, 0)), deep(1, 4, CV_16UC4, cv::Scalar(0, 0, 0, 0));
    for (const char* kind : {".png", ".webp", ".tiff"})
        EXPECT_EQ(Pixels(shapes::DecodeGrey(Encoded(kind, clear, {cv::IMWRITE_WEBP_QUALITY, 101}))), "ffffffff")
            << kind;
    EXPECT_EQ(Pixels(shapes::DecodeGrey(Encoded(".png", deep))), "ffffffff");
    // (1 - 51/255) * 255 = 204; 100 * 51/255 + 204 = 224, over more rows than are narrowed at a time
    const cv::Mat tall(40, 4, CV_16UC4, cv::Scalar(25700, 25700, 25700, 13107));
    EXPECT_EQ(cv::countNonZero(shapes::DecodeGrey(Encoded(".png", tall)) == 224), 160);
}

/// Saved decodes must not show: each result is what two decodes would give.
TEST(GreyImage, EqualsTheDecodersOwnGrey)
{
    cv::Mat noise(16, 16, CV_8UC3);
    cv::randu(noise, 0, 256);
    QByteArray keyed = Encoded(".png", noise); // a colour that counts as transparent: four channels
    keyed.insert(33, PngChunk("tRNS", BigEndian<quint16>(noise.at<cv::Vec3b>(0)[2]) +
                                          BigEndian<quint16>(noise.at<cv::Vec3b>(0)[1]) +
                                          BigEndian<quint16>(noise.at<cv::Vec3b>(0)[0])));
    cv::Mat grey;
    cv::extractChannel(noise, grey, 0);
    for (const QByteArray& file : {Encoded(".png", noise), Encoded(".jpg", noise), Encoded(".png", grey), keyed,
                                   Encoded(".jpg", grey), Encoded(".bmp", noise), Encoded(".bmp", grey)}) {
        const std::vector<char> bytes(file.begin(), file.end());
        cv::Mat expected = cv::imdecode(bytes, cv::IMREAD_UNCHANGED);
        if (!shapes::RemoveAlpha(expected))
            expected = cv::imdecode(bytes, cv::IMREAD_GRAYSCALE | cv::IMREAD_IGNORE_ORIENTATION);
        EXPECT_EQ(Pixels(shapes::DecodeGrey(file)), Pixels(expected));
    }
    EXPECT_EQ(shapes::DecodeGrey(keyed).at<unsigned char>(0), 255) << "the keyed colour is clear";
}

TEST(GreyImage, WidthsGrowToAMultipleOfFour)
{
    EXPECT_EQ(Pixels(shapes::DecodeGrey(Encoded(".png", Grey("0102030405")))), "0101020203040405");
    EXPECT_EQ(shapes::DecodeGrey(Encoded(".png", cv::Mat(3, 101, CV_8U, cv::Scalar(1)))).size(), cv::Size(104, 3));
    EXPECT_EQ(shapes::DecodeGrey(Encoded(".png", cv::Mat(3, 100, CV_8U, cv::Scalar(1)))).size(), cv::Size(100, 3));
}

TEST(GreyImage, IsNeverTurnedByItsOrientation)
{
    const cv::Mat picture(8, 16, CV_8U, cv::Scalar(128));
    EXPECT_EQ(shapes::DecodeGrey(Jpeg(Orientation(6), picture)).size(), cv::Size(16, 8));
}

TEST(GreyImage, TiffsAreNotTurnedEither)
{
    for (const bool wide : {false, true})
        for (int turn = 1; turn <= 8; ++turn) {
            const QByteArray file = Tiff({{256, {4}}, {257, {2}}, {258, {8}}, {262, {1}}, {274, {turn}}, {278, {2}}},
                                         {QByteArray::fromHex("1020304050607080")}, wide);
            EXPECT_EQ(Pixels(shapes::DecodeGrey(file)), "10203040 50607080") << turn << wide;
        }
}

/// Of 16 bits, in planes: three samples, then four, which the decoder would take from the first plane alone.
TEST(GreyImage, PlanesThatTheDecoderMixesUpAreRefused)
{
    const auto file = [](int samples) {
        std::vector<QByteArray> planes;
        for (int i = 0; i < samples; ++i)
            planes.push_back(QByteArray(2 * 4 * 2, static_cast<char>(i == 3 ? 255 : 64 * (i + 1))));
        std::vector<std::pair<int, std::vector<int>>> fields{
            {256, {4}},       {257, {2}}, {258, std::vector<int>(samples, 16)}, {262, {2}}, {278, {2}},
            {277, {samples}}, {284, {2}}};
        if (samples == 4)
            fields.push_back({338, {2}});
        return Tiff(fields, planes);
    };
    // 0.299 * 64 + 0.587 * 128 + 0.114 * 192 = 116
    EXPECT_EQ(Pixels(shapes::DecodeGrey(file(3))), "74747474 74747474");
    EXPECT_EQ(Pixels(shapes::DecodeGrey(file(4))), "empty");
}

TEST(GreyImage, ColoursOfABmpLieWhereItsMasksSay)
{
    const auto decoded = [](const std::vector<quint32>& masks, const std::vector<quint32>& pixels) {
        return Pixels(shapes::DecodeGrey(BmpWithMasks(masks, pixels)));
    };
    const quint32 high = 0xFF0000, middle = 0xFF00, low = 0xFF, top = 0xFF000000;
    EXPECT_EQ(decoded({high, middle, low}, {high, middle, low, 0}), "4c961d00") << "red, green, blue, black";
    EXPECT_EQ(decoded({low, middle, high}, {high, middle, low, 0}), "1d964c00");
    EXPECT_EQ(decoded({top, high, middle}, {top, high, middle, 0}), "4c961d00");
    EXPECT_EQ(decoded({0x3FF00000, 0xFFC00, 0x3FF}, {0x3FF00000, 0xFFC00, 0x3FF, 0}), "empty")
        << "ten bits each: refused";
    EXPECT_EQ(decoded({high, middle, low, top}, {top | high, top | middle, top, low}), "4c9600ff")
        << "the last is clear";
}

TEST(GreyImage, TheClearValueOfAGreyPngIsWhite)
{
    const auto decoded = [](int depth, const char* row, int clear) {
        return Pixels(shapes::DecodeGrey(GreyPngWithClear(4, 1, depth, QByteArray::fromHex(row), clear)));
    };
    EXPECT_EQ(decoded(8, "0000408000", 0), "ff4080ff");
    EXPECT_EQ(decoded(8, "0000408000", 0x40), "00ff8000");
    EXPECT_EQ(decoded(1, "0050", 0), "ffffffff") << "0, 1, 0, 1";
    EXPECT_EQ(decoded(2, "001b", 1), "00ffaaff") << "0, 1, 2, 3";
    EXPECT_EQ(decoded(4, "0001f7", 0xFFF1), "00ffff77") << "bits above the depth do not count";
    EXPECT_EQ(decoded(16, "000000000140000000", 0), "ff0040ff") << "0001 is not the value";
}

TEST(GreyImage, FilesThatAreNoPictureLeaveTheShapeAsItIs)
{
    CShapeImage image;
    ASSERT_EQ(image.OpenImage(FileOf(Jpeg(Jfif(1, 254, 254), cv::Mat(4, 8, CV_8U, cv::Scalar(1)))).Path()), 0);
    const std::string before = Outline(image), name = image.GetFilename();
    const QByteArray png = Encoded(".png", cv::Mat(64, 64, CV_8UC4, cv::Scalar::all(9)));
    QByteArray huge = png;
    huge.replace(
        8, 25,
        PngChunk("IHDR", BigEndian<quint32>(30000) + BigEndian<quint32>(30000) + QByteArray("\x08\x06\0\0\0", 5)));
    QByteArray absurd = png;
    absurd.replace(8, 25,
                   PngChunk("IHDR", BigEndian<quint32>(0x7FFFFFFF) + BigEndian<quint32>(0x7FFFFFFF) +
                                        QByteArray("\x08\x06\0\0\0", 5)));
    for (const QByteArray& file : {QByteArray(), QByteArray("no picture"), png.left(20), huge, absurd})
        EXPECT_EQ(image.OpenImage(FileOf(file).Path()), 2) << file.size();
    char missing[] = "/no/such/file.png", folder[] = "/", device[] = "/dev/zero";
    for (char* path : {missing, folder, device, static_cast<char*>(nullptr)})
        EXPECT_EQ(image.OpenImage(path), 2);
    EXPECT_EQ(Outline(image), before);
    EXPECT_EQ(image.GetFilename(), name);
    EXPECT_EQ(image.GetXDpi(), 254U);
}

/// 38 bytes of lossless WebP rightly are a blank picture of any size; this one has 67 megapixels.
TEST(GreyImage, BlankPicturesAreLarge)
{
    const quint32 side = 8200;
    QByteArray blank =
        QByteArray::fromHex("524946461e000000574542505650384c110000002f7ffe9f0f07d0fffef7bfff8188e87f0000");
    blank.replace(21, 4, Little(4, (side - 1) | (side - 1) << 14));
    const cv::Mat picture = shapes::DecodeGrey(blank);
    EXPECT_EQ(picture.size(), cv::Size(side, side));
    EXPECT_EQ(cv::countNonZero(picture != 255), 0);
}

TEST(GreyImage, TheScansOfAJpegAreBounded)
{
    QByteArray jpeg = Encoded(".jpg", Textured(16, 16), {cv::IMWRITE_JPEG_PROGRESSIVE, 1});
    const auto scans = [&jpeg] {
        return shapes::CountJpegScans({reinterpret_cast<const unsigned char*>(jpeg.data()), size_t(jpeg.size())}, 1000);
    };
    EXPECT_EQ(scans(), 6U) << "the usual number for grey";
    EXPECT_EQ(shapes::DecodeGrey(jpeg).size(), cv::Size(16, 16));
    QByteArray random(10 << 20, '\0'), baseline = Encoded(".jpg", Textured(16, 16));
    cv::randu(cv::Mat(1, static_cast<int>(random.size()), CV_8U, random.data()), 0, 256);
    EXPECT_EQ(shapes::DecodeGrey(baseline + random).size(), cv::Size(16, 16))
        << "what follows the picture is not counted";
    const qsizetype last = jpeg.lastIndexOf("\xFF\xDA"), end = jpeg.lastIndexOf("\xFF\xD9");
    jpeg.insert(end, jpeg.mid(last, end - last).repeated(95));
    EXPECT_EQ(scans(), 101U);
    EXPECT_TRUE(shapes::DecodeGrey(jpeg).empty());
}

/// A few bytes that claim 32768 x 32768 pixels (WebP: 16383 x 16383, which fit, but are not there).
TEST(GreyImage, SizesBeyondTheBoundAreRefused)
{
    const auto claims = [](const QByteArray& file, const char* format, uint64_t side) {
        const auto header =
            shapes::ReadPictureHeader({reinterpret_cast<const unsigned char*>(file.data()), size_t(file.size())});
        ASSERT_TRUE(header);
        EXPECT_STREQ(header->format, format);
        EXPECT_EQ(header->width, side);
        EXPECT_EQ(header->height, side);
        EXPECT_TRUE(shapes::DecodeGrey(file).empty()) << format;
    };
    QByteArray little = QByteArray("II*\0", 4) + Little(4, 8) + Little(2, 2);
    for (const int tag : {256, 257})
        little += Little(2, tag) + Little(2, 3) + Little(4, 1) + Little(4, 32768);
    claims(little, "tiff", 32768);
    QByteArray wide = QByteArray("II+\0\x08\0\0\0", 8) + Little(8, 16) + Little(8, 2);
    for (const int tag : {256, 257})
        wide += Little(2, tag) + Little(2, 16) + Little(8, 1) + Little(8, 32768);
    claims(wide, "tiff", 32768);
    const auto entry = [](int tag) {
        return BigEndian<quint16>(tag) + BigEndian<quint16>(4) + BigEndian<quint32>(1) + BigEndian<quint32>(32768);
    };
    const QByteArray big = QByteArray("MM\0*", 4) + BigEndian<quint32>(8) + BigEndian<quint16>(2);
    claims(big + entry(256) + entry(257), "tiff", 32768);
    claims(big + entry(322) + entry(323), "tiff", 32768);
    claims(Webp("VP8 " + Little(4, 30) + QByteArray("\0\0\0\x9d\x01\x2a", 6) + Little(2, 16383) + Little(2, 16383)),
           "webp", 16383);
    claims(Webp("VP8L" + Little(4, 30) + "/" + Little(4, 16382 | 16382 << 14)), "webp", 16383);
    claims(Webp("VP8X" + Little(4, 10) + Little(4, 0) + Little(3, 32767) + Little(3, 32767)), "webp", 32768);
    claims("P4 # width\n32768 32768 " + QByteArray(80, '\0'), "ppm", 32768);
    QByteArray bmp = Encoded(".bmp", cv::Mat(4, 4, CV_8U, cv::Scalar(9)));
    claims(bmp.replace(18, 8, Little(4, 32768) + Little(4, static_cast<quint32>(-32768))), "bmp", 32768);
    QByteArray jpeg = Encoded(".jpg", cv::Mat(4, 4, CV_8U, cv::Scalar(9)));
    const qsizetype frame = jpeg.indexOf("\xFF\xC0");
    claims(jpeg.replace(frame + 5, 4, BigEndian<quint32>(0x80008000)), "jpeg", 32768);
    EXPECT_TRUE(shapes::DecodeGrey(Encoded(".jp2", cv::Mat(64, 64, CV_8U, cv::Scalar(9)))).empty())
        << "a kind whose size is not looked at";
}

/// Every cut of every header, for the sanitizers.
TEST(GreyImage, SurvivesFilesThatEndEarly)
{
    const cv::Mat picture(4, 4, CV_8U, cv::Scalar(9));
    for (const char* kind : {".png", ".jpg", ".bmp", ".tiff", ".webp", ".pgm"}) {
        const QByteArray file = Encoded(kind, picture);
        EXPECT_EQ(shapes::DecodeGrey(file).size(), cv::Size(4, 4)) << kind;
        for (qsizetype length = 0; length < file.size(); ++length) {
            const std::vector<unsigned char> part(file.begin(), file.begin() + length);
            shapes::ReadPictureHeader(part);
            shapes::DecodeGrey(file.left(length));
        }
    }
}

TEST(GreyImage, RecordsHoldEightBitGreyWithoutGaps)
{
    EXPECT_EQ(Pixels(shapes::RecordImage(Grey("00408cff"))), "00408cff");
    EXPECT_EQ(Pixels(shapes::RecordImage(Grey("1111111111"))), "1111111111111111");
    EXPECT_EQ(Pixels(shapes::RecordImage(cv::Mat(1, 4, CV_8UC3, cv::Scalar(0, 0, 255)))), "4c4c4c4c");
    EXPECT_EQ(Pixels(shapes::RecordImage(cv::Mat(1, 4, CV_8UC2, cv::Scalar(5, 9)))), "05050505");
    EXPECT_EQ(Pixels(shapes::RecordImage(cv::Mat(1, 4, CV_16U, cv::Scalar(65535)))), "ffffffff");
    EXPECT_EQ(Pixels(shapes::RecordImage(cv::Mat(1, 4, CV_32F, cv::Scalar(300.0)))), "ffffffff");
    const cv::Mat part = shapes::RecordImage(Grey("01020304ff 05060708ff").colRange(0, 4));
    EXPECT_TRUE(part.isContinuous());
    EXPECT_EQ(Pixels(part), "01020304 05060708");
    const int sides[] = {2, 2, 2};
    EXPECT_EQ(Pixels(shapes::RecordImage(cv::Mat(3, sides, CV_8U, cv::Scalar(1)))), "empty");
}
