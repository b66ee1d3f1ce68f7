/// shapedoc render: a picture of a document, or of the order in which the machine goes along its lines.
#include "Batch.h"
#include "Commands.h"
#include "FittingNote.h"
#include "JobArguments.h"
#include "Messages.h"
#include "OpenDocument.h"
#include "Progress.h"
#include "WorkReport.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "document/ShapeWalk.h"
#include "machine/BedCheck.h"
#include "render/Drawing.h"
#include "render/GcodeDrawing.h"
#include "render/PicturePage.h"

#include <QFile>
#include <QPainter>

using namespace shapedocument;

namespace {

struct RenderOptions
{
    InputsAndOutput files;
    std::string format;
    StreamFormat stream;
    bool lines = false;
    bool report = false;
    double widestGap = ReportOptions().widestGap;
    JobArguments job;
    bool points = false;
    int width = 1200;
    double beam = 0.1; // mm
};

const QStringList kGcodeEndings{"gcode", "nc", "ngc", "gc"};
const std::vector<Format> kPageFormats{{"png", {"png"}}, {"svg", {"svg"}}, {"pdf", {"pdf"}}};

PictureFormat FormatOf(const std::string& name)
{
    return name == "png" ? PictureFormat::Png : name == "svg" ? PictureFormat::Svg : PictureFormat::Pdf;
}

Made WritePage(const PicturePage& page, const Target& target, const RenderOptions& options)
{
    const QString output = OutputName(target);
    const Progress progress("drawing " + output);
    WriteFile(target, [&](QFile& file) { WritePicture(file, page, FormatOf(options.format), options.width, output); });
    const QSizeF size = page.sheet.Size();
    return {0, QString("%1 x %2 mm").arg(size.width(), 0, 'f', 1).arg(size.height(), 0, 'f', 1)};
}

/// A picture of what the G-code burns.
Made MakeGcodePicture(const QString& input, const Target& output, const RenderOptions& options)
{
    const std::unique_ptr<QFile> file = OpenInput(input);
    const GcodeTrace trace = TraceGcode(*file);
    for (const auto& [word, count] : trace.ignored)
        Warn(QString("%1: %2 x %3 is not simulated").arg(input).arg(count).arg(word));
    if (trace.mostPower <= 0)
        throw Failure{input, "burns nothing"};
    const auto paint = [&](QPainter& painter) { DrawGcode(painter, *file, trace, options.beam); };
    return WritePage({Sheet(trace.rect, input), paint}, output, options);
}

/// Shapes that are hidden lie anywhere.
QRectF RectOf(const JobReport& report)
{
    QPolygonF places;
    for (const Findings& findings : report.findings)
        for (const Finding& finding : findings.first)
            places << finding.place;
    return places.boundingRect();
}

/// Of the work's lines in order, or of the shapes that it is made of, with the marks of its report.
Made MakeWorkPicture(CShapeList& document, const QString& name, const Target& output, const RenderOptions& options)
{
    PreparedWork prepared(document, options.job, name);
    prepared.WarnOfDoubles();
    const MachineWork& work = prepared.Work();
    std::optional<JobReport> report;
    if (options.report)
        report = ReportOfWork(prepared, document, options.job, options.widestGap, name);
    const QRectF content = options.lines ? work.Rect() : document.GetRect(false);
    const Sheet sheet(report ? content.united(RectOf(*report)) : content, name);
    const auto paint = [&](QPainter& painter) {
        if (!options.lines || work.EngravedShapes() > 0)
            DrawShapes(painter, document, sheet.Unit());
        if (options.lines)
            DrawOrder(painter, work.job, sheet.Unit());
        if (report)
            DrawFindings(painter, *report, sheet.Unit());
        if (options.job.bed)
            DrawBed(painter, BedInDocument(*options.job.bed, work, options.job.gcode), sheet.Unit());
    };
    return WritePage({sheet, paint}, output, options);
}

Made MakePicture(const QString& input, const Target& output, const RenderOptions& options)
{
    if (kGcodeEndings.contains(Ending(input)))
        return MakeGcodePicture(input, output, options);
    const QString name = InputName(input);
    const Document document = OpenDocument(input, options.stream);
    if (options.lines || options.report)
        return MakeWorkPicture(*document, name, output, options);
    ExpectFewOutlines(*document, name);
    const Sheet sheet(document->GetRect(false), name);
    const auto paint = [&](QPainter& painter) {
        DrawShapes(painter, *document, sheet.Unit());
        if (options.points)
            DrawPoints(painter, *document, sheet.Unit());
    };
    return WritePage({sheet, paint}, output, options);
}

int Render(RenderOptions& options)
{
    CompleteJob(options.job);
    options.format = FormatOf(options.files, options.format, kPageFormats);
    const int exitCode =
        MakeFiles(options.files, EndingOf(options.format, kPageFormats),
                  [&](const QString& input, const Target& output) { return MakePicture(input, output, options); });
    SayWhetherFitted(ReportStream(options.files.output.file));
    return exitCode;
}

} // namespace

void AddRender(CommandLine& program)
{
    CommandArguments& command = program.AddCommand(
        "render", "Draw all shapes that are not hidden, or what G-code burns, in a millimetre frame");
    const auto options = std::make_shared<RenderOptions>();
    AddDocuments(command, options->files);
    AddFormat(command, options->format, kPageFormats);
    AddStreamFormat(command, options->stream);
    const CommandOption lines =
        command.AddFlag("--lines", options->lines, "draw the machine lines, moves dashed, in order");
    const CommandOption report = command.AddFlag(
        "--report", options->report, "with rings around what report finds: red where it spoils the work, else orange");
    command.AddFlag("--points", options->points, "draw the outlines' points, control points with their tangents")
        .Excludes(lines)
        .Excludes(report);
    constexpr Range kBeams{0.001, 10};
    command.AddNumber("--beam=MM", options->beam, kBeams, "of G-code: how wide the laser burns");
    command.AddInteger("--width=PIXELS", options->width, {kLeastPixels, kMostPixels}, "width of a PNG");
    AddGapOption(command, options->widestGap).Needs(report);
    const size_t others = command.OptionNames().size();
    AddJobOptions(command, options->job);
    command.AddExample("render badge.shapes -o badge.png --lines --leads", "the order in which the machine goes");
    command.AddExample("render badge.gcode -o burned.png", "what the machine leaves on the work");
    command.AddExample("render *.shapes --out-dir pictures --format pdf", "a page of each document");
    command.Runs([options, &command, others] {
        if (!options->lines && !options->report)
            command.ExpectNoneFrom(others, "only with --lines or --report");
        return Render(*options);
    });
}
