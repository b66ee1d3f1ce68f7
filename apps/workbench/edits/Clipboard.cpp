#include "edits/Clipboard.h"

#include "document/ListEntries.h"
#include "document/Questions.h"
#include "document/WorkDocument.h"
#include "edits/Attempt.h"
#include "edits/Translated.h"

#include "document/CheckedFile.h"
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "document/FileHeader.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>

using shapedocument::Failure;

namespace {

constexpr char kKind[] = "application/x-shapemodel-document";
constexpr double kAside = 5; // mm

ShapeListOwner Copies(WorkDocument& document)
{
    ShapeListOwner copies = NewShapeList();
    for (CShape* shape : document.InOrder(document.Selection()))
        copies->AddTail(shape->Clone());
    return copies;
}

bool InsertAside(WorkDocument& document, const QString& name, CShapeList& shapes)
{
    if (shapes.IsEmpty())
        return false;
    shapes.Select(false);
    shapes.Offset(kAside, kAside, true);
    return document.Insert(name, TakenFrom(shapes));
}

} // namespace

bool CopySelection(WorkDocument& document)
{
    return !document.Selection().empty() && Attempt(document, [&] {
        const ShapeListOwner copies = Copies(document);
        shapedocument::UnnamedFile file(Edits::tr("Clipboard"));
        shapedocument::WriteHeader(file);
        copies->Save(&file);
        if (!file.WroteAll())
            throw Failure{Edits::tr("Clipboard"), file.Reason()};
        file.seek(0);
        auto* data = new QMimeData; // the clipboard owns it
        data->setData(kKind, file.readAll());
        QGuiApplication::clipboard()->setMimeData(data);
        return true;
    });
}

bool CutSelection(WorkDocument& document)
{
    return CopySelection(document) && document.Remove(Edits::tr("Cut"), document.Selection());
}

bool Paste(WorkDocument& document)
{
    const QMimeData* data = QGuiApplication::clipboard()->mimeData();
    if (!data || !data->hasFormat(kKind)) {
        document.Ask().Tell(Edits::tr("Nothing is pasted: the clipboard holds no shapes."));
        return false;
    }
    return Attempt(document, [&] {
        shapedocument::UnnamedFile file(Edits::tr("Clipboard"));
        file.write(data->data(kKind));
        file.seek(0);
        const shapedocument::OpenedDocument opened = shapedocument::ReadDocument(file, Edits::tr("Clipboard"), {});
        return InsertAside(document, Edits::tr("Paste"), *opened.shapes);
    });
}

bool DuplicateSelection(WorkDocument& document)
{
    return InsertAside(document, Edits::tr("Duplicate"), *Copies(document));
}
