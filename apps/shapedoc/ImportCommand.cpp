/// shapedoc import: drawings and pictures become a document.
#include "Batch.h"
#include "Commands.h"
#include "Messages.h"
#include "OpenDocument.h"
#include "PictureInfo.h"
#include "PlaceOptions.h"
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
    InputsAndOutput files;
    TextOptions text;
    StreamFormat format;
    std::string drawingFormat; ///< of files whose ending does not show it
    bool large = false;
    DrawingOptions drawing;
    PlaceOptions place;
    bool strict = false;
    bool json = false;
};

constexpr char kPicture[] = "picture";
const std::vector<Format> kDrawingFormats{{"svg", {"svg", "svgz"}},
                                          {kPicture, {"png", "jpg", "jpeg", "bmp", "tif", "tiff", "webp"}}};

/// An input: a drawing or a picture.
struct Source
{
    QString path; ///< of a file that can be opened, also for the standard input
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

/// What was read from the files, and the reports about their drawings: text on standard error, JSON on standard output.
struct Import
{
    std::vector<ReadShapes> drawings;
    bool asPainted = true;
    QJsonArray told;
};

void ReadDrawing(const Source& source, const DrawingOptions& options, Import& import)
{
    const QString& file = source.name;
    DrawingImport drawing = ImportDrawing(BytesOf(source), source.path == file ? file : QString(), options);
    if (!drawing.error.isEmpty())
        throw Failure{file, drawing.error};
    if (drawing.shapes.empty())
        throw Failure{file, drawing.report.Explained("paints no path")};
    import.told.append(JsonOf(file, drawing, drawing.shapes.size()));
    import.drawings.push_back({file, std::move(drawing.shapes)});
    if (drawing.report.IsEmpty())
        return;
    import.asPainted = false;
    PrintError(drawing.report.Explained(file));
}

/// Puts it at the place if one is given, otherwise below what the document already holds.
void AddText(const TextOptions& options, std::optional<QPointF> place, CShapeList& document)
{
    if (options.underline)
        Warn("documents do not keep the underline");
    auto text = NewText(options);
    const QPointF corner = place.value_or(document.GetRect(false).bottomLeft());
    text->Offset(corner.x(), corner.y());
    document.AddTail(text.release());
    TextFindings findings;
    findings.Add(document);
    for (const QString& warning : findings.Lines())
        Warn(warning);
}

void ReadPicture(const Source& source, bool large, Import& import)
{
    auto picture = std::make_unique<CShapeImage>();
    WarnOfComplaints(source.path, OpenPicture(*picture, source.path, LimitsOfPictures(large)));
    if (source.path != source.name)
        *picture->GetFilename() = '\0'; // The temporary file will be gone.
    import.drawings.emplace_back().file = source.name;
    import.drawings.back().shapes.push_back(std::move(picture));
}

bool IsPicture(const QString& file, const std::string& format)
{
    const QString ending = Ending(file);
    for (const Format& known : kDrawingFormats)
        if (known.endings.contains(ending))
            return known.name == kPicture;
    return format == kPicture;
}

void ReadSource(const Source& source, bool picture, const ImportOptions& options, Import& import)
{
    if (picture)
        ReadPicture(source, options.large, import);
    else
        ReadDrawing(source, options.drawing, import);
}

void ReadFile(const QString& file, const ImportOptions& options, Import& import)
{
    const bool picture = IsPicture(file, options.drawingFormat);
    if (file != kStandardStream) {
        ExpectRegular(file);
        ReadSource({file, file}, picture, options, import);
        return;
    }
    const std::unique_ptr<QFile> copy = OpenInput(file);
    const Source source{QString("/dev/fd/%1").arg(copy->handle()), InputName(file)};
    try {
        ReadSource(source, picture, options, import);
    } catch (const Failure& failure) {
        throw Failure{source.name, failure.reason};
    }
}

/// A document of all the files.
Import ImportFiles(const QStringList& files, const Target& output, const ImportOptions& options)
{
    const Places places = PlacesOf(options.place, static_cast<size_t>(files.size()));
    Import import;
    Progress progress("importing drawings");
    for (const QString& file : files) {
        progress.At(import.drawings.size() + 1, static_cast<size_t>(files.size()));
        ReadFile(file, options, import);
    }
    MoveToPlaces(import.drawings, places);
    const Document document = NewDocument();
    for (ReadShapes& drawing : import.drawings)
        for (std::unique_ptr<CShape>& shape : drawing.shapes)
            document->AddTail(shape.release());
    if (!options.text.text.empty())
        AddText(options.text, files.isEmpty() && !places.at.empty() ? std::optional(places.at.front()) : std::nullopt,
                *document);
    SaveDocument(output, *document, options.format);
    return import;
}

int ExitCodeOf(const Import& import, const ImportOptions& options)
{
    return options.strict && !import.asPainted ? kNotAsPainted : 0;
}

/// One file in a batch: a line of JSON.
Made ImportFile(const QString& file, const Target& output, const ImportOptions& options)
{
    const Import import = ImportFiles({file}, output, options);
    if (options.json)
        for (const QJsonValue& told : import.told)
            std::fprintf(stdout, "%s\n", QJsonDocument(told.toObject()).toJson(QJsonDocument::Compact).constData());
    return {ExitCodeOf(import, options), QString("%1 shapes").arg(import.drawings.front().shapes.size())};
}

int RunImport(const ImportOptions& options)
{
    const InputsAndOutput& files = options.files;
    if (files.inputs.isEmpty() && (options.text.text.empty() || files.IsBatch()))
        throw UsageError{"FILE or --text is required"};
    if (files.IsBatch())
        return MakeFiles(
            files, "shapes",
            [&](const QString& file, const Target& output) { return ImportFile(file, output, options); },
            options.json ? stderr : stdout);
    if (files.output.file.isEmpty())
        throw UsageError{"--output or --out-dir is required"};
    const Import import = ImportFiles(files.inputs, files.output, options);
    if (!options.json && files.inputs.size() > 1 && !options.place.IsGiven())
        PrintLine(ReportStream(files.output.file), QString("%1 drawings side by side; --at 0,0 leaves them where their "
                                                           "pages have them")
                                                       .arg(files.inputs.size()));
    if (options.json)
        std::fputs(QJsonDocument(import.told).toJson().constData(), ReportStream(files.output.file));
    return ExitCodeOf(import, options);
}

} // namespace

void AddImport(CommandLine& program)
{
    CommandArguments& command = program.AddCommand("import", "Make a document of SVG drawings, pictures and a text",
                                                   "Drawings come in at 96 units to the inch, their curves exact.");
    const auto options = std::make_shared<ImportOptions>();
    command.AddFiles(
        "FILE", options->files.inputs,
        "the drawings (SVG) and pictures (PNG, JPEG, BMP, TIFF, WebP); - for the standard input; of several "
        "one document, or with --out-dir one of each");
    const CommandOption folder = AddOutputOrFolder(command, options->files);
    AddPlaceOptions(command, options->place, folder);
    command.AddFlag("--flatten", options->drawing.flatten,
                    "drawings as polylines of fine straight pieces, not as curves");
    command.AddFlag("--solid", options->drawing.solid, "dashed lines without their gaps");
    command.AddFlag("--visible", options->drawing.visible, "without what later opaque fills hide");
    command.AddFlag("--crop", options->drawing.crop, "outlines are cut at the drawing's page");
    command.AddFlag("--fills", options->drawing.fills,
                    "filled areas other than white get the fill marker, by which lines --engrave knows them");
    command.AddFlag("--text-as-text", options->drawing.textAsText, "texts stay texts where these draw the same");
    command.AddFlag("--strict", options->strict,
                    "exit code 4 when anything of a drawing is not as painted; the document is written");
    command.AddFlag("--json", options->json,
                    "print what is not as painted as JSON, drawing by drawing; with --out-dir an object a line");
    command.AddFlag("--large", options->large,
                    "pictures of more than 256 MiB of pixels (up to 768), or of more than 30 seconds of decoding, too");
    AddFormat(command, options->drawingFormat, kDrawingFormats);
    AddTextOptions(command, options->text);
    command.AddFlag("--bare", options->format.bare, "write the bare list stream, without file header");
    command.AddExample("import badge.svg photo.jpg -o sheet.shapes --grid 2 --gap 10", "two things side by side");
    command.AddExample("import cut.svg engrave.svg -o badge.shapes --at 0,0", "two layers of one page");
    command.AddExample("import *.svg --out-dir documents --jobs 4", "a document of each drawing");
    command.Runs([options] { return RunImport(*options); });
}
