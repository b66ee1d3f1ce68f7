/// shapedoc import: drawings and pictures become a document.
#include "Arguments.h"
#include "Commands.h"
#include "Failure.h"
#include "PictureLimits.h"
#include "Progress.h"
#include "SvgReader.h"
#include "TextOptions.h"
#include "TextWarnings.h"

#include "image/ShapeImage.h"
#include "text/ShapeText.h"
#include "vector/ShapeVector.h"

#include <CLI/CLI.hpp>

#include <cstdio>
#include <memory>

namespace {

struct ImportOptions
{
    std::vector<std::string> drawings;
    TextOptions text;
    std::string output;
    StreamFormat format;
    bool flatten = false;
    bool large = false;
};

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

void AddDrawing(const QString& file, CShapeList& document, bool flatten)
{
    SvgDrawing drawing = ReadSvg(file);
    if (drawing.paths.empty())
        throw Failure{file, "paints no path"};
    if (drawing.pictures > 0)
        std::fprintf(stderr, "shapedoc: warning: %s: %d pictures left out\n", qPrintable(file), drawing.pictures);
    for (DrawnPath& drawn : drawing.paths)
        document.AddTail(NewOutline(drawn, flatten));
}

/// Below what the document holds already.
void AddText(const TextOptions& options, CShapeList& document)
{
    if (options.underline)
        std::fprintf(stderr, "shapedoc: warning: documents do not keep the underline\n");
    auto text = NewText(options);
    const QRectF drawn = document.GetRect(false);
    text->Offset(drawn.left(), drawn.bottom());
    document.AddTail(text.release());
    TextWarnings warnings;
    warnings.Add(document);
    warnings.Tell();
}

void AddPicture(const QString& file, CShapeList& document, bool large)
{
    auto picture = std::make_unique<CShapeImage>();
    OpenPicture(*picture, file, large);
    document.AddTail(picture.release());
}

bool IsPicture(const QString& file)
{
    return QStringList{"png", "jpg", "jpeg", "bmp", "tif", "tiff", "webp"}.contains(Ending(file));
}

int Import(const ImportOptions& options)
{
    const Document document = NewDocument();
    Progress progress("importing drawings");
    for (size_t i = 0; i < options.drawings.size(); ++i) {
        const QString file = FileName(options.drawings[i]);
        if (IsPicture(file))
            AddPicture(file, *document, options.large);
        else
            AddDrawing(file, *document, options.flatten);
        progress.At(i + 1, options.drawings.size());
    }
    if (!options.text.text.empty())
        AddText(options.text, *document);
    WriteDocument(FileName(options.output), *document, options.format);
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
    AddTextOptions(*command, options->text);
    AddOutput(*command, options->output);
    command->add_flag("--bare", options->format.bare, "write the bare list stream, without file header");
    command->callback([&chosen, options] {
        if (options->drawings.empty() && options->text.text.empty())
            throw CLI::RequiredError("FILE or --text");
        chosen = [options] { return Import(*options); };
    });
}
