// The preview: jobs as they are played, what is found in them, and the files
// that they become.
#include "job/FindingsList.h"
#include "job/JobExport.h"
#include "job/JobPreview.h"

#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "image/ImageStores.h"
#include "machine/GcodeMoves.h"
#include "svg/DrawingImport.h"
#include "vector/ShapeVector.h"

#include <gtest/gtest.h>

#include <QBuffer>
#include <QImage>
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
        notes = WriteJob(job, format, name);
        QFile file(name);
        file.open(QIODevice::ReadOnly);
        return file.readAll();
    }

    const ImageStores stores;
    const Document drawing = NewDocument();
    JobPreview preview{[this] { return ShapeListOwner(drawing->Clone()); }};
    QTemporaryDir folder;
    QStringList notes;
};

} // namespace

TEST_F(JobTest, the_head_goes_the_way_of_the_gcode_in_the_time_of_the_report)
{
    drawing->AddTail(Outline({{10, 290}, {40, 290}}));
    drawing->AddTail(Outline({{40, 280}, {10, 280}}));
    ASSERT_TRUE(preview.MakeReady());
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
    ASSERT_TRUE(preview.MakeReady());
    auto& list = *preview.findChild<FindingsList*>();
    ASSERT_EQ(list.topLevelItemCount(), 2);
    EXPECT_EQ(list.topLevelItem(0)->text(0), "Contours that are not quite closed: 1");
    EXPECT_EQ(list.topLevelItem(1)->text(0), "Outside the bed: 1");
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

TEST_F(JobTest, what_cannot_become_a_job_is_said_and_leaves_no_file)
{
    ASSERT_TRUE(preview.MakeReady());
    EXPECT_THROW(FileOf(*preview.Job(), JobFormat::Gcode), Failure) << "nothing to follow";
    EXPECT_FALSE(QFile::exists(folder.filePath("job.gcode")));
    drawing->AddTail(Outline({{0, 0}, {9, 0}}));
    JobSettings settings;
    settings.gcode.dialect = &kGcodeDialects[1];
    settings.job.colors[0xFF0000].power = 256;
    preview.SetSettings(settings);
    ASSERT_TRUE(preview.MakeReady());
    EXPECT_THROW(FileOf(*preview.Job(), JobFormat::Gcode), Failure) << "a byte of power";
    EXPECT_FALSE(QFile::exists(folder.filePath("job.gcode")));
    drawing->AddTail(Outline({{0, 0}, {1e9, 0}}));
    EXPECT_FALSE(preview.MakeReady()) << "no machine goes that far";
    preview.SetTime(5);
    EXPECT_EQ(preview.Time(), 0);
}

TEST_F(JobTest, settings_come_back_and_nonsense_in_their_file_is_left)
{
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
