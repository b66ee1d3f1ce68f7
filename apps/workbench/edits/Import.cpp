#include "edits/Import.h"

#include "document/Questions.h"
#include "document/WorkDocument.h"

#include "document/Failure.h"
#include "document/InputFile.h"
#include "image/ShapeImage.h"
#include "picture/PictureInput.h"
#include "svg/DrawingImport.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>

using shapedocument::Failure;

namespace {

const QStringList kDrawings{"svg", "svgz"};
const QStringList kPictures{"png", "jpg", "jpeg", "bmp", "tif", "tiff", "webp"};
constexpr char kDocument[] = "shapes";

QString Tr(const char* text)
{
    return QCoreApplication::translate("Import", text);
}

QString EndingOf(const QString& file)
{
    return QFileInfo(file).suffix().toLower();
}

/// Shapes that a file holds, and what is to be said of it.
struct FileShapes
{
    std::vector<std::unique_ptr<CShape>> shapes;
    QStringList notes;
};

FileShapes ReadDrawing(const QString& name)
{
    shapedocument::ExpectRegular(name);
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure{name, Tr("cannot be opened: %1").arg(file.errorString())};
    shapedocument::DrawingOptions options;
    options.textAsText = true;
    options.fills = true;
    shapedocument::DrawingImport drawing = shapedocument::ImportDrawing(file.readAll(), name, options);
    if (!drawing.error.isEmpty())
        throw Failure{name, drawing.error};
    if (drawing.shapes.empty())
        throw Failure{name, Tr("paints no path")};
    return {std::move(drawing.shapes), drawing.report.Lines()};
}

FileShapes ReadPicture(const QString& name)
{
    shapedocument::ExpectRegular(name);
    auto picture = std::make_unique<CShapeImage>();
    FileShapes read;
    if (shapedocument::OpenPicture(*picture, name, {}) > 0)
        read.notes.append(Tr("the picture may be damaged"));
    read.shapes.push_back(std::move(picture));
    return read;
}

FileShapes ReadShapes(const QString& file)
{
    const QString ending = EndingOf(file);
    if (kDrawings.contains(ending))
        return ReadDrawing(file);
    if (kPictures.contains(ending))
        return ReadPicture(file);
    const QFileInfo info(file);
    const QString kind = info.isDir() ? Tr("a folder") : QMimeDatabase().mimeTypeForFile(info).comment();
    throw Failure{file, Tr("is no drawing or picture that can be imported (%1)").arg(kind)};
}

bool InsertFile(WorkDocument& document, const QString& file, std::optional<QPointF> place)
{
    FileShapes read = ReadShapes(file);
    std::vector<CShape*> shapes;
    for (std::unique_ptr<CShape>& shape : read.shapes)
        shapes.push_back(shape.release());
    if (place)
        for (CShape* shape : shapes)
            shape->Offset(place->x(), place->y());
    const QString name = QFileInfo(file).fileName();
    if (!read.notes.isEmpty())
        document.Ask().Tell(QString("%1: %2").arg(name, read.notes.join(", ")));
    return document.Insert(Tr("Import %1").arg(name), std::move(shapes));
}

} // namespace

QString ImportFilter()
{
    return Tr("Drawings and pictures") + " (*." + (kDrawings + kPictures).join(" *.") + ")";
}

bool IsDocumentFile(const QString& file)
{
    return EndingOf(file) == kDocument;
}

int ImportFiles(WorkDocument& document, const QStringList& files, std::optional<QPointF> place)
{
    int imported = 0;
    QStringList refused;
    for (const QString& file : files) {
        try {
            imported += InsertFile(document, file, place);
        } catch (const Failure& failure) {
            refused.append(QString("%1: %2").arg(failure.file, failure.reason));
        }
    }
    if (!refused.isEmpty())
        document.Ask().Complain(refused.join('\n'));
    return imported;
}
