// The preview: jobs as they are played, what is found in them, and the files
// that they become.
#include "TestQuestions.h"

#include "edits/Tidy.h"
#include "job/FindingsList.h"
#include "job/JobCanvas.h"
#include "job/JobExport.h"
#include "job/JobPainting.h"
#include "job/JobPreview.h"
#include "job/JobTiles.h"

#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "image/ImageStores.h"
#include "machine/GcodeMoves.h"
#include "svg/DrawingImport.h"
#include "vector/ShapeVector.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QCheckBox>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QImage>
#include <QPainter>
#include <QSettings>
#include <QSignalSpy>
#include <QTemporaryDir>

using namespace shapedocument;

namespace {

CShape* Outline(const std::vector<QPointF>& points)
{
    auto* shape = new CShapeVector;
    shape->SetVectorType(EVECTOR_MIXED);
    shape->SetShapePoints(points, ESHAPE_LINE_SEGMENT_TYPE{});
    shape->SetColor(0xFF0000);
    return shape;
}

class JobTest : public testing::Test
{
protected:
    QByteArray FileOf(const MadeJob& job, JobFormat format)
    {
        const QString name = folder.filePath("job." + EndingOf(format));
        notes = WriteJob(job, format, name, [] { return true; });
        QFile file(name);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

    TestQuestions questions;
    const ImageStores stores;
    const Document drawing = NewDocument();
    JobPreview preview{[this] { return ShapeListOwner(drawing->Clone()); }};
    QTemporaryDir folder;
    QStringList notes;
};

} // namespace

/// Given up, a file stays as it was.
TEST_F(JobTest, writing_can_be_given_up)
{
    drawing->AddTail(Outline({{10, 290}, {40, 290}}));
    ASSERT_TRUE(preview.MakeReady(questions));
    for (const JobFormat format : {JobFormat::Gcode, JobFormat::Svg, JobFormat::Png}) {
        const QByteArray whole = FileOf(*preview.Job(), format);
        const QString name = folder.filePath("job." + EndingOf(format));
        EXPECT_FALSE(whole.isEmpty());
        EXPECT_THROW(WriteJob(*preview.Job(), format, name, [] { return false; }), Stopped);
        QFile file(name);
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        EXPECT_EQ(file.readAll(), whole);
    }
    questions.givesUp = true;
    drawing->AddTail(Outline({{10, 270}, {40, 270}}));
    EXPECT_FALSE(preview.MakeReady(questions));
    EXPECT_EQ(preview.Trouble(), "");
}

TEST_F(JobTest, the_head_goes_the_way_of_the_gcode_in_the_time_of_the_report)
{
    drawing->AddTail(Outline({{10, 290}, {40, 290}}));
    drawing->AddTail(Outline({{40, 280}, {10, 280}}));
    ASSERT_TRUE(preview.MakeReady(questions));
    const MadeJob& job = *preview.Job();
    EXPECT_EQ(job.PlaceAt(0).place, QPointF(0, 300)) << "the origin of the bed, bottom left";
    EXPECT_EQ(job.PlaceAt(job.Seconds()).place, QPointF(0, 300));
    const auto& steps = job.Steps(); // there, a line, down, a line, back
    ASSERT_EQ(steps.size(), 5u);
    EXPECT_EQ(job.PlaceAt((steps[0].end + steps[1].end) / 2).place, QPointF(25, 280));
    EXPECT_EQ(job.PlaceAt((steps[2].end + steps[3].end) / 2).place, QPointF(25, 290));
    EXPECT_EQ(job.Seconds(), job.Report().time.seconds);

    QByteArray text = FileOf(job, JobFormat::Gcode);
    QBuffer buffer(&text);
    buffer.open(QIODevice::ReadOnly);
    GcodeMoves moves(buffer);
    std::vector<QPointF> burned;
    while (const auto move = moves.Next())
        if (move->power > 0)
            burned.push_back(move->to);
    EXPECT_EQ(burned, (std::vector<QPointF>{{40, 20}, {10, 10}}));
    EXPECT_EQ(QImage::fromData(FileOf(job, JobFormat::Png)).width(), 2000);
    EXPECT_EQ(ImportDrawing(FileOf(job, JobFormat::Svg), {}, {}).shapes.size(), 2u);
    EXPECT_TRUE(notes.isEmpty());
}

TEST_F(JobTest, a_finding_that_is_chosen_shows_its_place)
{
    drawing->AddTail(Outline({{100, 100}, {140, 100}, {140, 140}, {100, 140}, {100, 100.5}}));
    drawing->AddTail(Outline({{390, 20}, {420, 20}}));
    ASSERT_TRUE(preview.MakeReady(questions));
    auto& list = *preview.findChild<FindingsList*>();
    ASSERT_EQ(list.topLevelItemCount(), 2);
    EXPECT_EQ(list.topLevelItem(0)->text(0), "Contours that are not quite closed: 1");
    EXPECT_EQ(list.topLevelItem(1)->text(0), "Outside the bed: 1");
    EXPECT_EQ(list.topLevelItem(0)->child(0)->text(0), "open by 0.50 mm, at 100.00, 100.25");
    EXPECT_EQ(list.topLevelItem(1)->child(0)->text(0), "20.00 mm outside, at 420.00, 20.00");
    QSignalSpy shown(&preview, &JobPreview::ShowPlace);
    list.setCurrentItem(list.topLevelItem(0)->child(0));
    list.setCurrentItem(list.topLevelItem(1)->child(0));
    ASSERT_EQ(shown.size(), 2);
    EXPECT_NEAR(shown[0][0].toRectF().center().x(), 100, 0.01);
    EXPECT_NEAR(shown[0][0].toRectF().center().y(), 100.25, 0.26);
    EXPECT_EQ(shown[1][0].toRectF().center(), QPointF(420, 20));
    FileOf(*preview.Job(), JobFormat::Gcode);
    EXPECT_EQ(notes, QStringList("1 paths leave the bed"));
}

TEST(JobPainting, a_mark_is_a_ring_of_twelve_pixels_at_least)
{
    QImage image(60, 60, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    PaintMark(painter, QRectF(30, 30, 0, 0));
    painter.end();
    for (const QPoint ring : {QPoint(42, 30), QPoint(18, 30), QPoint(30, 42), QPoint(30, 18)})
        EXPECT_NE(image.pixelColor(ring), QColor(Qt::white)) << ring.x() << "," << ring.y();
    EXPECT_EQ(image.pixelColor(30, 30), QColor(Qt::white));
}

/// Tiles that were painted in parts, with marks to go back to, and moved, are those that are painted at once.
TEST_F(JobTest, any_way_to_a_time_and_a_place_shows_the_same)
{
    for (int i = 0; i < 700; ++i) { // more than a tile has between two marks
        const QPointF at(20 + i % 35 * 4, 20 + i / 35 * 4);
        drawing->AddTail(Outline({at, at + QPointF(3, 0), at + QPointF(3, 3)}));
    }
    CShape* filled = Outline({{200, 20}, {260, 20}, {260, 60}, {200, 60}});
    ASSERT_TRUE(FillOutline(static_cast<CShapeVector&>(*filled))); // Its rows are engraved.
    drawing->AddTail(filled);
    ASSERT_TRUE(preview.MakeReady(questions));
    using Pans = std::vector<QPoint>;
    const auto shown = [&](const Pans& before, const std::vector<double>& parts, const Pans& after) {
        JobCanvas canvas;
        canvas.resize(300, 240);
        canvas.SetJob(preview.Job());
        canvas.Fit();
        for (const QPoint& pan : before)
            canvas.Pan(pan);
        for (const double part : parts) {
            canvas.SetTime(part * preview.Job()->Seconds());
            canvas.grab();
        }
        for (const QPoint& pan : after) {
            canvas.Pan(pan);
            canvas.grab();
        }
        for (int i = 0; i < 12; ++i) // Each paints one of the 12 missing tiles at least.
            canvas.grab();
        return canvas.grab().toImage();
    };
    for (const double part : {0.0, 0.3, 0.77, 1.0}) {
        EXPECT_EQ(shown({}, {0.1, 0.5, 1, 0.9, 0.2, 0.8, part}, {}), shown({}, {part}, {})) << part;
        EXPECT_EQ(shown({}, {1, 0, 1, part}, {{-150, 7}, {83, -90}}), shown({{-67, -83}}, {part}, {})) << part;
    }
    EXPECT_NE(shown({}, {0.3}, {}), shown({}, {0.31}, {}));
}

/// Rows 60 by 40 mm at 10 pixels a millimetre, in six tiles or so.
TEST_F(JobTest, rows_fill_what_they_cover_and_every_call_paints_one_tile_at_least)
{
    CShape* filled = Outline({{10, 10}, {70, 10}, {70, 50}, {10, 50}});
    ASSERT_TRUE(FillOutline(static_cast<CShapeVector&>(*filled)));
    drawing->AddTail(filled);
    ASSERT_TRUE(preview.MakeReady(questions));
    JobPlacement placement{QTransform::fromScale(10, 10), QRectF(0, 0, 800, 600)};
    placement.rows = RowsInColor(*preview.Job());
    JobTiles tiles;
    tiles.Begin(preview.Job(), QRectF(0, 0, 80, 60), placement, 1);
    QImage image(800, 600, QImage::Format_RGB32);
    int calls = 1;
    for (; calls < 100; ++calls) {
        QPainter painter(&image);
        if (tiles.Paint(painter, {0, 0}, image.size(), preview.Job()->Steps().size(), 0))
            break;
    }
    EXPECT_GT(calls, 1);
    EXPECT_LT(calls, 100);
    for (const QPoint burned : {QPoint(120, 120), QPoint(400, 300), QPoint(680, 480)})
        EXPECT_EQ(image.pixelColor(burned), QColor(Qt::black)) << burned.x();
    EXPECT_NE(image.pixelColor(50, 300), QColor(Qt::black));
}

/// However slow the computer: the clock goes on until the end, where playing ends.
TEST_F(JobTest, plays_to_its_end)
{
    drawing->AddTail(Outline({{0, 300}, {1, 300}}));
    ASSERT_TRUE(preview.MakeReady(questions));
    preview.SetTime(preview.Job()->Seconds() * 0.99); // a fifth of a second before it
    preview.Play(true);
    QElapsedTimer waited;
    for (waited.start(); preview.Time() < preview.Job()->Seconds() && waited.elapsed() < 20'000;)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    EXPECT_EQ(preview.Time(), preview.Job()->Seconds());
}

TEST_F(JobTest, what_cannot_become_a_job_is_said_and_leaves_no_file)
{
    ASSERT_TRUE(preview.MakeReady(questions));
    EXPECT_THROW(FileOf(*preview.Job(), JobFormat::Gcode), Failure) << "nothing to follow";
    EXPECT_FALSE(QFile::exists(folder.filePath("job.gcode")));
    drawing->AddTail(Outline({{0, 0}, {9, 0}}));
    JobSettings settings;
    settings.gcode.dialect = &kGcodeDialects[1];
    settings.job.colors[0xFF0000].power = 256;
    preview.SetSettings(settings);
    ASSERT_TRUE(preview.MakeReady(questions));
    EXPECT_THROW(FileOf(*preview.Job(), JobFormat::Gcode), Failure) << "a byte of power";
    EXPECT_FALSE(QFile::exists(folder.filePath("job.gcode")));
    drawing->AddTail(Outline({{0, 0}, {1e9, 0}}));
    EXPECT_FALSE(preview.MakeReady(questions)) << "no machine goes that far";
    preview.SetTime(5);
    EXPECT_EQ(preview.Time(), 0);
}

TEST_F(JobTest, settings_come_back_and_nonsense_in_their_file_is_left)
{
    EXPECT_EQ(preview.findChildren<QCheckBox*>().size(), 5) << "four of the form, and whether moves are shown";
    QSettings file(folder.filePath("settings.ini"), QSettings::IniFormat);
    JobSettings settings;
    settings.bed = {300, 200};
    settings.yDown = true;
    settings.gcode.dialect = &kGcodeDialects[1];
    settings.engraving.linesPerMm = 8;
    WriteJobSettings(file, settings);
    JobSettings read;
    ReadJobSettings(file, read);
    EXPECT_EQ(read.bed, settings.bed);
    EXPECT_TRUE(read.yDown);
    EXPECT_EQ(read.gcode.dialect, settings.gcode.dialect);
    EXPECT_EQ(read.engraving.linesPerMm, 8);
    for (const char* value : {"0", "-1", "nan", "inf", "1e300", "wide"}) {
        file.setValue("job/bedWidth", value);
        file.setValue("job/dialect", value);
        ReadJobSettings(file, read);
        EXPECT_EQ(read.bed, settings.bed) << value;
    }
}
