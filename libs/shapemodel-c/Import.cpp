/// Imports drawings as shapes of a document.
#include "Application.h"
#include "Arguments.h"
#include "Entry.h"
#include "Home.h"
#include "Progress.h"
#include "Structs.h"
#include "document/Failure.h"
#include "document/InputFile.h"
#include "svg/DrawingImport.h"

#include "list/ShapeListView.h"

#include <QFile>

using namespace capi;
using namespace shapedocument;

namespace {

/// The bytes of a drawing, and the names of its file.
struct Source
{
    QByteArray bytes;
    QString file; ///< empty for none
    QString name; ///< for messages
};

QByteArray BytesOfFile(const QString& name)
{
    const std::unique_ptr<QFile> file = OpenInput(name);
    QByteArray bytes = file->readAll();
    if (file->error() != QFileDevice::NoError)
        throw Failure{name, "cannot be read: " + file->errorString()};
    return bytes;
}

DrawingOptions OptionsOf(const sm_drawing_options& options)
{
    DrawingOptions taken;
    taken.flatten = options.flatten != 0;
    taken.solid = options.solid != 0;
    taken.visible = options.visible != 0;
    taken.crop = options.crop != 0;
    taken.fills = options.fills != 0;
    taken.textAsText = options.text_as_text != 0;
    return taken;
}

/// Adds all shapes or, when it throws, none. Returns their number.
size_t Add(DrawingImport& drawing, CShapeList& list)
{
    const ShapeListView added;
    for (const std::unique_ptr<CShape>& shape : drawing.shapes)
        added.List().AddTail(shape.get());
    list.AddTail(added.List());
    for (std::unique_ptr<CShape>& shape : drawing.shapes)
        static_cast<void>(shape.release());
    return drawing.shapes.size();
}

void Import(sm_document document, const Source& source, const sm_drawing_options& options, size_t* count)
{
    ObjectOf(document, Kind::Document); // refuses a bad handle before the drawing is painted
    ExpectApplication();
    Progress told(options);
    DrawingImport drawing = ImportDrawing(source.bytes, source.file, OptionsOf(options), told.OfWork());
    if (!drawing.error.isEmpty())
        throw Failure{source.name, drawing.error};
    if (drawing.shapes.empty())
        throw Failure{source.name, drawing.report.Explained("paints no path")};
    for (const QString& line : drawing.report.Lines()) // before Add: it may throw when the shapes have been added
        Warn(source.name + ": " + line);
    const DocumentUse use(document);
    const size_t added = Add(drawing, use.List());
    if (count)
        *count = added;
}

} // namespace

sm_status sm_drawing_options_defaults(sm_drawing_options* options, size_t size)
{
    return Enter([=] { Fill(options, size, sm_drawing_options{}); });
}

sm_status sm_document_import_drawing(sm_document document, const char* file, const sm_drawing_options* options,
                                     size_t* count)
{
    return Enter([=] {
        if (count)
            *count = 0;
        const sm_drawing_options taken = WithDefaults(options, sm_drawing_options{});
        const QString name = FileOf(file);
        ObjectOf(document, Kind::Document); // refuses a bad handle before the drawing is read
        Import(document, {BytesOfFile(name), name, name}, taken, count);
    });
}

sm_status sm_document_import_drawing_bytes(sm_document document, const void* data, size_t size, const char* base_file,
                                           const sm_drawing_options* options, size_t* count)
{
    return Enter([=] {
        if (count)
            *count = 0;
        const sm_drawing_options taken = WithDefaults(options, sm_drawing_options{});
        const QString base = base_file ? FileOf(base_file) : QString();
        const auto bytes = BytesOf(data, size);
        const QByteArray copy(reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size()));
        Import(document, {copy, base, base.isEmpty() ? "drawing" : base}, taken, count);
    });
}
