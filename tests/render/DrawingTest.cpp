/// Pictures of documents and jobs: which colour stands where, in millimetres, drawn with half a millimetre a unit.
#include "render/Drawing.h"
#include "document/Failure.h"
#include "image/ImageStores.h"
#include "image/ShapeImage.h"
#include "machine/JobReport.h"
#include "machine/JobText.h"
#include "render/GcodeDrawing.h"
#include "support/Lists.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>

#include <cmath>
#include <functional>
#include <numbers>

using namespace test;
using namespace shapedocument;

namespace {

constexpr double kUnit = 0.5;

/// A white page of 100 by 60 mm.
class Page
{
public:
    /// smooth: as pictures are written
    explicit Page(const std::function<void(QPainter&)>& draw, bool smooth = false)
    {
        m_image.fill(Qt::white);
        QPainter painter(&m_image);
        painter.setRenderHint(QPainter::Antialiasing, smooth);
        painter.scale(kScale, kScale);
        draw(painter);
    }

    /// The colour at each place, "." for white.
    std::string At(const std::vector<QPointF>& places) const
    {
        std::string colors;
        for (const QPointF& place : places) {
            const QColor color = m_image.pixelColor((place * kScale).toPoint());
            colors += (colors.empty() ? "" : " ") + (color == Qt::white ? "." : color.name().toStdString());
        }
        return colors;
    }

    /// Around all of that colour within a place.
    QRectF Around(QColor color, QRectF within) const
    {
        const QRect place(QRectF(within.topLeft() * kScale, within.size() * kScale).toRect());
        QRect box;
        for (int y = place.top(); y <= place.bottom(); ++y)
            for (int x = place.left(); x <= place.right(); ++x)
                box = m_image.pixelColor(x, y) == color ? box.united({x, y, 1, 1}) : box;
        return {QPointF(box.topLeft()) / kScale, QSizeF(box.size()) / kScale};
    }

private:
    static constexpr double kScale = 20;
    QImage m_image{2000, 1200, QImage::Format_RGB32};
};

TEST(Drawing, of_points_shows_nodes_and_the_rings_of_controls)
{
    const Document list = MakeList<Document>({new CShapeVector(Vector(6, "80,20 90,20 | 20,20 c20,50 c60,50 60,20"))});
    const Page page([&](QPainter& painter) { DrawPoints(painter, *list, kUnit); });
    EXPECT_EQ(page.At({{19.2, 20}, {21, 20}, {21.3, 20}, {60, 20}, {80, 20}, {90, 20}, {85, 20}, {40, 42}}),
              "#222222 #222222 . #222222 #222222 #222222 . .");
    EXPECT_EQ(page.At({{20, 35}, {20.4, 35}, {60, 35}, {20, 50}, {21.6, 50}, {20, 51.6}, {21.2, 50}, {22, 50}}),
              "#7b2cbf . #7b2cbf . #7b2cbf #7b2cbf . .");
    EXPECT_EQ(page.At({{60, 50}, {61.6, 50}, {60, 51.6}}), ". #7b2cbf #7b2cbf");
}

TEST(Drawing, of_shapes_shows_pictures_below_outlines_in_their_colours)
{
    ImageStores stores;
    const QRectF place(20, 10, 40, 20);
    auto* picture = new CShapeImage;
    cv::Mat grey(2, 4, CV_8UC1, cv::Scalar(100));
    picture->SetOrgRect(place, true);
    picture->SetPoints(place);
    picture->SetImage(grey, false);
    const Document alone = MakeList<Document>({picture->Clone()});
    EXPECT_EQ(Page([&](QPainter& painter) { DrawShapes(painter, *alone, kUnit); }).At({{40, 25}, {62, 25}}),
              "#646464 .");
    CShapeVector* rect = NewRect({10, 20, 20, 20});
    rect->SetColor(0xff0000);
    const Document list = MakeList<Document>({rect, picture});
    const Page page([&](QPainter& painter) { DrawShapes(painter, *list, kUnit); });
    EXPECT_EQ(page.At({{10, 30}, {10.25, 30}, {10.45, 30}, {30, 25}, {40, 25}, {58, 28}, {62, 25}, {15, 30}}),
              "#ff0000 #ff0000 . #ff0000 #646464 #646464 . .");
}

TEST(Drawing, of_smooth_outlines_shows_lines_curves_and_what_is_thin_or_reaches_far)
{
    CShapeVector* rect = NewRect({10, 20, 20, 20});
    rect->SetColor(0xff0000);
    CShapeVector* far = new CShapeVector(Vector(2, "-6000,-5950 6000,6050")); // y = x + 50
    const Document list = MakeList<Document>({rect, new CShapeVector(Vector(4, "40,50 c40,10 c80,10 80,50")), far});
    const auto draw = [&](double unit) {
        return Page([&, unit](QPainter& painter) { DrawShapes(painter, *list, unit); }, true);
    };
    EXPECT_EQ(draw(kUnit).At({{10, 30}, {10.25, 30}, {10.45, 30}, {30, 25}, {60, 20}, {60, 20.5}, {15, 30}}),
              "#ff0000 #ff0000 . #ff0000 #000000 . .");
    EXPECT_NE(draw(kUnit).At({{5, 55}}), ".");
    EXPECT_NE(draw(0.0015).At({{20, 20}}), "."); // 0.04 pixels wide
}

TEST(Drawing, of_an_order_shows_moves_leads_and_numbers)
{
    const MachineJob job = JobOf({{0xff0000, {{{10, 10}}, {{30, 10}}}},
                                  {0x0000ff, {{{70, 10}}, {{90, 10}}}, PathKind::LeadIn},
                                  {0x0000ff, {{{90, 11}}, {{90, 40}}}}});
    const Page page([&](QPainter& painter) { DrawOrder(painter, job, kUnit); });
    EXPECT_EQ(page.At({{20, 10}, {20, 10.25}, {20, 10.45}, {80, 10.5}, {80, 10.8}, {90, 30}}),
              "#ff0000 #ff0000 . #0000ff . #0000ff");
    EXPECT_EQ(page.At({{48.355, 10.599}, {48.355, 9.401}, {48.8, 10}, {51, 10.5}, {10, 14.5}, {10, 14}, {70, 14.5}}),
              "#8a93a3 #8a93a3 . . #ff0000 . #0000ff");
    for (const size_t count : {150U, 151U}) {
        const MachineJob many = JobOf(std::vector<TestRun>(count, {1, {{{10, 10}}, {{30, 10}}}}));
        const Page numbers([&](QPainter& painter) { DrawOrder(painter, many, kUnit); });
        EXPECT_EQ(numbers.Around(Qt::black, {5, 5, 10, 10}).isEmpty(), count > 150);
    }
    const MachineJob one = JobOf({{1, {{{10, 10}}, {{30, 10}}}}});
    const QRectF number =
        Page([&](QPainter& painter) { DrawOrder(painter, one, kUnit); }).Around(Qt::black, {5, 5, 10, 10});
    EXPECT_NEAR(number.height(), 4.5, 0.1);
    EXPECT_NEAR(number.center().x(), 10, 0.1);
    EXPECT_NEAR(number.center().y(), 10, 0.1);
}

TEST(Drawing, of_a_report_rings_what_is_found_within_the_bed)
{
    JobReport report;
    report.Add(FindingKind::Gap, {{20, 20}, 0, {}});
    report.Add(FindingKind::Hidden, {{50, 20}, 0, {}});
    const Page page([&](QPainter& painter) {
        painter.setBrush(Qt::green);
        DrawBed(painter, {5, 5, 90, 50}, kUnit);
        painter.setBrush(Qt::green);
        DrawFindings(painter, report, kUnit);
    });
    EXPECT_EQ(page.At({{24, 20}, {20, 24.4}, {20, 23.4}, {20, 24.7}, {50, 24}, {6, 5}, {7.5, 5}, {95, 30}, {60, 40}}),
              "#dc0000 #dc0000 . . #e68c00 #3c5ac8 . #3c5ac8 .");
}

TEST(Drawing, of_gcode_shows_what_burns_by_its_power)
{
    QBuffer code;
    code.setData("G0 X20 Y10\nM4 S500\nG1 X40 F1200\nS1000\nG1 Y30\nS0\nG1 X80 Y50\n");
    code.open(QIODevice::ReadOnly);
    const GcodeTrace trace = TraceGcode(code);
    EXPECT_EQ(Rect(trace.rect) + " " + Number(trace.mostPower), "20,10,20,20 1000");
    const Page page([&](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        DrawGcode(painter, code, trace, 1.03);
    });
    EXPECT_EQ(
        page.At({{30, 30}, {30, 30.4}, {30, 30.5}, {30, 29.6}, {19.8, 30}, {40, 20}, {40.4, 20}, {40, 9}, {30, 10}}),
        "#808080 #808080 . #808080 . #000000 #000000 . .");
}

TEST(Sheet, has_a_frame_with_ticks_and_numbers_around_its_content)
{
    EXPECT_THROW(Sheet({0, 0, 1e300, 1}, "f"), Failure);
    for (const auto& [side, step] : {std::pair(100, 10), {50, 5}, {20, 2}, {12, 1}}) {
        SCOPED_TRACE(side);
        const Sheet sheet(QRectF(0, 0, side, side / 2.0), "f");
        const double unit = side * 1.06 / 1000, edge = -0.03 * side, shown = 0.4; // mm on the page for a unit
        EXPECT_NEAR(sheet.Unit(), unit, 1e-12);
        EXPECT_NEAR(sheet.Size().width(), 1090 * unit, 1e-9);
        const Page page([&](QPainter& painter) {
            sheet.SetUp(painter, sheet.Size().width() / unit * shown);
            sheet.DrawFrame(painter);
        });
        // A place of the content, and a distance beyond the frame in units.
        const auto at = [&](double x, double y, QPointF out = {}) {
            return (QPointF(x - edge, y - edge) / unit + QPointF(60, 60) - out) * shown;
        };
        const double tick = step / 10.0;
        EXPECT_EQ(
            page.At({at(step, edge, {0, 6}), at(step, edge, {0, 9}), at(tick, edge, {0, 3}), at(tick, edge, {0, 6})}),
            "#555b66 . #555b66 .");
        EXPECT_EQ(page.At({at(edge, 0, {6, 0}), at(edge, 0, {9, 0}), at(edge, tick, {3, 0}), at(edge, tick, {6, 0})}),
                  "#555b66 . #555b66 .");
        EXPECT_EQ(page.At({at(edge, tick / 2), at(tick / 2, edge), at(tick / 2, tick / 2)}), "#555b66 #555b66 .");
        const QRectF number = page.Around(QColor(0x55, 0x5b, 0x66), QRectF(at(step, edge, {20, 40}), QSizeF(16, 12)));
        EXPECT_NEAR(number.height(), 15 * shown, 0.2);
        EXPECT_NEAR(number.center().x(), at(step, edge).x(), 0.2);
        EXPECT_NEAR(number.center().y(), at(step, edge, {0, 20.5}).y(), 0.2);
    }
}

/// An image with alpha is the painter's own work.
TEST(Drawing, of_outlines_looks_the_same_by_the_painter)
{
    const MachineJob circles = [] {
        std::vector<TestRun> runs;
        for (int i = 0; i < 160; ++i) { // so many that no numbers lie on them
            std::vector<JobPoint> points;
            for (int k = 0; k <= 300; ++k) {
                const double angle = k * std::numbers::pi / 150, radius = 0.0125 * (i + 1);
                points.push_back({{60 + 0.2 * i + radius * std::cos(angle), 45 + radius * std::sin(angle)}});
            }
            runs.push_back({i % 2 ? 0xff8000u : 0x0060c0u, points});
        }
        return JobOf(runs);
    }();
    const Document list = MakeList<Document>({
        new CShapeVector(Vector(6, "10,10 20,10 12,11 | 20,20 c20,50 c60,50 60,20 c60,20 c20,20 20,20 | 5,50 5,50")),
        new CShapeVector(Vector(6, "30,5 90,5 30,5.02 | -4e7,30 4e7,31")), // farther than cairo counts
        NewRect({45, 25, 0.02, 0.02}),
    });
    const auto draw = [&](QImage::Format format) {
        QImage image(2000, 1200, format);
        image.fill(Qt::white);
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.scale(20, 20);
        DrawShapes(painter, *list, kUnit);
        DrawOrder(painter, circles, kUnit);
        painter.end();
        return image.convertToFormat(QImage::Format_Grayscale8);
    };
    const QImage one = draw(QImage::Format_RGB32), other = draw(QImage::Format_ARGB32_Premultiplied);
    size_t ink = 0, different = 0; // by more than half a pixel: the painter makes fewer lines of curves
    for (int y = 0; y < one.height(); ++y)
        for (int x = 0; x < one.width(); ++x) {
            ink += one.constScanLine(y)[x] < 255;
            different += std::abs(one.constScanLine(y)[x] - other.constScanLine(y)[x]) > 128;
        }
    EXPECT_GT(ink, 50000u);
    EXPECT_LT(different, ink / 500);
}

} // namespace
