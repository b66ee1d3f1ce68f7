#include "edits/Import.h"

#include "document/CheckedFormat.h"
#include "document/ListEntries.h"
#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "edits/Texts.h"
#include "edits/Translated.h"

#include "document/Failure.h"
#include "document/InputFile.h"
#include "image/ShapeImage.h"
#include "picture/PictureInput.h"
#include "svg/DrawingImport.h"
#include "text/TextParameters.h"

#include <QFile>
#include <QFileInfo>
#include <QMimeDatabase>

#include <algorithm>

using shapedocument::Failure;

namespace {

const QStringList kDrawings{"svg", "svgz"};
const QStringList kPictures{"png", "jpg", "jpeg", "bmp", "tif", "tiff", "webp"};
constexpr char kDocument[] = "shapes";
constexpr char kText[] = "txt";

QString EndingOf(const QString& file)
{
    return QFileInfo(file).suffix().toLower();
}

/// The shapes of a file, and notes for the user.
struct FileShapes
{
    std::vector<ShapeOwner> shapes;
    QStringList notes;
};

QByteArray BytesOf(const QString& name)
{
    shapedocument::ExpectRegular(name);
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure{name, Edits::tr("cannot be opened: %1").arg(file.errorString())};
    return file.readAll();
}

FileShapes ReadDrawing(const QString& name)
{
    shapedocument::DrawingOptions options;
    options.textAsText = true;
    options.fills = true;
    shapedocument::DrawingImport drawing = shapedocument::ImportDrawing(BytesOf(name), name, options);
    if (!drawing.error.isEmpty())
        throw Failure{name, drawing.error};
    if (drawing.shapes.empty())
        throw Failure{name, drawing.report.Explained(Edits::tr("paints no path"))};
    FileShapes read;
    for (std::unique_ptr<CShape>& shape : drawing.shapes)
        read.shapes.emplace_back(shape.release());
    read.notes = drawing.report.Lines();
    return read;
}

FileShapes ReadText(const QString& name)
{
    const QByteArray bytes = BytesOf(name);
    const QString text = QString::fromUtf8(bytes).remove(QChar::CarriageReturn).trimmed();
    if (text.isEmpty() || bytes.contains('\0'))
        throw Failure{name, Edits::tr("holds no text")};
    FileShapes read;
    read.shapes.push_back(NewText(text, {}));
    if (text.toUtf8().size() >= static_cast<qsizetype>(TEXT_BUFFER_SIZE))
        read.notes.append(Edits::tr("the text is longer than a text shape holds; its end was cut off"));
    return read;
}

FileShapes ReadOtherDocument(const QString& name)
{
    shapedocument::OpenedDocument opened = shapedocument::ReadDocument(name, CheckedFormat(name));
    opened.shapes->Select(false);
    FileShapes read;
    for (CShape* shape : TakenFrom(*opened.shapes))
        read.shapes.emplace_back(shape);
    if (read.shapes.empty())
        throw Failure{name, Edits::tr("holds no shapes")};
    read.notes = opened.warnings;
    return read;
}

FileShapes ReadPicture(const QString& name)
{
    shapedocument::ExpectRegular(name);
    auto picture = std::make_unique<CShapeImage>();
    FileShapes read;
    if (shapedocument::OpenPicture(*picture, name, {}) > 0)
        read.notes.append(Edits::tr("the picture may be damaged"));
    read.shapes.emplace_back(picture.release());
    return read;
}

FileShapes ReadOf(const QString& file)
{
    const QString ending = EndingOf(file);
    if (kDrawings.contains(ending))
        return ReadDrawing(file);
    if (kPictures.contains(ending))
        return ReadPicture(file);
    if (ending == kText)
        return ReadText(file);
    if (ending == kDocument)
        return ReadOtherDocument(file);
    const QFileInfo info(file);
    const QString kind = info.isDir() ? Edits::tr("a folder") : QMimeDatabase().mimeTypeForFile(info).comment();
    throw Failure{file, Edits::tr("is no drawing, picture or text that can be imported (%1)").arg(kind)};
}

/// Reads the shapes and builds their outlines, so that the window need not wait for these.
FileShapes ReadShapes(const QString& file)
{
    FileShapes read = ReadOf(file);
    for (const ShapeOwner& shape : read.shapes)
        shape->GetPath(false);
    return read;
}

/// Imports a file. Returns whether shapes were inserted; nothing when the user has cancelled.
std::optional<bool> InsertFile(WorkDocument& document, const QString& file, std::optional<QPointF> place)
{
    const auto found = std::make_shared<FileShapes>();
    const QString name = QFileInfo(file).fileName();
    if (!document.Aside().Run(Edits::tr("Importing %1").arg(name), [found, file] { *found = ReadShapes(file); }))
        return std::nullopt;
    FileShapes& read = *found;
    if (place)
        for (const ShapeOwner& shape : read.shapes)
            shape->Offset(place->x(), place->y());
    if (!read.notes.isEmpty())
        document.Ask().Tell(QString("%1: %2").arg(name, read.notes.join(", ")));
    std::vector<CShape*> shapes(read.shapes.size());
    std::transform(read.shapes.begin(), read.shapes.end(), shapes.begin(),
                   [](ShapeOwner& shape) { return shape.release(); });
    return document.Insert(Edits::tr("Import %1").arg(name), std::move(shapes));
}

} // namespace

QString ImportFilter()
{
    const QStringList endings = kDrawings + kPictures + QStringList{kText, kDocument};
    return Edits::tr("Drawings, pictures, texts, documents") + " (*." + endings.join(" *.") + ")";
}

bool IsDocumentFile(const QString& file)
{
    return EndingOf(file) == kDocument;
}

bool IsForeignFile(const QString& file)
{
    return (kDrawings + kPictures).contains(EndingOf(file)) || EndingOf(file) == kText;
}

int ImportFiles(WorkDocument& document, const QStringList& files, std::optional<QPointF> place)
{
    int imported = 0;
    QStringList refused;
    for (const QString& file : files) {
        try {
            const std::optional<bool> inserted = InsertFile(document, file, place);
            if (!inserted)
                break;
            imported += *inserted;
        } catch (const Failure& failure) {
            refused.append(QString("%1: %2").arg(failure.file, failure.reason));
        }
    }
    if (!refused.isEmpty())
        document.Ask().Complain(refused.join('\n'));
    return imported;
}
