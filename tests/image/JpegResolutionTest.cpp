#include "image/JpegResolution.h"
#include "image/ImageFiles.h"

#include <gtest/gtest.h>

using namespace test;

namespace {

shapes::JpegResolution s_read;

/// "yes 300x150", "no 96x96 error text": what the parser makes of a header when 11 x 22 was known before.
std::string Read(const QByteArray& file)
{
    s_read = {11, 22, ""};
    const bool found = shapes::ReadJpegResolution(
        {reinterpret_cast<const unsigned char*>(file.constData()), static_cast<size_t>(file.size())}, s_read);
    const std::string text = QString("%1 %2x%3").arg(found ? "yes" : "no").arg(s_read.x).arg(s_read.y).toStdString();
    return *s_read.error ? text + " " + s_read.error : text;
}

QByteArray LongEnough(const QByteArray& header)
{
    return header.leftJustified(64, '\0');
}

} // namespace

TEST(JpegResolution, LooksOnlyAtTheFourthByteAndNeedsThirtyTwo)
{
    const QByteArray jfif = LongEnough(Jfif(2, 118, 118));
    EXPECT_EQ(Read(jfif), "yes 299.72x299.72");
    EXPECT_EQ(Read(QByteArray("abc") + jfif.mid(3)), "yes 299.72x299.72") << "the bytes before are not compared";
    EXPECT_EQ(Read(jfif.left(32)), "yes 299.72x299.72");
    EXPECT_EQ(Read(jfif.left(31)), "no 11x22");
    EXPECT_EQ(Read(LongEnough("\xFF\xD8\xFF\xDB")), "no 11x22");
    EXPECT_EQ(Read({}), "no 11x22");
}

TEST(JpegResolution, SaysWhyItRefusesAnExifHeader)
{
    const Exif right("II");
    const auto changed = [&](qsizetype at, const char* bytes) {
        QByteArray file = LongEnough(right.Segment());
        return file.replace(at, static_cast<qsizetype>(strlen(bytes)), bytes);
    };
    EXPECT_EQ(Read(LongEnough(right.Segment())), "yes 11x22");
    EXPECT_EQ(Read(changed(11, "x")), "no 11x22 Incorrect Exif header");
    EXPECT_EQ(Read(changed(12, "IM")), "no 11x22 Invalid Exif alignment marker.");
    EXPECT_EQ(Read(changed(14, "+")), "no 11x22 Invalid Exif start (1)");
    EXPECT_EQ(Read(changed(20, "\x09")), "no 11x22 Illegally sized directory");
    EXPECT_EQ(Read(LongEnough(Exif("MM").Add(282, 13, 1, 0).Segment())), "no 11x22 Illegal format code in EXIF dir");
    EXPECT_EQ(Read(LongEnough(Exif("II").Add(282, 3, 1, 200).Add(283, 0, 1, 0).Segment())),
              "no 200x22 Illegal format code in EXIF dir");
    EXPECT_EQ(Read(LongEnough(Exif("II").Add(282, 5, 1, 0xFFFFFFFF).Segment())),
              "no 11x22 Illegal pointer offset value in EXIF.");
    EXPECT_EQ(Read(LongEnough(Exif("II").Add(700, 12, 0xFFFFFFFF, 8).Segment())),
              "no 11x22 Illegal pointer offset value in EXIF.");
}

TEST(JpegResolution, TheSegmentsLengthBoundsTheDirectory)
{
    QByteArray file = LongEnough(Exif("II").Add(282, 3, 1, 200).Segment());
    file[5] = 6 + 8 + 2 + 12; // signature, TIFF header, count, one entry: just enough
    EXPECT_EQ(Read(file), "yes 200x22");
    file[5] = 6 + 8 + 2 + 11;
    EXPECT_EQ(Read(file), "no 11x22 Illegally sized directory");
    for (const int length : {0, 5, 6, 7, 8, 15}) {
        file[5] = static_cast<char>(length);
        EXPECT_EQ(Read(file).substr(0, 8), "no 11x22") << length;
    }
    file[4] = '\xFF'; // longer than the file: the file's end counts
    EXPECT_EQ(Read(file), "yes 200x22");
}

/// Every cut and every single changed byte of two headers, for the sanitizers.
TEST(JpegResolution, SurvivesDamagedHeaders)
{
    for (const char* order : {"II", "MM"}) {
        const QByteArray file = Exif(order).AddRational(282, 300, 1).AddRational(283, 150, 1).Segment();
        for (qsizetype length = 32; length <= file.size(); ++length)
            EXPECT_EQ(Read(file.left(length)).empty(), false);
        for (qsizetype at = 0; at < file.size(); ++at) {
            for (const int value : {0x00, 0x01, 0x7F, 0x80, 0xE0, 0xE1, 0xFF}) {
                QByteArray damaged = file;
                damaged[at] = static_cast<char>(value);
                Read(damaged);
                EXPECT_TRUE(s_read.x >= 0 && s_read.y >= 0) << at << " " << value;
            }
        }
    }
}
