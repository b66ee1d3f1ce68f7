/// shapedoc import: drawings and pictures become a document.
#include "Arguments.h"
#include "Commands.h"
#include "Messages.h"
#include "PictureLimits.h"
#include "Progress.h"
#include "SvgReader.h"
#include "TextOptions.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "document/TextFindings.h"

#include "image/ShapeImage.h"
#include "text/ShapeText.h"
#include "vector/ShapeVector.h"

#include <CLI/CLI.hpp>
#include <QFile>

#include <memory>

using namespace shapedocument;

namespace {

struct ImportOptions
{
    std::vector<std::string> drawings;
    TextOptions text;
    Target output;
    StreamFormat format;
    std::string drawingFormat; ///< of files whose ending does not tell
    bool flatten = false;
    bool large = false;
};

constexpr char kPicture[] = "picture";
const std::vector<Format> kFormats{{"svg", {"svg"}}, {kPicture, {"png", "jpg", "jpeg", "bmp", "tif", "tiff", "webp"}}};

CShape* NewOutline(DrawnPath& drawn, bool flatten)
{
    auto shape = std::make_unique<CShapeVector>();
    if (flatten)
        shape->SetPath(&drawn.path);
    else
        shape->ConvertPainterPathToLocalShapePoints(drawn.path);
    shape->SetColor(drawn.color);
    return shape.release();
}

/// A drawing or picture on its way in.
struct Source
{
    QString path; ///< that readers of files can open
    QString name; ///< for messages
};

void AddDrawing(const Source& source, CShapeList& document, bool flatten)
{
    SvgDrawing drawing = ReadSvg(source.path);
    if (drawing.paths.empty())
        throw Failure{source.name, "paints no path"};
    if (drawing.pictures > 0)
        Warn(QString("%1: %2 pictures left out").arg(source.name).arg(drawing.pictures));
    for (DrawnPath& drawn : drawing.paths)
        document.AddTail(NewOutline(drawn, flatten));
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

void AddSource(const Source& source, bool picture, const ImportOptions& options, CShapeList& document)
{
    if (picture)
        AddPicture(source, document, options.large);
    else
        AddDrawing(source, document, options.flatten);
}

void AddFile(const QString& file, const ImportOptions& options, CShapeList& document)
{
    const bool picture = IsPicture(file, options.drawingFormat);
    if (file != kStandardStream) {
        ExpectRegular(file);
        AddSource({file, file}, picture, options, document);
        return;
    }
    const std::unique_ptr<QFile> copy = OpenInput(file);
    const Source source{QString("/dev/fd/%1").arg(copy->handle()), InputName(file)};
    try {
        AddSource(source, picture, options, document);
    } catch (const Failure& failure) {
        throw Failure{source.name, failure.reason};
    }
}

int Import(const ImportOptions& options)
{
    const Document document = NewDocument();
    Progress progress("importing drawings");
    for (size_t i = 0; i < options.drawings.size(); ++i) {
        AddFile(FileName(options.drawings[i]), options, *document);
        progress.At(i + 1, options.drawings.size());
    }
    if (!options.text.text.empty())
        AddText(options.text, *document);
    WriteDocument(options.output, *document, options.format);
    return 0;
}

} // namespace

void AddImport(CLI::App& app, Command& chosen)
{
    CLI::App* command = app.add_subcommand(
        "import", "Make a document of SVG drawings (millimetres, 96 units to the inch), pictures and a text");
    const auto options = std::make_shared<ImportOptions>();
    command->add_option(
        "FILE", options->drawings,
        "the drawings (SVG) and pictures (PNG, JPEG, BMP, TIFF, WebP), one behind the other in the document");
    command->add_flag("--flatten", options->flatten, "drawings as polylines of fine straight pieces, not as curves");
    command->add_flag(
        "--large", options->large,
        "pictures of more than 256 MiB of pixels (up to 768), or of more than 30 seconds of decoding, too");
    AddFormat(*command, options->drawingFormat, kFormats);
    AddTextOptions(*command, options->text);
    AddOutput(*command, options->output);
    command->add_flag("--bare", options->format.bare, "write the bare list stream, without file header");
    command->callback([&chosen, options] {
        if (options->drawings.empty() && options->text.text.empty())
            throw CLI::RequiredError("FILE or --text");
        chosen = [options] { return Import(*options); };
    });
}
