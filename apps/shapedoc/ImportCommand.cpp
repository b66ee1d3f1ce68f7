/// shapedoc import: drawings and pictures become a document.
#include "Arguments.h"
#include "Commands.h"
#include "Messages.h"
#include "PictureLimits.h"
#include "Progress.h"
#include "TextOptions.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "document/TextFindings.h"

#include "svg/DrawingImport.h"

#include "image/ShapeImage.h"
#include "text/ShapeText.h"

#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <memory>

using namespace shapedocument;

namespace {

struct ImportOptions
{
    QStringList drawings;
    TextOptions text;
    Target output;
    StreamFormat format;
    std::string drawingFormat; ///< of files whose ending does not tell
    bool large = false;
    DrawingOptions drawing;
    bool strict = false;
    bool json = false;
};

constexpr char kPicture[] = "picture";
const std::vector<Format> kFormats{{"svg", {"svg", "svgz"}},
                                   {kPicture, {"png", "jpg", "jpeg", "bmp", "tif", "tiff", "webp"}}};

/// A drawing or picture on its way in.
struct Source
{
    QString path; ///< that readers of files can open
    QString name; ///< for messages
};

QByteArray BytesOf(const Source& source)
{
    QFile file(source.path);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure{source.name, "cannot be opened: " + file.errorString()};
    return file.readAll();
}

QJsonObject JsonOf(const QString& file, const DrawingImport& drawing, size_t shapes)
{
    QJsonObject ignored;
    drawing.report.ForEachCount([&](const char* name, int count) { ignored[name] = count; });
    QJsonArray fonts;
    for (const auto& [family, used] : drawing.report.ReplacedFonts())
        fonts.append(QJsonObject{{"family", family}, {"used", used}});
    return {{"file", file},
            {"shapes", static_cast<qint64>(shapes)},
            {"pageWidth", drawing.page.width()},
            {"pageHeight", drawing.page.height()},
            {"asPainted", drawing.report.IsEmpty()},
            {"notAsPainted", ignored},
            {"replacedFonts", fonts}};
}

/// What is said of the drawings: lines on standard error, objects on standard output.
struct Told
{
    bool asPainted = true;
    QJsonArray drawings;
};

void AddDrawing(const Source& source, CShapeList& document, const DrawingOptions& options, Told& told)
{
    const QString& file = source.name;
    DrawingImport drawing = ImportDrawing(BytesOf(source), source.path == file ? file : QString(), options);
    if (!drawing.error.isEmpty())
        throw Failure{file, drawing.error};
    if (drawing.shapes.empty())
        throw Failure{file, "paints no path"};
    told.drawings.append(JsonOf(file, drawing, drawing.shapes.size()));
    for (std::unique_ptr<CShape>& shape : drawing.shapes)
        document.AddTail(shape.release());
    if (drawing.report.IsEmpty())
        return;
    told.asPainted = false;
    PrintLine(stderr, "shapedoc: " + file + ": " + drawing.report.Lines().join(", "));
}

/// Below what the document holds already.
void AddText(const TextOptions& options, CShapeList& document)
{
    if (options.underline)
        Warn("documents do not keep the underline");
    auto text = NewText(options);
    const QRectF drawn = document.GetRect(false);
    text->Offset(drawn.left(), drawn.bottom());
    document.AddTail(text.release());
    TextFindings findings;
    findings.Add(document);
    for (const QString& warning : findings.Lines())
        Warn(warning);
}

void AddPicture(const Source& source, CShapeList& document, bool large)
{
    auto picture = std::make_unique<CShapeImage>();
    OpenPicture(*picture, source.path, large);
    if (source.path != source.name)
        *picture->GetFilename() = '\0'; // Nothing is found there later.
    document.AddTail(picture.release());
}

bool IsPicture(const QString& file, const std::string& format)
{
    const QString ending = Ending(file);
    for (const Format& known : kFormats)
        if (known.endings.contains(ending))
            return known.name == kPicture;
    return format == kPicture;
}

void AddSource(const Source& source, bool picture, const ImportOptions& options, CShapeList& document, Told& told)
{
    if (picture)
        AddPicture(source, document, options.large);
    else
        AddDrawing(source, document, options.drawing, told);
}

void AddFile(const QString& file, const ImportOptions& options, CShapeList& document, Told& told)
{
    const bool picture = IsPicture(file, options.drawingFormat);
    if (file != kStandardStream) {
        ExpectRegular(file);
        AddSource({file, file}, picture, options, document, told);
        return;
    }
    const std::unique_ptr<QFile> copy = OpenInput(file);
    const Source source{QString("/dev/fd/%1").arg(copy->handle()), InputName(file)};
    try {
        AddSource(source, picture, options, document, told);
    } catch (const Failure& failure) {
        throw Failure{source.name, failure.reason};
    }
}

int Import(const ImportOptions& options)
{
    if (options.drawings.empty() && options.text.text.empty())
        throw UsageError{"FILE or --text is required"};
    const Document document = NewDocument();
    Told told;
    Progress progress("importing drawings");
    for (qsizetype i = 0; i < options.drawings.size(); ++i) {
        AddFile(options.drawings[i], options, *document, told);
        progress.At(i + 1, options.drawings.size());
    }
    if (!options.text.text.empty())
        AddText(options.text, *document);
    WriteDocument(options.output, *document, options.format);
    if (options.json)
        std::fputs(QJsonDocument(told.drawings).toJson().constData(), ReportStream(options.output.file));
    return options.strict && !told.asPainted ? kNotAsPainted : 0;
}

} // namespace

void AddImport(CommandLine& program)
{
    CommandArguments& command = program.AddCommand("import", "Make a document of SVG drawings, pictures and a text",
                                                   "Drawings come in at 96 units to the inch, their curves exact.");
    const auto options = std::make_shared<ImportOptions>();
    command.AddFiles(
        "FILE", options->drawings,
        "the drawings (SVG) and pictures (PNG, JPEG, BMP, TIFF, WebP), one behind the other in the document");
    command.AddFlag("--flatten", options->drawing.flatten,
                    "drawings as polylines of fine straight pieces, not as curves");
    command.AddFlag("--solid", options->drawing.solid, "dashed lines without their gaps");
    command.AddFlag("--visible", options->drawing.visible, "without what later opaque fills hide");
    command.AddFlag("--crop", options->drawing.crop, "outlines are cut at the drawing's page");
    command.AddFlag("--strict", options->strict,
                    "exit code 4 when anything of a drawing is not as painted; the document is written");
    command.AddFlag("--json", options->json, "print what is not as painted as JSON, drawing by drawing");
    command.AddFlag("--large", options->large,
                    "pictures of more than 256 MiB of pixels (up to 768), or of more than 30 seconds of decoding, too");
    AddFormat(command, options->drawingFormat, kFormats);
    AddTextOptions(command, options->text);
    AddOutput(command, options->output).Required();
    command.AddFlag("--bare", options->format.bare, "write the bare list stream, without file header");
    command.Runs([options] { return Import(*options); });
}
