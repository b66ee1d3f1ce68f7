/// Layout of texts, and the kernels below it: fonts and alignment.
#include "text/TextLayout.h"
#include "support/Outline.h"
#include "text/MakeText.h"
#include "text/PlainTextLayout.h"
#include "text/TextAlignment.h"
#include "text/TextFont.h"

#include <QDataStream>
#include <QFont>
#include <QPainterPath>

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <tuple>

using shapes::TextLayout;
using test::MakeText;

namespace {

/// The bits of a path, or of rectangles.
template <class Value>
QByteArray Bits(const Value& value)
{
    QByteArray bytes;
    QDataStream out(&bytes, QIODevice::WriteOnly);
    out << value;
    return bytes;
}

void ExpectPlainLayout(const SText& text, const std::string& what)
{
    TextLayout layout(text);
    EXPECT_TRUE(Bits(layout.Outline()) == Bits(test::PlainOutline(text))) << what;
    EXPECT_TRUE(Bits(layout.LineRects()) == Bits(test::PlainLineRects(text))) << what;
}

const std::pair<const char*, void (*)(SText&)> kManners[] = {
    {"as it is", [](SText&) {}},
    {"bold italic, loose", [](SText& t) { t.font.bBold = t.font.bItalic = 1, t.dCharSpacing = 0.3; }},
    {"underlined, centred", [](SText& t) { t.font.bUnderline = 1, t.nAlign = ETEXTALIGNMENT_CENTER; }},
    {"tight, right", [](SText& t) { t.dCharSpacing = -1.7, t.dLineSpacing = 3.3, t.nAlign = ETEXTALIGNMENT_RIGHT; }},
    {"letters on top of each other", [](SText& t) { t.dCharSpacing = -25; }},
    {"columns", [](SText& t) { t.font.bVerticalText = 1, t.dLineSpacing = 2.5; }},
    {"columns left to right, underlined",
     [](SText& t) { t.font.bVerticalText = t.font.bColumnsLeftToRight = t.font.bUnderline = 1; }}};

} // namespace

TEST(TextLayout, places_every_letter_as_the_plain_procedure_does)
{
    const std::string words = "Affinity jWAVE, 0.5 mm\n\n\"fly\" Tokyo\tfjord (quick)\n東京 文字 ABC\nlast\n一\nx\ny";
    // Letters that end in a lone move-to, which the next letter replaces, or are nothing else: first, last, alone and
    // before white space. Ideographic, no-break and em space keep no width of their own.
    const std::string symbols =
        "u\u2320\u2321u\n\u2001\nu\u3000u\u2003\n\u2320 \u239b\n\u2001u\u2003u\u2321\nu\n d \n \nj";
    const std::tuple<std::string, const char*, double> rows[] = {
        {words, "Liberation Sans", 7.0},   {words, "Liberation Sans", 33.9}, {words, "Liberation Serif", 20.0},
        {words, "Noto Sans CJK SC", 33.9}, {words, "DejaVu Sans", 100.0},    {words, "No Such", 20.0},
        {symbols, "Symbola", 100.0},       {symbols, "DejaVu Sans", 100.0}};
    for (const auto& [letters, family, size] : rows)
        for (const auto& [name, apply] : kManners) {
            SText text = MakeText(letters, family, size);
            apply(text);
            ExpectPlainLayout(text, std::string(family) + " " + std::to_string(size) + " " + name);
        }
    std::string line;
    while (line.size() < 400)
        line += "The quick brown fox jumps over the lazy dog; ";
    ExpectPlainLayout(MakeText(line), "400 letters");
    // A later letter that reaches further left than the first.
    SText overhang = MakeText("i\u0416jjj", "Liberation Serif", 60);
    overhang.font.bItalic = 1;
    overhang.dCharSpacing = -14;
    ExpectPlainLayout(overhang, "overhang");
}

TEST(TextLayout, blank_lines_take_no_room_but_have_a_rectangle)
{
    SText blank = MakeText("A\n\nB");
    EXPECT_EQ(Bits(TextLayout(blank).Outline()), Bits(TextLayout(MakeText("A\nB")).Outline()));
    EXPECT_EQ(TextLayout(blank).LineRects().size(), 3);
    EXPECT_EQ(TextLayout(MakeText("")).LineRects().size(), 1);
    EXPECT_TRUE(TextLayout(MakeText("")).Outline().isEmpty());
}

// The baselines of "ink" lines: each starts (int)(bottom of the one before + size) lower, and 150 more behind a line
// without ideographs that follows one with them.
TEST(TextLayout, gap_behind_ideographs_moves_the_line_after_the_next)
{
    const auto lastBottom = [](const char* lines) {
        return TextLayout(MakeText(lines)).Outline().boundingRect().bottom();
    };
    // Both letters stand on the baseline, so line 2 begins at 20 and line 3 at 40.
    EXPECT_DOUBLE_EQ(lastBottom("H\nH\nH"), 40);
    for (const char* ideograph : {"\u7530", "\u4e00", "\u9fa5"}) { // the range's ends included
        const std::string first = ideograph;
        const double second = static_cast<int>(lastBottom(ideograph) + 20);
        EXPECT_DOUBLE_EQ(lastBottom((first + "\nH").c_str()), second);
        EXPECT_DOUBLE_EQ(lastBottom((first + "\nH\nH").c_str()), second + 20 + 150);
        EXPECT_DOUBLE_EQ(lastBottom((first + "\n\nH\nH").c_str()), second + 20) << "an empty line breaks the pair";
    }
    EXPECT_DOUBLE_EQ(lastBottom("\u9fa6\nH\nH"), lastBottom("\u9fa6\nH") + 20) << "just above the range";
}

TEST(TextAlignment, moves_rectangles_horizontally)
{
    const auto aligned = [](int mode) {
        QList<QRectF> rects{{10, 1, 20, 5}, {-4, 2, 50, 6}, {0, 3, 4, 7}};
        shapes::AlignLines(rects, static_cast<ETEXTALIGNMENT_MODE>(mode));
        return test::Rect(rects[0]) + "; " + test::Rect(rects[1]) + "; " + test::Rect(rects[2]);
    };
    EXPECT_EQ(aligned(2), "10,1,20,5; -5,2,50,6; 18,3,4,7") << "on the first line's centre, not the widest one's";
    EXPECT_EQ(aligned(3), "26,1,20,5; -4,2,50,6; 42,3,4,7");
    for (const int left : {1, 0, 4, 7, -1})
        EXPECT_EQ(aligned(left), "-4,1,20,5; -4,2,50,6; -4,3,4,7");
}

TEST(TextFont, takes_whole_pixels_and_underlines_rows_alone)
{
    const std::pair<double, int> sizes[] = {{20.9, 20}, {1, 1}, {0.9, -1}, {0, -1}, {-3, -1}, {1e300, 2147483647}};
    for (const auto& [size, pixels] : sizes)
        EXPECT_EQ(shapes::MakeFont(MakeText("", "Liberation Sans", size).font).pixelSize(), pixels) << size;
    EXPECT_EQ(shapes::WholePixels(std::nan("")), 0);
    EXPECT_EQ(shapes::WholePixels(-1e300), std::numeric_limits<int>::min());
    STextFont parameters = MakeText("", "Häßlich").font;
    EXPECT_EQ(shapes::MakeFont(parameters).family(), QString::fromUtf8("Häßlich"));
    parameters.bVerticalText = parameters.bUnderline = 1;
    EXPECT_FALSE(shapes::MakeFont(parameters).underline());
    EXPECT_EQ(shapes::MakeFont(parameters).hintingPreference(), QFont::PreferVerticalHinting);
    std::memset(parameters.szFamily, 'x', sizeof parameters.szFamily);
    EXPECT_EQ(shapes::MakeFont(parameters).family(), QString(63, 'x')) << "the last byte is the terminator's place";
}

/// The first column begins at 0, the next is one line to its left where nothing else is said.
TEST(TextLayout, columns_go_to_the_left_or_the_right)
{
    SText text = MakeText("I\nI");
    text.font.bVerticalText = 1;
    const QRectF left = TextLayout(text).Outline().boundingRect();
    text.font.bColumnsLeftToRight = 1;
    const QRectF right = TextLayout(text).Outline().boundingRect();
    EXPECT_LT(left.left(), -10);
    EXPECT_GT(left.right(), 0);
    EXPECT_GE(right.left(), 0);
    EXPECT_GT(right.right(), 10);
}

TEST(TextLayout, odd_parameters_end_in_an_outline)
{
    const double nan = std::nan(""), inf = HUGE_VAL;
    for (const double odd : {1e300, -1e300, nan, inf, -inf, -3.0, 0.0, 1e6, 2147483647.0})
        for (const uint8_t vertical : {0, 1}) {
            SText text = MakeText("a b\n\u7530\nc\nd");
            text.font.bVerticalText = text.font.bUnderline = vertical;
            for (double* parameter : {&text.font.dSize, &text.dCharSpacing, &text.dLineSpacing}) {
                *parameter = odd;
                EXPECT_GT(TextLayout(text).Outline().elementCount(), 10) << odd;
                text.font.dSize = 20;
            }
        }
    // Halves of characters are laid out as they stand, each for itself: an emoji takes two places.
    EXPECT_TRUE(TextLayout(MakeText("\xF0\x9F\x98\x80")).LineRects()[0].isValid());
    EXPECT_TRUE(TextLayout(MakeText("\xED\xA0\x80 \xFF\xC3")).LineRects()[0].isValid());
}

// 16,383 bytes: the last one is the terminator's place.
TEST(TextLayout, buffers_without_terminator_are_bounded)
{
    SText text = MakeText("");
    std::memset(text.pText, '\n', TEXT_BUFFER_SIZE);
    EXPECT_EQ(TextLayout(text).LineRects().size(), 16384) << "lines around 16,383 line feeds";
}
