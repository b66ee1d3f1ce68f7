/// shapedoc render: a picture of a document, or of the order in which the machine goes along its lines.
#include "Arguments.h"
#include "Commands.h"
#include "FittingNote.h"
#include "LeftOutNote.h"
#include "Messages.h"
#include "Progress.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "document/ShapeWalk.h"
#include "machine/MachinePaths.h"
#include "render/Drawing.h"
#include "render/GcodeDrawing.h"

#include "OpenDocument.h"

#include <CLI/CLI.hpp>
#include <QBuffer>
#include <QFile>
#include <QImage>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QSvgGenerator>

#include <algorithm>
#include <cmath>

using namespace shapedocument;

namespace {

struct RenderOptions
{
    std::string document;
    Target output;
    std::string format;
    StreamFormat stream;
    bool lines = false;
    JobOptions job;
    bool points = false;
    int width = 1200;
    double beam = 0.1; // mm
};

constexpr int kMaxPixels = 20000; // a side of a picture
constexpr double kMmPerInch = 25.4;
const QStringList kGcodeEndings{"gcode", "nc", "ngc", "gc"};
const std::vector<Format> kFormats{{"png", {"png"}}, {"svg", {"svg"}}, {"pdf", {"pdf"}}};

using Paint = std::function<void(QPainter&)>;

struct Page
{
    Sheet sheet;
    Paint content;

    void PaintOn(QPaintDevice& device, double width, const QString& output) const
    {
        QPainter painter;
        if (!painter.begin(&device))
            throw Failure{output, "cannot be painted"};
        sheet.SetUp(painter, width);
        sheet.DrawFrame(painter);
        content(painter);
    }
};

/// Size in device units of a sheet that is width wide; the height is held within bounds.
QSize PixelSize(const Sheet& sheet, int width)
{
    const QSizeF size = sheet.Size() * (width / sheet.Size().width());
    const double shrink = std::min(1.0, kMaxPixels / size.height());
    return {std::max(1, int(std::ceil(size.width() * shrink))), std::max(1, int(std::ceil(size.height() * shrink)))};
}

void WritePng(QFile& file, const Page& page, int width, const QString& output)
{
    QImage image(PixelSize(page.sheet, width), QImage::Format_RGB32);
    if (image.isNull())
        throw Failure{output, "picture too large"};
    image.fill(Qt::white);
    page.PaintOn(image, image.width(), output);
    QBuffer png; // The encoder does not stand a disk that is full.
    if (!image.save(&png, "PNG"))
        throw Failure{output, "cannot be encoded"};
    file.write(png.data());
}

void WriteSvgPicture(QFile& file, const Page& page, const QString& output)
{
    constexpr int kDpi = 96;
    constexpr double kUnitsPerMm = kDpi / kMmPerInch;
    const QSizeF size = page.sheet.Size() * kUnitsPerMm;
    QSvgGenerator svg;
    svg.setOutputDevice(&file);
    svg.setResolution(kDpi);
    svg.setSize(size.toSize().expandedTo({1, 1}));
    svg.setViewBox(QRectF(QPointF(), size));
    page.PaintOn(svg, size.width(), output);
}

void WritePdf(QFile& file, const Page& page, const QString& output)
{
    QPdfWriter pdf(&file);
    pdf.setPageMargins(QMarginsF());
    pdf.setPageSize(QPageSize(page.sheet.Size(), QPageSize::Millimeter, {}, QPageSize::ExactMatch));
    // The page is cut to whole points; the drawing keeps its scale.
    page.PaintOn(pdf, page.sheet.Size().width() * pdf.resolution() / kMmPerInch, output);
}

PreparedJob Prepare(CShapeList& document, const JobOptions& options, const QString& name)
{
    Progress progress("making lines of shapes");
    PreparedJob prepared = PrepareJob(document, options, name, [&](size_t shapes) { progress.At(shapes, 0); });
    WarnOfLeftOut(name, prepared.leftOut);
    return prepared;
}

void WritePage(const Page& page, const RenderOptions& options, const QString& format)
{
    const QString output = OutputName(options.output);
    WriteFile(options.output, [&](QFile& file) {
        if (format == "png")
            WritePng(file, page, options.width, output);
        else if (format == "svg")
            WriteSvgPicture(file, page, output);
        else
            WritePdf(file, page, output);
    });
    SayWhetherFitted(ReportStream(options.output.file));
}

/// G-code is shown by what it leaves on the work.
int RenderGcode(const RenderOptions& options, const QString& format)
{
    const QString name = FileName(options.document);
    const std::unique_ptr<QFile> file = OpenInput(name);
    const GcodeTrace trace = TraceGcode(*file);
    for (const auto& [word, count] : trace.ignored)
        Warn(QString("%1: %2 x %3 is not simulated").arg(name).arg(count).arg(word));
    if (trace.mostPower <= 0)
        throw Failure{name, "burns nothing"};
    const Sheet sheet(trace.rect, name);
    const auto paint = [&](QPainter& painter) { DrawGcode(painter, *file, trace, options.beam); };
    WritePage({sheet, paint}, options, format);
    return 0;
}

int Render(const RenderOptions& options, const QString& format)
{
    if (kGcodeEndings.contains(Ending(FileName(options.document))))
        return RenderGcode(options, format);
    const QString name = InputName(FileName(options.document));
    const Document document = OpenDocument(FileName(options.document), options.stream);
    if (options.lines) {
        const MachineJob job = Prepare(*document, options.job, name).job;
        const Sheet sheet(job.Rect(), name);
        WritePage({sheet, [&](QPainter& painter) { DrawOrder(painter, job, sheet.Unit()); }}, options, format);
        return 0;
    }
    ExpectFewOutlines(*document, name);
    const Sheet sheet(document->GetRect(false), name);
    const auto paint = [&](QPainter& painter) {
        DrawShapes(painter, *document, sheet.Unit());
        if (options.points)
            DrawPoints(painter, *document, sheet.Unit());
    };
    WritePage({sheet, paint}, options, format);
    return 0;
}

} // namespace

void AddRender(CLI::App& app, Command& chosen)
{
    CLI::App* command = app.add_subcommand(
        "render", "Draw all shapes that are not hidden, or what G-code burns, in a millimetre frame");
    const auto options = std::make_shared<RenderOptions>();
    AddDocument(*command, options->document);
    AddOutput(*command, options->output);
    AddFormat(*command, options->format, kFormats);
    AddStreamFormat(*command, options->stream);
    CLI::Option* lines = command->add_flag("--lines", options->lines, "draw the machine lines, moves dashed, in order");
    command->add_flag("--points", options->points, "draw the outlines' points, control points with their tangents")
        ->excludes(lines);
    command->add_flag("--leads", options->job.leads, "with lead-in and lead-out lines")->needs(lines);
    command->add_option("--beam", options->beam, "G-code: mm that the laser burns wide")
        ->check(NumberBetween(0.001, 10))
        ->capture_default_str();
    command->add_option("--width", options->width, "width of a PNG in pixels")
        ->check(CLI::Range(16, kMaxPixels))
        ->capture_default_str();
    command->callback([&chosen, options] {
        chosen = [options, format = FormatOf(options->output, options->format, kFormats)] {
            return Render(*options, format);
        };
    });
}
