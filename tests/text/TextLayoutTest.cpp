#include "text/TextLayout.h"
#include "geometry/PathExtent.h"
#include "support/Outline.h"
#include "text/MakeText.h"
#include "text/PlainTextLayout.h"
#include "text/TextAlignment.h"

#include <QFont>
#include <QPainterPath>

#include <gtest/gtest.h>

#include <limits>
#include <random>

using shapes::PathExtent;
using shapes::TextLayout;
using test::MakeText;

namespace {

/// Where the two paths first differ by a single bit; -1 where they do not.
int FirstDifference(const QPainterPath& a, const QPainterPath& b)
{
    for (int i = 0; i < std::min(a.elementCount(), b.elementCount()); ++i) {
        const QPainterPath::Element p = a.elementAt(i), q = b.elementAt(i);
        if (p.type != q.type || p.x != q.x || p.y != q.y)
            return i;
    }
    return a.elementCount() == b.elementCount() ? -1 : std::min(a.elementCount(), b.elementCount());
}

std::string RectText(const QRectF& rect)
{
    char text[128];
    std::snprintf(text, sizeof text, "%a %a %a %a", rect.x(), rect.y(), rect.width(), rect.height());
    return text;
}

void ExpectPlainLayout(const SText& text, const std::string& what)
{
    TextLayout layout(text);
    const QPainterPath plain = test::PlainOutline(text);
    EXPECT_EQ(FirstDifference(layout.Outline(), plain), -1) << what;
    const QList<QRectF> rects = layout.LineRects(), plainRects = test::PlainLineRects(text);
    ASSERT_EQ(rects.size(), plainRects.size()) << what;
    for (qsizetype i = 0; i < rects.size(); ++i)
        EXPECT_EQ(RectText(rects[i]), RectText(plainRects[i])) << what << ", line " << i;
}

QPainterPath Letter(const SText& text, QPointF at, const QString& letter)
{
    QFont font(text.font.szFamily);
    font.setPixelSize(static_cast<int>(text.font.dSize));
    QPainterPath path;
    path.addText(at, font, letter);
    return path;
}

struct Manner
{
    const char* name;
    void (*apply)(SText&);
};

const Manner kManners[] = {
    {"as it is", [](SText&) {}},
    {"bold italic, loose", [](SText& t) { t.font.bBold = t.font.bItalic = 1, t.dCharSpacing = 0.3; }},
    {"underlined, centred", [](SText& t) { t.font.bUnderline = 1, t.nAlign = ETEXTALIGNMENT_CENTER; }},
    {"italic, tight, right, lines apart",
     [](SText& t) {
         t.font.bItalic = 1, t.dCharSpacing = -1.7, t.dLineSpacing = 3.3, t.nAlign = ETEXTALIGNMENT_RIGHT;
     }},
    {"letters on top of each other", [](SText& t) { t.dCharSpacing = -25; }},
    {"columns", [](SText& t) { t.font.bVerticalText = 1, t.dLineSpacing = 2.5; }},
    {"columns left to right, underlined, centred",
     [](SText& t) {
         t.font.bVerticalText = t.font.bColumnsLeftToRight = t.font.bUnderline = 1, t.nAlign = ETEXTALIGNMENT_CENTER;
     }},
};

} // namespace

TEST(TextLayout, places_every_letter_as_the_plain_procedure_does)
{
    const std::string words = "Affinity jWAVE, 0.5 mm\n\n\"fly\" Tokyo\tfjord (quick)\n東京 文字 ABC\nlast\n";
    // The u of DejaVu Sans ends in a lone move-to, which the next letter replaces.
    for (const char* family :
         {"Liberation Sans", "Liberation Serif", "Liberation Mono", "Noto Sans CJK SC", "DejaVu Sans", "No Such"})
        for (const double size : {7.0, 20.0, 33.9, 250.0})
            for (const Manner& manner : kManners) {
                SText text = MakeText(words, family, size);
                manner.apply(text);
                ExpectPlainLayout(text, std::string(family) + " " + std::to_string(size) + " " + manner.name);
            }
}

TEST(TextLayout, places_long_lines_and_white_space_as_the_plain_procedure_does)
{
    std::string line;
    while (line.size() < 400)
        line += "The quick brown fox jumps over the lazy dog; ";
    ExpectPlainLayout(MakeText(line), "400 letters");
    ExpectPlainLayout(MakeText(line, "Liberation Serif", 37), "400 letters, serif");
    // Ideographic, no-break and em space keep no width of their own, at the start of a line, within it and alone.
    ExpectPlainLayout(MakeText("\u3000a\u00a0b\u2003c\n\u3000\n d \n \nj"), "white space");
    // Letters that end in a lone move-to, or are nothing else: first, last, alone and before white space.
    const std::string symbols = "u\u2320\u2321u\n\u2001\nu\u3000u\u2003\n\u2320 \u239b\n\u2001u\u2003u\u2321\nu";
    for (const char* family : {"Symbola", "DejaVu Sans"})
        for (const Manner& manner : kManners) {
            SText text = MakeText(symbols, family, 100);
            manner.apply(text);
            ExpectPlainLayout(text, std::string(family) + " " + manner.name);
        }
    // A later letter that reaches further left than the first.
    SText overhang = MakeText("i\u0416jjj", "Liberation Serif", 60);
    overhang.font.bItalic = 1;
    overhang.dCharSpacing = -14;
    ExpectPlainLayout(overhang, "overhang");
}

TEST(TextLayout, blank_lines_take_no_room_but_have_a_rectangle)
{
    SText blank = MakeText("A\n\nB");
    EXPECT_EQ(FirstDifference(TextLayout(blank).Outline(), TextLayout(MakeText("A\nB")).Outline()), -1);
    const QList<QRectF> rects = TextLayout(blank).LineRects();
    ASSERT_EQ(rects.size(), 3);
    EXPECT_DOUBLE_EQ(rects[1].width(), Letter(blank, {0, 0}, "SPACE").boundingRect().width());
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
    const double plain = lastBottom("H\nH\nH");
    EXPECT_DOUBLE_EQ(plain, 40);
    const double ideographBottom = lastBottom("\u7530");
    const double second = static_cast<int>(ideographBottom + 20);
    EXPECT_DOUBLE_EQ(lastBottom("\u7530\nH"), second);
    EXPECT_DOUBLE_EQ(lastBottom("\u7530\nH\nH"), second + 20 + 150);
    EXPECT_DOUBLE_EQ(lastBottom("\u7530\nH\nH\nH"), second + 40 + 150);
    EXPECT_DOUBLE_EQ(lastBottom("\u7530\n\nH\nH"), second + 20) << "an empty line between them breaks the pair";
    EXPECT_DOUBLE_EQ(lastBottom("\u9fa6\nH\nH"), lastBottom("\u9fa6\nH") + 20) << "just above the ideographs' range";
}

TEST(TextAlignment, moves_rectangles_horizontally)
{
    const QList<QRectF> lines{{10, 1, 20, 5}, {-4, 2, 50, 6}, {0, 3, 4, 7}};
    const auto aligned = [&](int mode) {
        QList<QRectF> rects = lines;
        shapes::AlignLines(rects, static_cast<ETEXTALIGNMENT_MODE>(mode));
        std::string text;
        for (const QRectF& rect : rects)
            text += test::Rect(rect) + "; ";
        return text;
    };
    const std::string left = "-4,1,20,5; -4,2,50,6; -4,3,4,7; ";
    EXPECT_EQ(aligned(1), left);
    EXPECT_EQ(aligned(2), "10,1,20,5; -5,2,50,6; 18,3,4,7; ") << "on the first line's centre, not the widest one's";
    EXPECT_EQ(aligned(3), "26,1,20,5; -4,2,50,6; 42,3,4,7; ");
    for (const int other : {0, 4, 7, -1})
        EXPECT_EQ(aligned(other), left);
}

TEST(PathExtent, is_bitwise_the_bounding_rectangle)
{
    std::mt19937 random(5);
    for (const double reach : {1.0, 300.0, 1e5}) {
        std::uniform_real_distribution<double> coordinate(-0.2 * reach, reach);
        const auto point = [&] { return QPointF(coordinate(random), coordinate(random)); };
        for (int round = 0; round < 300; ++round) {
            QPainterPath path;
            PathExtent extent;
            for (int piece = 0; piece < 6; ++piece) {
                const int before = path.isEmpty() ? 0 : path.elementCount() - 1; // the lone move-to
                path.moveTo(point());
                path.lineTo(point());
                path.cubicTo(point(), point(), point());
                path.quadTo(point(), point());
                path.closeSubpath();
                extent.Add(path, before);
                ASSERT_EQ(RectText(extent.Rect()), RectText(path.boundingRect()));
                path.moveTo(point()); // counts until the next piece begins, in whose place it stands
                extent.Add(path, path.elementCount() - 1);
                ASSERT_EQ(RectText(extent.Rect()), RectText(path.boundingRect()));
            }
        }
    }
    PathExtent nothing;
    nothing.Add(QPainterPath());
    nothing.Add(QPainterPath(QPointF()));
    EXPECT_TRUE(nothing.Rect().isNull());
    QPainterPath point;
    point.moveTo(5, 6);
    nothing.Add(point);
    EXPECT_EQ(RectText(nothing.Rect()), RectText(point.boundingRect()));
}

TEST(TextLayout, odd_parameters_end_in_an_outline)
{
    const double huge = 1e300, nan = std::numeric_limits<double>::quiet_NaN(),
                 inf = std::numeric_limits<double>::infinity();
    for (const double odd : {huge, -huge, nan, inf, -inf, -3.0, 0.0, 1e6, 2147483647.0})
        for (const uint8_t vertical : {0, 1}) {
            SText text = MakeText("a b\n\u7530\nc\nd");
            text.font.bVerticalText = text.font.bUnderline = vertical;
            text.font.dSize = odd;
            EXPECT_GT(TextLayout(text).Outline().elementCount(), 10) << "size " << odd;
            text.font.dSize = 20;
            text.dCharSpacing = odd;
            EXPECT_GT(TextLayout(text).Outline().elementCount(), 10) << "letters " << odd;
            text.dLineSpacing = odd;
            EXPECT_GT(TextLayout(text).Outline().elementCount(), 10) << "lines " << odd;
        }
    // Halves of characters are laid out as they stand, each for itself: an emoji takes two places.
    EXPECT_TRUE(TextLayout(MakeText("\xF0\x9F\x98\x80")).LineRects()[0].isValid());
    EXPECT_TRUE(TextLayout(MakeText("\xED\xA0\x80 \xFF\xC3")).LineRects()[0].isValid());
}

TEST(TextLayout, buffers_without_terminator_are_bounded)
{
    SText text = MakeText("");
    std::memset(text.pText, '.', TEXT_BUFFER_SIZE);
    std::memset(text.font.szFamily, 'x', sizeof text.font.szFamily);
    const QList<QRectF> rects = TextLayout(text).LineRects();
    // 16,383 full stops: the last byte is the terminator's place.
    const QRectF dot = Letter(text, {0, 0}, ".").boundingRect();
    EXPECT_NEAR(rects[0].width(), 16383 * dot.width() + 16382 * dot.left(), 16383.0 / 64);
}
