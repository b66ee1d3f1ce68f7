// Engraved rows as the machine burns them: G-code goes through a simulated head, which paints the picture anew.
#include "machine/Engraving.h"

#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "machine/GcodeMoves.h"
#include "machine/GcodeOutput.h"
#include "machine/JobText.h"
#include "machine/LineOutput.h"
#include "machine/MachinePaths.h"
#include "machine/PictureSpans.h"

#include "group/ShapeArray.h"
#include "image/ImageStores.h"
#include "vector/ShapeVector.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <span>
#include <sstream>

using namespace shapedocument;

namespace {

constexpr double kPower = 510; // S words: two for a grey

/// A document of pictures, and its G-code.
class EngravingTest : public testing::Test
{
protected:
    CShapeImage* AddPicture(const cv::Mat& pixels, const QRectF& rect)
    {
        auto* picture = new CShapeImage;
        picture->SetOrgRect(rect, true);
        cv::Mat copy = pixels.clone();
        picture->SetImage(copy, false);
        document->AddTail(picture);
        return picture;
    }

    /// The sample: 304 x 240 pixels of textured metal on transparent ground.
    CShapeImage* AddMedallion(const QRectF& rect)
    {
        auto* picture = new CShapeImage;
        std::string file = SAMPLES "/medallion.png";
        EXPECT_EQ(picture->OpenImage(file.data()), 0);
        picture->SetOrgRect(rect, true);
        document->AddTail(picture);
        return picture;
    }

    QByteArray Gcode(const EngraveOptions& options, GcodeOptions gcode)
    {
        const PreparedJob prepared = PrepareJob(*document, {.engraved = true}, "test", {});
        const Engraving engraving(*document, options, "test");
        MachineWork work(prepared.job);
        work.engraving = &engraving;
        QBuffer buffer;
        buffer.open(QIODevice::WriteOnly);
        WriteGcode(buffer, work, gcode);
        return buffer.data();
    }

    ImageStores stores;
    Document document = NewDocument();
};

/// The dots of one shape's rows, as "begin-end:grey" per span, rows by their y, "<" where they go backwards.
std::string Rows(CShapeList& document, const EngraveOptions& options)
{
    std::ostringstream rows;
    Engraving(document, options, "test").ForEachRow([&](const EngraveRow& row) {
        rows << (rows.tellp() > 0 ? "; " : "") << row.shape << " y" << row.y << (row.backwards ? " <" : "");
        for (const EngraveSpan& span : row.spans)
            rows << " " << span.begin << "-" << span.end << ":" << int(span.grey);
    });
    return rows.str();
}

cv::Mat Pixels(int columns, std::vector<uchar> greys)
{
    return cv::Mat(greys, true).reshape(1, int(greys.size()) / columns);
}

/// What the machine leaves on the work: a grey for every dot of the grid that the moves lie on.
class Work
{
public:
    Work(QRectF rect, double pitch)
        : m_rect(rect), m_pitch(pitch), columns(int(std::lround(rect.width() / pitch))),
          rows(int(std::lround(rect.height() / pitch))), dots(size_t(columns * rows), 255)
    {}

    void Burn(const GcodeMove& move, double least, double most)
    {
        const int row = Place(move.to.y() - m_rect.top() - m_pitch / 2);
        const int begin = Place(std::min(move.from.x(), move.to.x()) - m_rect.left());
        const int end = Place(std::max(move.from.x(), move.to.x()) - m_rect.left());
        const bool onGrid = move.from.y() == move.to.y() && row >= 0 && row < rows && begin >= 0 && end <= columns;
        faults += onGrid && begin < end ? 0 : 1;
        for (int column = begin; onGrid && column < end; ++column) {
            double& dot = dots[size_t(row * columns + column)];
            faults += dot == 255 ? 0 : 1; // burned twice
            dot = 255 - (move.power - least) / (most - least) * 255;
        }
    }

    QPointF Centre(int column, int row) const { return m_rect.topLeft() + QPointF(column + 0.5, row + 0.5) * m_pitch; }

    QRectF m_rect;
    double m_pitch;
    int columns;
    int rows;
    std::vector<double> dots;
    size_t faults = 0; ///< moves that are no row of the grid, dots that are burned twice

private:
    /// mm in dots; to be a whole number of them.
    int Place(double mm)
    {
        const double place = std::round(mm / m_pitch);
        faults += std::abs(mm - place * m_pitch) < 2e-4 ? 0 : 1;
        return int(place);
    }
};

/// The grid that a picture is to be engraved on: as many dots as fit, about the middle of its rectangle.
Work WorkFor(CShapeImage& picture, double pitch)
{
    const QRectF around = picture.GetRect(true);
    const auto fitting = [pitch](double extent) { return std::floor(extent / pitch + 1e-6) * pitch; };
    QRectF rect(0, 0, fitting(around.width()), fitting(around.height()));
    rect.moveCenter(around.center());
    return {rect, pitch};
}

/// The picture at a place, by the weights of the four pixels around it; 255 beside it.
double GreyAt(const cv::Mat& pixels, const QTransform& toPixels, QPointF place)
{
    const QPointF at = toPixels.map(place);
    if (at.x() < 0 || at.y() < 0 || at.x() >= pixels.cols || at.y() >= pixels.rows)
        return 255;
    const int left = int(std::floor(at.x() - 0.5)), top = int(std::floor(at.y() - 0.5));
    double sum = 0, weights = 0;
    for (int y = std::max(0, top); y < std::min(pixels.rows, top + 2); ++y)
        for (int x = std::max(0, left); x < std::min(pixels.cols, left + 2); ++x) {
            const double weight = (1 - std::abs(x + 0.5 - at.x())) * (1 - std::abs(y + 0.5 - at.y()));
            sum += weight * pixels.at<uchar>(y, x);
            weights += weight;
        }
    return sum / weights;
}

QTransform ToPixels(CShapeImage& picture, const cv::Mat& pixels)
{
    picture.UpdatePainterPath();
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    picture.GetShapePathData(points, types);
    QTransform toPixels;
    EXPECT_TRUE(QTransform::quadToQuad(QPolygonF({points[0], points[1], points[2], points[3]}),
                                       QPolygonF(QRectF(0, 0, pixels.cols, pixels.rows)).mid(0, 4), toPixels));
    return toPixels;
}

struct Case
{
    const char* name;
    EngraveOptions options = {};
    GcodeOptions gcode = {};
    double turn = 0;
    bool mirror = false;
};

GcodeOptions With(double leastPower, double mostPower, double overscan, bool yDown = true)
{
    GcodeOptions options;
    options.leastPower = leastPower;
    options.mostPower = mostPower;
    options.overscan = overscan;
    options.yDown = yDown;
    return options;
}

GcodeOptions Marlin()
{
    GcodeOptions options = With(0, 255, 2);
    options.dialect = &kGcodeDialects[1];
    return options;
}

const Case kCases[] = {
    {"upright", {}, With(0, kPower, 0)},
    {"one_way_with_run_up", {.oneWay = true}, With(0, kPower, 3)},
    {"there_and_back_with_run_up", {}, With(100, 100 + kPower, 3)},
    {"turned", {}, With(0, kPower, 0), 30},
    {"mirrored", {}, With(0, kPower, 0), 0, true},
    {"turned_and_mirrored_finely", {.linesPerMm = 17}, With(0, kPower, 2.5), -70, true},
    {"grouped_greys", {.greyStep = 12}, With(0, kPower, 0)},
    {"coarse", {.linesPerMm = 6}, With(0, kPower, 0), 30},
    {"marlin", {}, Marlin(), 30},
};

/// Runs the G-code, and holds the moves of each row against what was asked for.
void BurnAll(QByteArray text, const Case& row, Work& work)
{
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    GcodeMoves moves(buffer);
    std::optional<double> level;
    double runUp = 0;
    size_t faults = 0;
    while (const auto move = moves.Next()) {
        const double way = move->to.x() - move->from.x();
        if (move->power > 0) {
            work.Burn(*move, row.gcode.leastPower, row.gcode.mostPower);
            const bool atSpeed = move->feed == row.gcode.engraveFeed && runUp >= row.gcode.overscan - 2e-4;
            faults += atSpeed && (way > 0 || !row.options.oneWay) ? 0 : 1;
        } else {
            const bool newRow = move->to.y() != level;
            level = move->to.y();
            runUp = newRow ? 0 : runUp + (move->feed > 0 ? std::abs(way) : 0);
        }
    }
    EXPECT_EQ(faults, 0u) << "moves that burn before they have run up, or in the wrong direction";
    EXPECT_EQ(work.faults, 0u);
    EXPECT_TRUE(moves.Ignored().empty()) << moves.Ignored().begin()->first.toStdString();
}

} // namespace

TEST_F(EngravingTest, the_machine_burns_the_picture)
{
    for (const Case& row : kCases) {
        SCOPED_TRACE(row.name);
        document->DeleteAll();
        CShapeImage* picture = AddMedallion(QRectF(10, 20, 30.4, 24));
        if (row.mirror)
            picture->MirrorX(33);
        picture->Rotate(row.turn, {20, 30}, Qt::ZAxis);
        const cv::Mat pixels = picture->GetImage(true);
        const QTransform toPixels = ToPixels(*picture, pixels);
        Work work = WorkFor(*picture, 1 / row.options.linesPerMm);

        BurnAll(Gcode(row.options, row.gcode), row, work);

        const double tolerance = 1.01 + row.options.greyStep / 2.0;
        double worst = 0;
        size_t burned = 0;
        for (int y = 0; y < work.rows; ++y)
            for (int x = 0; x < work.columns; ++x) {
                const double dot = work.dots[size_t(y * work.columns + x)];
                const double wanted = GreyAt(pixels, toPixels, work.Centre(x, y));
                worst = std::max(worst, std::abs(dot - wanted));
                burned += dot < 255;
            }
        EXPECT_LE(worst, tolerance);
        EXPECT_GT(burned, 10'000u);
    }
}

TEST_F(EngravingTest, rows_hold_runs_of_equal_grey_without_white)
{
    const cv::Mat runs = Pixels(4, {10, 10, 255, 0, 255, 255, 255, 255, 200, 203, 254, 254});
    const cv::Mat chequers = Pixels(4, {0, 200, 0, 200, 200, 0, 200, 0, 0, 200, 0, 200, 200, 0, 200, 0});
    const struct
    {
        const char* name;
        cv::Mat pixels;
        QRectF rect;
        EngraveOptions options;
        const char* rows;
    } rows[] = {
        {"there_and_back", runs, {0, 0, 4, 3}, {1}, "1 y0.5 0-2:10 3-4:0; 1 y2.5 < 0-1:200 1-2:203 2-4:254"},
        {"one_way", runs, {0, 0, 4, 3}, {1, true}, "1 y0.5 0-2:10 3-4:0; 1 y2.5 0-1:200 1-2:203 2-4:254"},
        {"greys_3_apart_are_one", runs, {0, 0, 4, 3}, {1, true, 3}, "1 y0.5 0-2:10 3-4:0; 1 y2.5 0-2:201 2-4:254"},
        {"fine_pixels_are_averaged", chequers, {0, 0, 2, 2}, {1, true}, "1 y0.5 0-2:100; 1 y1.5 0-2:100"},
        // A dot's centre lies a quarter and three quarters between the pixels' centres; beyond these nothing is made
        // up.
        {"coarse_ones_shaded", Pixels(2, {0, 200}), {0, 0, 4, 1}, {1, true}, "1 y0.5 0-1:0 1-2:50 2-3:150 3-4:200"},
        // A dot asks each pixel once, however much larger than the whole picture it is.
        {"hardly_any_height", Pixels(2, {0, 200}), {0, -1e-9, 4, 2e-9}, {1, true}, "1 y0 0-1:0 1-2:50 2-3:150 3-4:200"},
    };
    for (const auto& row : rows) {
        document->DeleteAll();
        AddPicture(row.pixels, row.rect);
        EXPECT_EQ(Rows(*document, row.options), row.rows) << row.name;
    }
}

TEST_F(EngravingTest, dithered_dots_keep_the_grey_of_their_surroundings)
{
    AddMedallion(QRectF(0, 0, 60.8, 48))->Rotate(30, {30, 24}, Qt::ZAxis);
    auto* picture = static_cast<CShapeImage*>(document->GetShape(0));
    const cv::Mat pixels = picture->GetImage(true);
    const QTransform toPixels = ToPixels(*picture, pixels);
    Work work = WorkFor(*picture, 0.1);
    Engraving(*document, {.dither = true}, "test").ForEachRow([&](const EngraveRow& row) {
        for (const EngraveSpan& span : row.spans) {
            ASSERT_EQ(span.grey, 0);
            work.Burn({{span.begin, row.y}, {span.end, row.y}, 1}, 0, 1);
        }
    });
    constexpr int kBlock = 20;
    double worst = 0;
    for (int top = 0; top + kBlock <= work.rows; top += kBlock)
        for (int left = 0; left + kBlock <= work.columns; left += kBlock) {
            double made = 0, wanted = 0;
            for (int y = top; y < top + kBlock; ++y)
                for (int x = left; x < left + kBlock; ++x) {
                    made += work.dots[size_t(y * work.columns + x)];
                    wanted += GreyAt(pixels, toPixels, work.Centre(x, y));
                }
            worst = std::max(worst, std::abs(made - wanted) / kBlock / kBlock);
        }
    EXPECT_LT(worst, 10) << "of 255, in blocks of 2 mm";
}

/// All rows of a turned picture, which is read in many steps.
std::string TurnedRows(const cv::Mat& pixels, const EngraveOptions& options, size_t threads)
{
    const PictureRows rows(pixels, {QPointF(5, 0), {45, 10}, {40, 40}, {0, 30}}, 1 / options.linesPerMm);
    std::ostringstream text;
    ForEachRowOf(
        rows, options,
        [&](size_t row, std::span<const EngraveSpan> spans) {
            text << "\n" << row;
            for (const EngraveSpan& span : spans)
                text << " " << span.begin << "-" << span.end << ":" << int(span.grey);
        },
        threads);
    return text.str();
}

TEST_F(EngravingTest, rows_are_the_same_on_any_number_of_threads)
{
    const cv::Mat pixels = AddMedallion(QRectF(0, 0, 10, 10))->GetImage(false);
    for (const EngraveOptions& options : {EngraveOptions{10}, {20, false, 8}, {12, false, 0, true}}) {
        const std::string alone = TurnedRows(pixels, options, 1);
        EXPECT_GT(alone.size(), 10'000u);
        for (const size_t threads : {2, 5})
            EXPECT_TRUE(TurnedRows(pixels, options, threads) == alone) << options.linesPerMm << " " << threads;
    }
}

TEST_F(EngravingTest, filled_outlines_become_hatches_with_exact_ends)
{
    // A triangle and a hole in it: at y 1 the flanks are at 0.5 and 9.5, the hole's at 3 and 7.
    auto* outline = new CShapeVector;
    std::vector<QPointF> points{{0, 0}, {10, 0}, {5, 10}, {0, 0}, {}, {3, 0.5}, {7, 0.5}, {7, 2}, {3, 2}};
    const std::vector<unsigned char> types{0, 0, 0, 0, ELINE_SEGMENT_SEPARATOR, 0, 0, 0, 0};
    outline->SetShapePoints(points, types);
    document->AddTail(outline);
    EXPECT_EQ(Rows(*document, {1}), "") << "an outline without fill marker is followed";
    outline->Close(0, true);
    EXPECT_EQ(TextOf(PrepareJob(*document, {.fastOrder = false}, "test", {}).job),
              "1: 0,0 10,0 5,10 0,0; 1: 3,0.5 7,0.5 7,2 3,2 3,0.5")
        << "followed as closed contours";
    EXPECT_EQ(PrepareJob(*document, {.engraved = true}, "test", {}).job.PathCount(), 0u);
    EXPECT_EQ(Rows(*document, {0.5}), "1 y1 0.5-3:0 7-9.5:0; 1 y3 < 1.5-8.5:0; 1 y5 2.5-7.5:0; 1 y7 < 3.5-6.5:0; "
                                      "1 y9 4.5-5.5:0");
    points[2].setX(std::nan(""));
    outline->SetShapePoints(points, types);
    outline->Close(0, true);
    EXPECT_EQ(EngravingObstacle(*outline), "filled outline with a place that is no number");
}

TEST_F(EngravingTest, shapes_that_cannot_be_engraved_are_counted_or_refused)
{
    AddPicture(Pixels(2, {0, 0}), QRectF(0, 0, 2, 1))->Hide(true);
    AddPicture({}, QRectF(0, 0, 2, 1));
    AddPicture(cv::Mat(2, 2, CV_8UC3), QRectF(0, 0, 2, 1));
    AddPicture(Pixels(2, {0, 0}), QRectF(0, 0, 2, 0));
    const PreparedJob prepared = PrepareJob(*document, {.engraved = true}, "test", {});
    EXPECT_EQ(prepared.leftOut, (LeftOut{{"hidden picture", 1},
                                         {"picture that is not grey", 1},
                                         {"picture without area", 1},
                                         {"picture without pixels", 1}}));
    EXPECT_EQ(Rows(*document, {1}), "");
    AddPicture(Pixels(2, {0, 0}), QRectF(0, 0, 9e5, 9e5));
    EXPECT_THROW(Engraving(*document, {100}, "test"), Failure);
    AddPicture(Pixels(2, {0, 0}), QRectF(0, 0, 2e6, 1));
    EXPECT_THROW(Engraving(*document, {0.01}, "test"), Failure);
}

TEST_F(EngravingTest, a_picture_may_stand_upright)
{
    AddPicture(Pixels(2, {0, 100}), QRectF(0, 0, 2, 1))->RotateRight({0, 0});
    EXPECT_EQ(Rows(*document, {1, true}), "1 y0.5 -1-0:0; 1 y1.5 -1-0:100");
}

TEST_F(EngravingTest, pictures_in_cells_of_groups_are_engraved_where_they_lie)
{
    CShapeImage* picture = AddPicture(Pixels(2, {0, 100}), QRectF(0, 0, 2, 1));
    picture->MirrorX(1);
    auto array = std::make_unique<CShapeArray>();
    array->SetShapeList(document.get());
    document->RemoveAll();
    array->SetArrayInfo(1, 3, 8, 0, 0, 0);
    array->SetInvalid(1);
    document->AddTail(array.release());
    EXPECT_EQ(Rows(*document, {1, true}), "1 y0.5 0-1:100 1-2:0; 2 y0.5 20-21:100 21-22:0");
}
