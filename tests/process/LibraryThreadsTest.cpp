/// Two threads that work on files through the document library; built with the thread sanitizer, the plug-in too.
#include "ProcessTest.h"

#include "check/FileCheck.h"
#include "document/DocumentFile.h"
#include "document/RepairedDocument.h"
#include "fit/OutlineFit.h"
#include "image/ImageStores.h"
#include "machine/Engraving.h"
#include "machine/GcodeOutput.h"
#include "machine/JobReport.h"
#include "machine/MachinePaths.h"
#include "picture/PictureInput.h"
#include "render/Drawing.h"
#include "render/PicturePage.h"
#include "svg/DrawingImport.h"

#include <QBuffer>
#include <QFile>

#include <array>
#include <cmath>
#include <map>
#include <thread>

using namespace test;
using namespace shapedocument;

/// The platform's libraries are built without the sanitizer, which therefore knows nothing of their locks.
extern "C" __attribute__((visibility("default"))) const char* __tsan_default_options()
{
    return "ignore_noninstrumented_modules=1";
}

namespace {

/// Curves, dashes, a clip, a hidden part, filled areas and a text.
constexpr char kDrawing[] =
    R"svg(<svg xmlns="http://www.w3.org/2000/svg" width="60mm" height="40mm" viewBox="0 0 60 40">
<clipPath id="half"><rect x="0" y="0" width="20" height="40"/></clipPath>
<circle cx="20" cy="20" r="9" clip-path="url(#half)" fill="none" stroke="#00f"/>
<path d="M2 2C12 2 12 9 20 9S30 2 40 4" fill="none" stroke="#f00" stroke-dasharray="2 1"/>
<rect x="40" y="20" width="10" height="8"/><rect x="38" y="18" width="8" height="8" fill="#080"/>
<text x="5" y="36" font-family="DejaVu Sans" font-size="5">cut</text></svg>)svg";

/// By name, what a program makes of files in a folder of its own.
using Made = std::map<std::string, QByteArray>;

WorkProgress Watched(size_t& asked)
{
    return [&asked](WorkStep, size_t, size_t) { return ++asked > 0; };
}

void Read(CShapeList& document, const WorkProgress& progress)
{
    DrawingImport drawing =
        ImportDrawing(kDrawing, {}, {.visible = true, .crop = true, .fills = true, .textAsText = true}, progress);
    EXPECT_EQ(drawing.error, "");
    for (std::unique_ptr<CShape>& shape : drawing.shapes)
        document.AddTail(shape.release());
    auto picture = std::make_unique<CShapeImage>();
    EXPECT_EQ(OpenPicture(*picture, SAMPLES "/medallion.png", {false, {}, progress}), 0);
    picture->SetOrgRect(QRectF(60, 0, 15, 12), true);
    document.AddTail(picture.release());
    auto round = std::make_unique<CShapeVector>();
    std::vector<QPointF> points;
    for (int i = 0; i <= 200; ++i)
        points.emplace_back(70 + 8 * std::cos(i * 0.0314), 30 + 8 * std::sin(i * 0.0314));
    round->SetVectorType(EVECTOR_POLYLINE);
    round->SetShapePoints(points, ELINE_SEGMENT_STRAIGHT);
    FitOutline(*round, progress);
    document.AddTail(round.release());
}

QByteArray Repaired(QByteArray file, const WorkProgress& progress)
{
    file.replace(40, 40, QByteArray(40, char(0xEE))); // in the first record
    const Bytes bytes(reinterpret_cast<const unsigned char*>(file.constData()), static_cast<size_t>(file.size()));
    EXPECT_TRUE(CheckFile(bytes).result.fault);
    const auto found = FindShapes(bytes, {}, progress);
    QStringList warnings;
    return found ? RepairedBytes(bytes, *found, "damaged", warnings, progress) : QByteArray();
}

QByteArray Gcode(CShapeList& document, QByteArray& picture, const WorkProgress& progress)
{
    const PreparedJob prepared = PrepareJob(document, {.engraved = true}, "work", progress);
    const Engraving engraving(document, {40}, "work"); // 288,000 dots: a second thread reads some of them
    MachineWork work(prepared.job);
    work.engraving = &engraving;
    EXPECT_GT(ReportOf(work, {}, "work").paths, 3u);
    QBuffer text, png;
    text.open(QIODevice::WriteOnly);
    WriteGcode(text, work, {});
    const Sheet sheet(work.Rect(), "work");
    png.open(QIODevice::WriteOnly);
    WritePicture(png,
                 {sheet,
                  [&](QPainter& painter) {
                      DrawShapes(painter, document, sheet.Unit(), progress);
                      DrawOrder(painter, prepared.job, sheet.Unit(), progress);
                  }},
                 PictureFormat::Png, 300, "work", progress);
    picture = png.data();
    return text.data();
}

Made WorkOnFiles()
{
    size_t asked = 0;
    const WorkProgress progress = Watched(asked);
    const QTemporaryDir folder;
    const QString name = folder.filePath("work.shapes");
    const Document document = NewDocument();
    Read(*document, progress);
    WriteDocument({name}, *document, {}, progress);
    Made made;
    QFile file(name);
    EXPECT_TRUE(file.open(QIODevice::ReadOnly));
    made["file"] = file.readAll();
    made["repaired"] = Repaired(made["file"], progress);
    const OpenedDocument read = ReadDocument(name, {}, progress);
    EXPECT_EQ(read.shapes->GetCount(), document->GetCount());
    made["G-code"] = Gcode(*read.shapes, made["picture"], progress);
    EXPECT_GT(asked, 10u);
    return made;
}

TEST(LibraryThreads, files_come_out_as_one_thread_makes_them)
{
    const ImageStores stores;
    std::array<Made, 2> made;
    std::array<std::thread, 2> threads;
    std::atomic<size_t> missing = threads.size();
    for (size_t i = 0; i < threads.size(); ++i)
        threads[i] = std::thread([&, i] {
            Meet(missing);
            made[i] = WorkOnFiles();
        });
    for (std::thread& thread : threads)
        thread.join();
    for (const auto& [name, bytes] : WorkOnFiles()) {
        EXPECT_GT(bytes.size(), 1'000) << name;
        EXPECT_TRUE(made[0][name] == bytes && made[1][name] == bytes) << name;
    }
}

} // namespace
