/// How far drawings reach, judged from their sources: each bound by hand, in user units.
#include "svg/DrawingSource.h"

#include <gtest/gtest.h>

#include <limits>

using namespace shapedocument::drawing;

namespace {

constexpr double kAnywhere = std::numeric_limits<double>::infinity();

struct Source
{
    const char* content;
    double reach;
};

#define LINE "<path id='a' d='M0 0L40 0'/>"

const Source kSources[] = {
    {"", 0},
    // Paths: the farthest coordinate of points and controls, to the point where the text has an error.
    {"<path d='M10 -40L20 30'/>", 40},
    {"<path d='m10 10l10 0 10 0h20z l-60 1'/>", 50},
    {"<path d='M0 0C0 70 0 0 9 9'/>", 70},
    {"<path d='M0 0L10 0X L900 0'/>", 10},
    {"<path d='M1e1-4.5.5 3'/>", 10},
    // The control before is taken as mirrored anywhere around the start: 2 * 9 + 9.
    {"<path d='M0 0C0 0 9 0 9 9S0 0 0 0'/>", 27},
    // Ends and twice the longer radius, which grows by the chord over the shorter one.
    {"<path d='M0 0A10 10 0 0120 0'/>", 20 + 2 * 10 * 2},
    {"<path d='M0 0A1 50 0 0 1 10 0'/>", 10 + 2 * 50 * 10},
    {"<path d='M0 0L1e999 0'/>", kAnywhere},
    // Boxes: as far away as they are large.
    {"<rect x='10' y='20' width='30' height='5'/>", 60},
    {"<polygon points='1,2 -30,4'/>", 60},
    {"<rect width='1in' height='10mm'/>", 2 * 96},
    {"<svg width='40' height='40'><rect width='50%' height='9'/></svg>", 80},
    {"<rect width='5em' height='1'/>", kAnywhere},
    {"<rect x='9\\69 n' width='1' height='1'/>", kAnywhere},
    // Widths of lines are inherited, and lengths of styles and rules hold in any frame.
    {"<g stroke-width='50'>" LINE "</g>", 100},
    {"<g style='fill:#a98765;stroke-width:50px'>" LINE "</g>", 100},
    {"<g transform='scale(3)'>" LINE "</g><style>#a{stroke-width:50}</style>", 300},
    {"<style>#a{x:41<!-- -->94px}</style>", 2 * 4194},
    {"<style>#a{width:50%}</style>", kAnywhere},
    {"<style>#a{transform:scale(9)}</style>", kAnywhere},
    {"<style>#a{text-transform:none;stroke-width:5}</style>", 10},
    // Transforms; the line's end gets as far in most of them.
    {"<g transform='translate(5,7) translate(10)'>" LINE "</g>", 40 + 10 + 7},
    {"<g transform='scale(2 -3)'>" LINE "</g>", 120},
    {"<g transform='rotate(90)'>" LINE "</g>", 40},
    {"<g transform='rotate(180 -50 0)'>" LINE "</g>", 140},
    {"<g transform='skewX(45)'>" LINE "</g>", 80},
    {"<g transform='matrix(1 2 3 4 5 6)'><path d='M10 10'/></g>", 66},
    {"<g transform='scale(.1)'><g transform='scale(.1)'>" LINE "</g></g>", 0.4},
    {"<g transform='scale(.1 .1 1)'>" LINE "</g>", kAnywhere},
    {"<g transform='translate(1,,2)'>" LINE "</g>", kAnywhere},
    {"<g transform='turn(1)'>" LINE "</g>", kAnywhere},
    {"<g style='transform:scale(9)'>" LINE "</g>", kAnywhere},
    // Tenfold, and it may stand anywhere in its viewport: that one's side and the box's.
    {"<svg width='50' height='50' viewBox='0 0 5 5'><path d='M0 0L4 0'/></svg>", 50 + 10 * 5 + 10 * 4},
    {"<svg width='50' height='50' viewBox='0 0 5 0'/>", kAnywhere},
    // Uses: each may show any other.
    {LINE "<use href='#a' x='20'/>", 60},
    {LINE "<use id='b' href='#a' x='20'/><use href='#b' x='20'/>", 80},
    {"<g xmlns:q='http://www.w3.org/1999/xlink'>" LINE "<use id='b' q:href='#a' x='20'/><use q:href='#b' x='20'/></g>",
     80},
    {"<g transform='scale(.1)'>" LINE "</g><use href='#a' x='20'/>", 60},
    {"<svg id='a' width='1' height='1'/><use href='#a' width='9' height='9'/>", kAnywhere},
    {"<rect id='a' width='101%' height='1'/><use href='#a'/>", kAnywhere},
    // Clips hold in the frame that they are used in.
    {"<clipPath id='c'>" LINE "</clipPath><g transform='scale(10)' clip-path='url(#c)'/>", 400},
    {"<clipPath id='c' clipPathUnits='objectBoundingBox'>" LINE "</clipPath>", kAnywhere},
    {"<clipPath id='c'><path clip-path='url(#d)' d='M0 0'/></clipPath>", kAnywhere},
    // What fits others into places of its own, or has a size that is not told.
    {"<text>a</text>", kAnywhere},
    {"<symbol/>", kAnywhere},
    {"<marker/>", kAnywhere},
    {"<pattern/>", kAnywhere},
    {"<image width='9'/>", kAnywhere},
    {"<image width='9' height='8.'/>", kAnywhere},
    {"<image width='9' height='8'/>", 18},
    {"<linearGradient x1='900'><stop offset='1000%'/></linearGradient>", 0},
};

#define FAR_LINE "<path id='a' d='M0 0L3e8 0'/>" // to 79 km

const struct
{
    const char* content;
    int elements;
} kFar[] = {
    {FAR_LINE LINE, 1},
    {"<clipPath>" FAR_LINE "</clipPath>", 0},
    {"<g display='none'><g>" FAR_LINE "</g></g>" FAR_LINE, 1},
    {"<g style='fill:red; display: none'><g display='inline'>" FAR_LINE "</g></g>", 0},
    {"<g display='none' style='display:inline'>" FAR_LINE "</g>", 1},
    {"<g visibility='hidden'>" FAR_LINE "<g style='visibility:visible'>" FAR_LINE "</g></g>", 1},
    // A rule or a use may show what seems hidden.
    {"<g display='none'>" FAR_LINE "</g><style>g{display:inline}</style>", 1},
    {"<g display='none'>" FAR_LINE "</g><use href='#a'/>", 1},
};

DrawingSource Clean(const char* root, const char* content)
{
    const QByteArray text = QByteArray("<svg xmlns='http://www.w3.org/2000/svg' ") + root + ">" + content + "</svg>";
    DrawingSource read = CleanDrawing(text, {}, {}, {});
    EXPECT_EQ(read.error.toStdString(), "") << content;
    return read;
}

void ExpectReach(const char* root, const char* content, double reach)
{
    EXPECT_DOUBLE_EQ(Clean(root, content).reach, reach) << root << content;
}

} // namespace

TEST(SourceReach, bounds_every_coordinate_on_the_page)
{
    for (const Source& source : kSources)
        ExpectReach("", source.content, source.reach);
    // Sides of the root in percent are of its box, else of the page of 300 units.
    ExpectReach("width='100%' height='100%'", LINE, 2 * 300);
    ExpectReach("width='100%' height='100%' viewBox='0 0 50 50'", LINE, 50 + 50 + 40);
    ExpectReach("width='500' viewBox='0 0 50 50'", LINE, 500 + 10 * 50 + 10 * 40);
}

TEST(SourceReach, counts_what_lies_too_far_away_to_be_painted_unless_it_is_surely_hidden)
{
    for (const auto& [content, elements] : kFar)
        EXPECT_EQ(Clean("", content).farElements, elements) << content;
}
