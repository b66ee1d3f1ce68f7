/// shapedoc import: drawings and pictures become a document.
#include "Arguments.h"
#include "Commands.h"
#include "Failure.h"
#include "Progress.h"
#include "TextOptions.h"

#include "svg/DrawingImport.h"

#include "image/ShapeImage.h"
#include "text/ShapeText.h"

#include <CLI/CLI.hpp>
#include <QFile>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <cstdio>
#include <memory>

namespace {

constexpr int kNotAsPainted = 4; ///< exit code

struct ImportOptions
{
    std::vector<std::string> drawings;
    TextOptions text;
    std::string output;
    StreamFormat format;
    DrawingOptions drawing;
    bool strict = false;
    bool json = false;
};

QByteArray BytesOf(const QString& name)
{
    const QFileInfo info(name);
    if (info.exists() && !info.isFile()) // Opening a pipe would wait for its writer.
        throw Failure{name, "is no regular file"};
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure{name, "cannot be opened: " + file.errorString()};
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

void AddDrawing(const QString& file, CShapeList& document, const DrawingOptions& options, Told& told)
{
    DrawingImport drawing = ImportDrawing(BytesOf(file), file, options);
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
    std::fprintf(stderr, "shapedoc: %s: %s\n", qPrintable(file), qPrintable(drawing.report.Lines().join(", ")));
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
    WarnOfReplacedFonts(document);
}

void AddPicture(const QString& file, CShapeList& document)
{
    auto picture = std::make_unique<CShapeImage>();
    if (picture->OpenImage(file.toUtf8().data()) != 0)
        throw Failure{file, "is no picture that can be read"};
    document.AddTail(picture.release());
}

bool IsPicture(const QString& file)
{
    return QStringList{"png", "jpg", "jpeg", "bmp", "tif", "tiff", "webp"}.contains(Ending(file));
}

int Import(const ImportOptions& options)
{
    const Document document = NewDocument();
    Told told;
    Progress progress("importing drawings");
    for (size_t i = 0; i < options.drawings.size(); ++i) {
        const QString file = FileName(options.drawings[i]);
        if (IsPicture(file))
            AddPicture(file, *document);
        else
            AddDrawing(file, *document, options.drawing, told);
        progress.At(i + 1, options.drawings.size());
    }
    if (!options.text.text.empty())
        AddText(options.text, *document);
    WriteDocument(FileName(options.output), *document, options.format);
    if (options.json)
        std::printf("%s", QJsonDocument(told.drawings).toJson().constData());
    return options.strict && !told.asPainted ? kNotAsPainted : 0;
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
    command->add_flag("--flatten", options->drawing.flatten,
                      "drawings as polylines of fine straight pieces, not as curves");
    command->add_flag("--solid", options->drawing.solid, "dashed lines without their gaps");
    command->add_flag("--visible", options->drawing.visible, "without what later opaque fills hide");
    command->add_flag("--crop", options->drawing.crop, "outlines are cut at the drawing's page");
    command->add_flag("--strict", options->strict,
                      "exit code 4 when anything of a drawing is not as painted; the document is written");
    command->add_flag("--json", options->json, "print what is not as painted as JSON, drawing by drawing");
    AddTextOptions(*command, options->text);
    AddOutput(*command, options->output);
    command->add_flag("--bare", options->format.bare, "write the bare list stream, without file header");
    command->callback([&chosen, options] {
        if (options->drawings.empty() && options->text.text.empty())
            throw CLI::RequiredError("FILE or --text");
        chosen = [options] { return Import(*options); };
    });
}
