/// One feature of SVG at a time: the outlines that it paints, by hand.
#include "support/Outline.h"
#include "svg/DrawingText.h"

#include "svg/Dashes.h"
#include "svg/PointInArea.h"

#include "text/ShapeText.h"

#include <gtest/gtest.h>

#include <numbers>
#include <random>

using namespace test;
using namespace shapedocument;

namespace {

struct Feature
{
    const char* name;
    const char* content;
    const char* shapes; ///< ShapesText
    const char* report = "";
};

// The square that most rows draw, and where it comes out.
#define SQUARE "<rect x='10' y='20' width='30' height='30'/>"
#define SQUARE_OUT "M 10,20 L 40,20 L 40,50 L 10,50 L 10,20"
#define TRIANGLE_OUT "M 10,10 L 30,10 L 30,30 L 10,10"

// A path without a fill.
#define PATH(d) "<path d='" d "' fill='none' stroke='red'/>"

#define FAR "reaches too far: its page cannot tell points 400 m away, or clips 100 m away, from near ones"

const Feature kFeatures[] = {
    // Basic shapes.
    {"rect", SQUARE, SQUARE_OUT},
    {"polyline_filled", "<polyline points='10,10 30,10 30,30'/>", TRIANGLE_OUT},
    {"path_cubic", PATH("M10 10C20 10 30 20 30 30"), "M 10,10 C 20,10 30,20 30,30 #ff0000"},
    // A quarter of a circle: controls at 4/3 tan(22.5 degrees) = 0.55228 of the radius.
    {"path_arc", PATH("M10 0A10 10 0 0 1 20 10"), "M 10,0 C 15.523,0 20,4.477 20,10 #ff0000"},
    {"several_sub_paths", "<path d='M10 10h20v20z M50 50h10v10z'/>", TRIANGLE_OUT " M 50,50 L 60,50 L 60,60 L 50,50"},
    {"path_with_error_is_drawn_to_there", PATH("M10 10L30 10L30 30X"), "M 10,10 L 30,10 L 30,30 #ff0000"},
    // What is painted, and once.
    {"fill_and_stroke_are_one", "<rect width='10' height='10' fill='blue' stroke='red'/>",
     "M 0,0 L 10,0 L 10,10 L 0,10 L 0,0 #ff0000"},
    {"fill_and_stroke_are_one_where_a_clip_touches_the_stroke_alone",
     WITHIN("<rect width='10' height='10'/>", "<rect width='10' height='10' fill='blue' stroke='red'/>"),
     "M 0,0 L 10,0 L 10,10 L 0,10 L 0,0 #ff0000"},
    {"stroke_below_fill_is_one", "<path d='M10 10h20v20' fill='blue' stroke='red' paint-order='stroke'/>",
     TRIANGLE_OUT " #ff0000"},
    {"equal_neighbours_stay_two", SQUARE SQUARE, SQUARE_OUT "; " SQUARE_OUT},
    {"nothing_painted", SQUARE "<rect width='5' height='5' fill='none'/>", SQUARE_OUT},
    {"no_opacity", SQUARE "<rect width='5' height='5' opacity='0'/><rect width='5' height='5' fill-opacity='0'/>",
     SQUARE_OUT},
    {"half_opacity", "<g opacity='.5'>" SQUARE "</g>", SQUARE_OUT},
    {"half_opacity_by_style", "<g style='opacity:0.5;fill:red'>" SQUARE "</g>", SQUARE_OUT " #ff0000"},
    {"display_none", SQUARE "<rect width='5' height='5' display='none'/>", SQUARE_OUT},
    {"visibility", "<g visibility='hidden'><rect width='5' height='5'/><g visibility='visible'>" SQUARE "</g></g>",
     SQUARE_OUT},
    {"no_stroke_width", SQUARE "<line x2='9' stroke='red' stroke-width='0'/>", SQUARE_OUT},
    {"line_has_no_area", SQUARE "<line x2='9' y2='9' fill='red'/>", SQUARE_OUT},
    // Transforms.
    {"translate_scale", "<g transform='translate(10,20)'><rect width='15' height='15' transform='scale(2)'/></g>",
     SQUARE_OUT},
    {"rotate", "<path d='M0 0h10' stroke='red' transform='rotate(90 5 5)'/>", "M 10,0 L 10,10 #ff0000"},
    // Units. One mm is 96/25.4 user units of a page without view box; here a user unit is 1 mm, so 1px is 1 mm.
    {"em", "<g font-size='10'><rect x='1em' y='2em' width='3em' height='3em'/></g>", SQUARE_OUT},
    {"inch", "<rect width='1in' height='1in'/>", "M 0,0 L 96,0 L 96,96 L 0,96 L 0,0"},
    // References.
    {"use", "<defs><rect id='a' width='30' height='30'/></defs><use xlink:href='#a' x='10' y='20'/>", SQUARE_OUT},
    {"use_of_later", "<use href='#a'/><defs><g id='a'>" SQUARE "</g></defs>", SQUARE_OUT},
    {"symbol",
     "<symbol id='a' viewBox='0 0 1 1'><rect width='1' height='1'/></symbol>"
     "<use href='#a' x='10' y='20' width='30' height='30'/>",
     SQUARE_OUT},
    {"nested_svg", "<svg x='10' y='20' width='30' height='30' viewBox='0 0 3 3'><rect width='3' height='3'/></svg>",
     SQUARE_OUT},
    {"use_of_nothing", SQUARE "<use href='#nobody'/>", SQUARE_OUT},
    {"use_of_itself", SQUARE "<g id='a'><use href='#a'/></g>", SQUARE_OUT},
    {"switch_takes_the_first",
     "<switch><g systemLanguage='xx'><rect width='5' height='5'/></g>" SQUARE "<rect width='6' height='6'/></switch>",
     SQUARE_OUT},
    {"link", "<a href='https://example.org/'>" SQUARE "</a>", SQUARE_OUT},
    {"definitions_are_not_drawn",
     SQUARE "<defs>" SQUARE "</defs><clipPath>" SQUARE "</clipPath><mask>" SQUARE "</mask><marker>" SQUARE
            "</marker><symbol>" SQUARE "</symbol><pattern>" SQUARE "</pattern>",
     SQUARE_OUT},
    {"markers",
     "<marker id='m' overflow='visible' markerUnits='userSpaceOnUse' orient='auto'><path d='M0 0h-2v1z'/></marker>"
     "<path d='M10 10V30' stroke='red' marker-end='url(#m)'/>",
     "M 10,10 L 10,30 #ff0000; M 10,30 L 10,28 L 9,28 L 10,30"},
    // Style sheets.
    {"css_class", "<style>.a{fill:red}</style><rect class='a' x='10' y='20' width='30' height='30'/>",
     SQUARE_OUT " #ff0000"},
    {"css_descendant", "<style>g > rect{fill:#00f}</style><g>" SQUARE "</g>", SQUARE_OUT " #0000ff"},
    {"css_in_cdata", "<style><![CDATA[#a{fill:red}]]></style><g id='a'>" SQUARE "</g>", SQUARE_OUT " #ff0000"},
    {"css_opacity", "<style>rect{opacity:.3;fill:red}</style>" SQUARE, SQUARE_OUT " #ff0000"},
    // Paint servers: the outline counts.
    {"gradient",
     "<linearGradient id='g'><stop stop-opacity='0'/><stop offset='1' stop-color='red'/></linearGradient>"
     "<g fill='url(#g)'>" SQUARE "</g>",
     SQUARE_OUT " #ff0000"},
    {"gradient_of_nothing",
     SQUARE "<linearGradient id='g'><stop stop-opacity='0'/><stop offset='1' stop-opacity='0'/></linearGradient>"
            "<rect width='5' height='5' fill='url(#g)'/>",
     SQUARE_OUT},
    {"pattern",
     "<pattern id='p' width='2' height='2' patternUnits='userSpaceOnUse'><circle r='1' fill='red'/></pattern>"
     "<g fill='url(#p)'>" SQUARE "</g>",
     SQUARE_OUT " #ff0000"},
    {"pattern_of_fill_and_stroke",
     "<pattern id='p' width='9' height='9' patternUnits='userSpaceOnUse'><path d='M0 0H9V9' fill='blue' stroke='red'/>"
     "</pattern><g fill='url(#p)'>" SQUARE "</g>",
     SQUARE_OUT " #ff0000"},
    {"missing_paint_server_with_fallback", "<g fill='url(#nobody) red'>" SQUARE "</g>", SQUARE_OUT " #ff0000"},
    // Clips.
    {"clip_cuts_an_area", WITHIN(SQUARE, "<rect y='20' width='40' height='60'/>"), SQUARE_OUT},
    {"clip_cuts_a_line", WITHIN("<rect x='10' width='30' height='30'/>", PATH("M0 5H50V10H20")),
     "M 10,5 L 40,5 M 40,10 L 20,10 #ff0000"},
    {"clip_that_is_not_closed", WITHIN("<path d='M0 0H90V90H45V45'/>", PATH("M30 10V80")), "M 30,10 L 30,30 #ff0000"},
    // Not at the seams of the boxes that the renderer cuts such a clip into.
    {"clip_of_a_frame",
     WITHIN("<path clip-rule='evenodd' d='M0 0H90V90H0zM20 20H70V70H20z'/>", "<rect width='99' height='99'/>"),
     "M 0,90 L 0,0 L 90,0 L 90,90 L 0,90 M 70,20 L 20,20 L 20,70 L 70,70 L 70,20"},
    // The area leaves the clip 0.4 micrometres beside its corner.
    {"clip_cuts_beside_its_corner",
     WITHIN("<rect x='50' y='10' width='40' height='80'/>", "<path d='M0 45.0002L100 95.0002V45.0002z'/>"),
     "M 50,70 L 90,90 L 90,90 L 90,45 L 50,45 L 50,70"},
    {"clip_leaves_what_it_holds", WITHIN("<circle cx='50' cy='50' r='60'/>", SQUARE), SQUARE_OUT},
    {"clip_hides", SQUARE WITHIN("<rect width='5' height='5'/>", SQUARE), SQUARE_OUT},
    {"clip_of_nothing_hides", SQUARE WITHIN("", SQUARE), SQUARE_OUT},
    {"clip_in_boxes",
     "<clipPath id='c' clipPathUnits='objectBoundingBox'><rect width='.5' height='1'/></clipPath>"
     "<rect x='10' y='20' width='60' height='30' clip-path='url(#c)'/>",
     "M 40,50 L 10,50 L 10,20 L 40,20 L 40,50"},
    // The cubic is cut where its x is 16 of 32, at its middle: an exact half.
    {"clip_cuts_a_curve", WITHIN("<rect width='16' height='99'/>", PATH("M0 0C8 0 24 32 32 32")),
     "M 0,0 C 4,0 10,8 16,16 #ff0000"},
    {"nested_svg_clips", "<svg x='10' y='20' width='30' height='30'><path d='M-5 5H35' stroke='red'/></svg>",
     "M 10,25 L 40,25 #ff0000"},
    // Effects without an outline.
    {"mask", "<mask id='m'><rect width='5' height='5'/></mask><g mask='url(#m)'>" SQUARE "</g>", SQUARE_OUT,
     "1 mask ignored"},
    {"filter", "<filter id='f'><feGaussianBlur stdDeviation='2'/></filter><g filter='url(#f)'>" SQUARE "</g>",
     SQUARE_OUT, "1 filter ignored"},
    {"filter_by_rule", "<style>rect{filter:url(#f)}</style><filter id='f'><feFlood/></filter>" SQUARE, SQUARE_OUT,
     "1 filter ignored"},
    {"blend_mode", "<g style='mix-blend-mode:multiply'>" SQUARE "</g>", SQUARE_OUT},
    // Dashes.
    {"dashes", "<path d='M0 0H10' stroke='red' stroke-dasharray='3 1'/>",
     "M 0,0 L 3,0 M 4,0 L 7,0 M 8,0 L 10,0 #ff0000"},
    {"dashes_begin_inside", "<path d='M0 0H5' stroke='red' stroke-dasharray='2' stroke-dashoffset='1'/>",
     "M 0,0 L 1,0 M 3,0 L 5,0 #ff0000"},
    {"dashes_round_a_corner", "<path d='M0 0H3V3' fill='none' stroke='red' stroke-dasharray='2 1 2 9'/>",
     "M 0,0 L 2,0 M 3,0 L 3,2 #ff0000"},
    {"dashes_of_an_area", "<path d='M10 10h20v20z' stroke='red' stroke-dasharray='2'/>", TRIANGLE_OUT " #ff0000"},
    {"gap_without_length", "<path d='M0 0H5' stroke='red' stroke-dasharray='2 0 2 1'/>", "M 0,0 L 4,0 #ff0000"},
    {"dashes_of_sum_0", "<path d='M0 0H5' stroke='red' stroke-dasharray='0 0'/>", "M 0,0 L 5,0 #ff0000"},
    {"dots", "<path d='M0 0H5' stroke='red' stroke-linecap='round' stroke-dasharray='0 1'/>", "M 0,0 L 5,0 #ff0000",
     "the dashes of 1 path ignored"},
    {"too_many_dashes", "<path d='M0 0H5000' stroke='red' stroke-dasharray='.02'/>", "M 0,0 L 5000,0 #ff0000",
     "the dashes of 1 path ignored, 1 shape reaches beyond the page"},
    {"dots_of_an_area", "<path d='M10 10h20v20z' stroke='red' stroke-linecap='round' stroke-dasharray='0 1'/>",
     TRIANGLE_OUT " #ff0000"},
    // Not to be drawn.
    {"flow_text",
     SQUARE "<flowRoot><flowRegion><rect width='9' height='9'/></flowRegion><flowPara>a</flowPara><flowPara>b"
            "</flowPara></flowRoot>",
     SQUARE_OUT, "1 flow text left out"},
    // Its words stand in one line; not those of a text whose lines the editor has placed.
    {"text_in_a_shape",
     SQUARE "<g font-family='serif'><text style='shape-inside:url(#a)'>&#x200b;<tspan>&#x200b;</tspan></text>"
            "<text inline-size='9'><tspan x='1' y='2'>&#x200b;</tspan></text><text inline-size='0'>&#x200b;</text></g>",
     SQUARE_OUT, "1 text not wrapped in its shape"},
    {"foreign_object", SQUARE "<foreignObject width='9' height='9'><p>a</p></foreignObject>", SQUARE_OUT,
     "1 foreign object left out"},
    {"text_on_a_path", SQUARE "<text><textPath href='#a'>b</textPath></text>", SQUARE_OUT, "1 text on a path left out"},
    {"letters_of_a_length", SQUARE "<text textLength='9'/>", SQUARE_OUT, "1 rotate/textLength/small-caps ignored"},
    {"turned_letters", SQUARE "<text rotate='0 5'/><text rotate='0'/>", SQUARE_OUT,
     "1 rotate/textLength/small-caps ignored"},
    // Of a letter that paints nothing. Uneven and centred, not centred, even again; a second run, one with a place.
    {"uneven_texts",
     SQUARE "<g font-family='serif' transform='scale(2 1)'><g text-anchor='middle'><text>&#x200b;</text>"
            "<text text-anchor='start'>&#x200b;</text><text transform='scale(.5 1)'>&#x200b;</text></g>"
            "<text>&#x200b;<tspan>&#x200b;</tspan></text><text>&#x200b;<tspan x='9'>&#x200b;</tspan></text></g>",
     SQUARE_OUT, "2 texts of uneven scale stand beside their places"},
    {"texts_in_uneven_boxes",
     SQUARE "<g font-family='serif' font-size='1' text-anchor='end'>"
            "<svg width='8' height='4' viewBox='0 0 4 4' "
            "preserveAspectRatio='none'><text>&#x200b;</text></svg>"
            "<svg width='8' height='4' viewBox='0 0 4 2' "
            "preserveAspectRatio='none'><text>&#x200b;</text></svg>"
            "<svg width='8' height='4' viewBox='0 0 4 4'><text>&#x200b;</text></svg></g>",
     SQUARE_OUT, "1 text of uneven scale stands beside its place"},
    {"small_capitals", "<style>text{font-variant: small-caps}</style>" SQUARE, SQUARE_OUT,
     "1 rotate/textLength/small-caps ignored"},
    {"markers_of_a_rect", "<g fill='red'><rect x='10' y='20' width='30' height='30' marker-mid='url(#m)'/></g>",
     SQUARE_OUT " #ff0000", "the markers of 1 shape left out"},
    {"script", SQUARE "<script>document</script>", SQUARE_OUT, "1 script ignored"},
    {"animation", "<rect x='10' y='20' width='30' height='30'><animate attributeName='x' to='5'/></rect>", SQUARE_OUT,
     "1 animation ignored"},
    {"use_of_another_file", SQUARE "<use href='other.svg#a'/>", SQUARE_OUT, "1 reference to another file left out"},
    {"picture_elsewhere", SQUARE "<image width='9' height='9' href='https://example.org/a.png'/>", SQUARE_OUT,
     "1 picture left out"},
    {"beyond_the_page", "<line x1='90' y1='5' x2='110' y2='5' stroke='red'/>", "M 90,5 L 110,5 #ff0000",
     "1 shape reaches beyond the page"},
    // Some renderers hold it only on the coarse grid, and paint no numbers that they do not have.
    {"out_of_reach", SQUARE "<path d='M0 0L1e6 1' stroke='red'/>", SQUARE_OUT,
     "1 path left out that is too far away | "
     "rounded to 0.003 mm, as it reaches too far for a finer grid, 1 path left out that is too far away"},
    // The page's numbers wrap around after 419,430.4 mm.
    {"looks_near", SQUARE "<path d='M0 0L419440 9' stroke='red'/>", FAR},
    {"looks_near_by_transforms",
     SQUARE "<g transform='scale(1000)'><rect x='-.4194' width='.01' height='.01' transform='scale(1000)'/></g>", FAR},
    {"clip_looks_near", WITHIN("<path d='M20 -264000L264000 264000H-264000z'/>", SQUARE), FAR},
    {"looks_near_step_by_step", SQUARE "<path d='m1e5 0l1e5 0 1e5 0 119440 9' stroke='red'/>", FAR},
    {"looks_near_by_a_grown_arc", SQUARE "<path d='M0 0A1 83888 0 0 1 10 0' stroke='red'/>", FAR},
    {"looks_near_by_a_view_box",
     SQUARE "<svg width='100' height='100' viewBox='0 0 .1 .1'><path d='M0 0L419.44 .1' stroke='red'/></svg>", FAR},
    {"looks_near_by_style", SQUARE "<g style='transform:scale(1000)'><path d='M0 0L419.44 0' stroke='red'/></g>", FAR},
    {"looks_near_by_use", SQUARE "<path id='a' d='M0 0L219440 0' stroke='red'/><use href='#a' x='200000'/>", FAR},
    {"looks_near_by_uses_of_uses",
     SQUARE "<defs><path id='a' d='M0 0L9 0' stroke='red'/><g transform='scale(.001)'><g id='c'>"
            "<use href='#a' x='219431'/></g></g></defs><use href='#c' x='200000'/>",
     FAR},
    {"clip_looks_near_where_it_is_used",
     "<clipPath id='c'><path d='M.02 -264L264 264H-264z'/></clipPath><g transform='scale(1000)' clip-path='url(#c)'>"
     "<rect width='.01' height='.01'/></g>",
     FAR},
    {"hidden_part_looks_near", "<svg width='50' height='50'><path d='M0 0L419440 9' stroke='red'/></svg>", FAR},
    {"looks_near_by_a_style's_size",
     SQUARE "<svg overflow='visible' viewBox='0 0 1 1' style='width:50000px;height:50000px'>"
            "<path d='M8.38 0h.001v.001z'/></svg>",
     FAR},
    {"looks_near_by_a_transform_that_counts_for_nothing",
     SQUARE "<path transform='scale(.0001 .0001 1)' d='M419440 0h10v10z'/>", FAR},
    {"looks_near_by_an_escaped_unit", SQUARE "<rect x='4369.2\\69 n' width='10' height='10'/>", FAR},
    {"looks_near_by_a_rule_in_pieces",
     "<style>#a{x:4194<!-- -->40px}</style>" SQUARE "<rect id='a' width='10' height='10'/>", FAR},
    {"looks_near_by_another_prefix",
     SQUARE "<defs xmlns:q='http://www.w3.org/1999/xlink'><rect id='a' width='9' height='9'/>"
            "<g id='b'><use q:href='#a' x='139810'/></g><g id='c'><use q:href='#b' x='139810'/></g></defs>"
            "<use href='#c' x='139810'/>",
     FAR},
    {"farther_than_numbers", SQUARE "<path d='M0 0L1e20 9' stroke='red'/>", SQUARE_OUT,
     "1 path left out that is too far away"},
    {"farther_than_numbers_beside_a_symbol", "<symbol/><svg><path d='M0 0H-1e20' stroke='red'/></svg>" SQUARE,
     SQUARE_OUT, "1 path left out that is too far away"},
    {"numbers_made_small", "<g transform='scale(1e-12)'><path d='M0 0H1e12' stroke='red'/></g>" SQUARE,
     "M 0,0 L 1,0 #ff0000; " SQUARE_OUT},
    {"clip_far_but_told", WITHIN("<rect x='-9e4' y='-9e4' width='18e4' height='18e4'/>", SQUARE), SQUARE_OUT},
    {"far_clip", WITHIN("<rect x='-3e5' y='-3e5' width='6e5' height='6e5'/>", SQUARE), SQUARE_OUT,
     "rounded to 0.003 mm, as it reaches too far for a finer grid"},
    // The text of the file.
    {"entities", "<g fill='r&#101;d'>" SQUARE "</g>", SQUARE_OUT " #ff0000"},
    {"comments", "<!-- <rect/> -->" SQUARE "<?what ever?>", SQUARE_OUT},
    {"undeclared_names", "<g a:b='c' a:d='e'><a:stop/>" SQUARE "</g>", SQUARE_OUT},
    {"names_without_address",
     "<g id='a' xmlns:b='%' b:c='d'>" SQUARE "</g><g xmlns:xlink='&amp;#38;#38;ns;'><use xlink:href='#a'/></g>",
     SQUARE_OUT "; " SQUARE_OUT},
    {"other_names", "<x:thing xmlns:x='urn:x'><rect/></x:thing>" SQUARE, SQUARE_OUT},
};

TEST(DrawingFeatures, come_out_as_painted)
{
    for (const Feature& feature : kFeatures) {
        const DrawingImport drawing = Imported(feature.content);
        EXPECT_EQ(ShapesText(drawing), feature.shapes) << feature.name;
        EXPECT_EQ(ReportText(drawing), OneOf(feature.report, ReportText(drawing))) << feature.name;
    }
}

TEST(DrawingVisible, tells_what_groups_with_an_opacity_lose_beyond_the_page)
{
    const auto report = [](const QByteArray& content) { return ReportText(Imported(content, {.visible = true})); };
    EXPECT_EQ(report("<g opacity='.5'><rect x='-60' y='10' width='30' height='30'/>" SQUARE "</g>"),
              "1 path may be missing");
    EXPECT_EQ(report("<g opacity='.5'>" SQUARE "</g><path d='M50 5H90' opacity='.2'/>"), "");
    EXPECT_EQ(report("<rect x='-60' y='10' width='30' height='30'/>"), "1 shape reaches beyond the page");
}

TEST(DrawingFills, get_the_marker_that_nothing_draws_unless_they_are_white)
{
    const auto content = "<g transform='translate(9)'><rect width='5' height='5'/><circle r='4'/>"
                         "<rect width='5' height='5' fill='#fff'/><rect width='6' height='5' fill='none' "
                         "stroke='red'/><rect width='7' height='5' fill='white' stroke='red'/>"
                         "<path d='M0 0h9v9zm2 1v2h1' fill='blue' stroke='red'/>"
                         "<rect width='8' height='5' fill='white' stroke='red' paint-order='stroke'/></g>";
    const DrawingImport plain = Imported(content), marked = Imported(content, {.fills = true});
    EXPECT_EQ(ShapesText(marked), ShapesText(plain));
    std::string filled;
    for (const DrawingImport* drawing : {&plain, &marked})
        for (const auto& shape : drawing->shapes)
            filled += shape->IsFilled() ? 'y' : 'n';
    EXPECT_EQ(filled, "nnnnnnnyynnnyn");
}

/// What a text paints is what the same letters paint one by one.
TEST(DrawingTexts, take_a_place_for_each_letter)
{
#define LETTER(x, y, letter) "<text x='" #x "' y='" #y "'>" letter "</text>"
    const std::pair<const char*, const char*> rows[] = {
        {"<text x='10 30' y='50'><title>t</title>ab</text>", LETTER(10, 50, "a") LETTER(30, 50, "b")},
        {"<text x='10,30 40' y='50'>\n a\n b </text>", LETTER(10, 50, "a") LETTER(40, 50, "b")},
        {"<text x='10 30 50' y='50'>a<tspan x='40' y='60 70'>bc</tspan></text>",
         LETTER(10, 50, "a") LETTER(40, 60, "b") LETTER(50, 70, "c")},
        {"<text x='10 20 30' y='50' xml:space='preserve'>a b</text>", LETTER(10, 50, "a") LETTER(30, 50, "b")},
        {"<text y='50 70' x='10'>&#x1d7d8;<tspan x='30'>b</tspan></text>",
         LETTER(10, 50, "&#x1d7d8;") LETTER(30, 70, "b")},
    };
    const auto shapes = [](const QByteArray& text) {
        return ShapesText(Imported("<g font-family='DejaVu Sans'>" + text + "</g>"));
    };
    for (const auto& [listed, single] : rows)
        EXPECT_EQ(shapes(listed), shapes(single)) << listed;
}

/// mm, of each edge of each letter.
std::vector<QRectF> SubPathRects(const DrawingImport& drawing)
{
    constexpr double kFiner = 100; // flattened to about a hundredth of a unit
    std::vector<QRectF> rects;
    for (const auto& shape : drawing.shapes)
        for (const QPolygonF& polygon : shape->GetPath(false)->toSubpathPolygons(QTransform::fromScale(kFiner, kFiner)))
            rects.push_back(QTransform::fromScale(1 / kFiner, 1 / kFiner).mapRect(polygon.boundingRect()));
    return rects;
}

TEST(DrawingTexts, stay_texts_where_they_draw_what_is_painted)
{
    struct Text
    {
        const char* content;
        const char* words; ///< of the text shapes
        size_t shapes;
        const char* report = "";
    };
    const Text rows[] = {
        {"<text x='10' y='50' font-size='20'>H</text>", "H", 1},
        {"<text x='50' y='50' font-size='20' transform='rotate(30)' font-weight='bold'>g</text>", "g", 1},
        {SQUARE "<text id='a' y='50'> <tspan>A</tspan></text>" SQUARE "<text y='90'>B</text>", "A|B", 4},
        {"<text x='10' y='50' font-size='20' transform='scale(2 1)'>H</text>", "", 1,
         "1 text became outlines, from which a text shape would differ"},
        {"<text y='50'>a<tspan x='30'>b</tspan></text>", "", 2, "1 text of several runs became outlines"},
        {"<defs><text id='a'>H</text></defs><use href='#a' y='50'/>", "", 1,
         "1 text painted by reference, or beyond the first 2,000, became outlines"},
        {SQUARE "<text display='none'>H</text>", "", 1},
        {"<text y='50' font-size='4.5'>10 20 30</text>", "10 20 30", 1},
        {"<text x='50' y='50' font-size='2.5' transform='rotate(30)'>the quick</text>", "the|quick", 2,
         "1 text became a text for each word"},
    };
    for (const Text& row : rows) {
        SCOPED_TRACE(row.content);
        const QByteArray content = QByteArray("<g font-family='DejaVu Sans'>") + row.content + "</g>";
        const DrawingImport drawing = Imported(content, {.textAsText = true}), outlines = Imported(content);
        EXPECT_EQ(ReportText(drawing), row.report);
        ASSERT_EQ(drawing.shapes.size(), row.shapes);
        std::string words;
        for (const auto& shape : drawing.shapes)
            if (auto* text = dynamic_cast<CShapeText*>(shape.get()))
                words += (words.empty() ? "" : "|") + std::string(text->GetTextP()->pText);
        EXPECT_EQ(words, row.words);
        const std::vector<QRectF> as = SubPathRects(drawing), painted = SubPathRects(outlines);
        ASSERT_EQ(as.size(), painted.size());
        for (size_t i = 0; i < as.size(); ++i) {
            EXPECT_LE(QLineF(as[i].topLeft(), painted[i].topLeft()).length(), 0.05 * std::numbers::sqrt2);
            EXPECT_LE(QLineF(as[i].bottomRight(), painted[i].bottomRight()).length(), 0.05 * std::numbers::sqrt2);
        }
    }
}

/// The font engine has an end at some 65,000 units of the page.
TEST(DrawingTexts, are_named_where_the_renderer_gives_way)
{
    const std::string large =
        ReportText(Imported(SQUARE "<text y='50' font-family='DejaVu Sans' font-size='4000'>I</text>"));
    EXPECT_EQ(large, OneOf("rounded to 0.003 mm, as it reaches too far for a finer grid, 1 shape reaches beyond the "
                           "page | 1 shape reaches beyond the page", // some hold such letters
                           large));
    EXPECT_EQ(ReportText(Imported(SQUARE "<text y='50'>I</text>")), "no font named: Liberation Serif");
}

std::string Squares(int side)
{
    std::string path;
    for (int i = 0; i < side * side; ++i)
        path += "M" + std::to_string(i % side * 2) + " " + std::to_string(i / side * 2) + "h1v1h-1z";
    return path;
}

/// Both as what is cut and as the clip: 1600 squares of 1 mm, every 2 mm.
TEST(DrawingClips, hold_for_many_sub_paths_at_once)
{
    const std::string squares = "<path d='" + Squares(40) + "'/>", rest = "<path d='M-1 -1H40.5V99H-1z'/>";
    for (const auto& [clip, content] : {std::pair(rest, squares), std::pair(squares, rest)}) {
        const DrawingImport drawing = Imported(QByteArray::fromStdString(
            "<clipPath id='c'>" + clip + "</clipPath><g clip-path='url(#c)'>" + content + "</g>"));
        ASSERT_EQ(drawing.shapes.size(), 1U);
        const QList<QPolygonF> left = drawing.shapes[0]->GetPath(false)->toSubpathPolygons();
        EXPECT_EQ(left.size(), 21 * 40); // the last column, from 40 on, is cut at its middle
        double area = 0;
        for (const QPolygonF& polygon : left)
            area += polygon.boundingRect().width() * polygon.boundingRect().height();
        EXPECT_NEAR(area, 20.5 * 40, 0.01);
    }
}

/// Held against the painter path's own test, which takes a step for each piece.
TEST(PointInArea, tells_inside_from_outside)
{
    std::mt19937 random(14);
    std::uniform_real_distribution<double> place(0, 1000);
    const auto point = [&] { return QPointF(place(random), place(random)); };
    for (int outline = 0; outline < 20; ++outline) {
        QPainterPath path;
        path.setFillRule(outline % 2 == 0 ? Qt::WindingFill : Qt::OddEvenFill);
        for (int piece = 0; piece < 40; ++piece) {
            if (piece % 10 == 0)
                path.moveTo(point());
            else if (piece % 3 == 0)
                path.lineTo(point());
            else
                path.cubicTo(point(), point(), point());
        }
        const drawing::PointInArea area(path);
        for (int i = 0; i < 200; ++i) {
            const QPointF at = point();
            EXPECT_EQ(area.Holds(at), path.contains(at)) << outline << ": " << at.x() << "," << at.y();
        }
    }
}

struct Dashed
{
    std::vector<double> lengths;
    double offset;
    double end;         ///< of a line from 0, by way of a tenth
    const char* dashes; ///< null where the line stays whole
};

/// Lengths that rounding swallows once did not move the cutting on.
TEST(Dashes, end_whatever_their_lengths)
{
    const Dashed rows[] = {
        {{0.1, 0.1}, 0, 0.5, "M 0,0 L 0.1,0 M 0.2,0 L 0.3,0 M 0.4,0 L 0.5,0"},
        {{1, 1e-20}, 0, 2, "M 0,0 L 0.1,0 L 1,0 M 1,0 L 2,0"},
        {{1, 5e-324}, 0, 2, "M 0,0 L 0.1,0 L 1,0 M 1,0 L 2,0"},
        {{5e-324, 1}, 0.5, 2, nullptr},
        {{9, 1}, 0, 5, "M 0,0 L 0.1,0 L 5,0"},
        {{3, 1}, -1, 6, "M 1,0 L 4,0 M 5,0 L 6,0"},
        {{3, 1}, -1e300, 3, "M 0,0 L 0.1,0 L 3,0"},
        {{1}, 1e-320, 2, "M 0,0 L 0.1,0 L 1,0"},
    };
    for (const Dashed& row : rows) {
        QPainterPath path;
        path.lineTo(0.1, 0);
        path.lineTo(row.end, 0);
        EXPECT_EQ(drawing::CutIntoDashes(path, row.lengths, row.offset), row.dashes != nullptr);
        EXPECT_EQ(PathText(path), row.dashes ? row.dashes : "M 0,0 L 0.1,0 L 2,0");
    }
}

} // namespace
