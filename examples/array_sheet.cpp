// A sheet of tags: the shapes of a document repeated over a grid, rows staggered, one place left free.
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "group/ShapeArray.h"
#include "image/ImageStores.h"

#include <QGuiApplication>
#include <QTextStream>

using namespace shapedocument;

namespace {

/// The array owns the shapes of tag from then on.
CShape* NewSheet(CShapeList& tag)
{
    auto* sheet = new CShapeArray;
    sheet->SetShapeList(&tag);
    tag.RemoveAll(); // without freeing: they are the array's now
    // 4 rows of 3 cells, 5 mm between columns and rows, odd rows half a tag further right.
    const double shift = sheet->GetRect(true).width() / 2;
    sheet->SetArrayInfo(4, 3, 5, 5, shift, 0);
    sheet->SetInvalid(11); // the last place of the plate is damaged
    return sheet;
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList names = QGuiApplication::arguments();
    if (names.size() != 3) {
        QTextStream(stderr) << "usage: array_sheet TAG SHEET\n";
        return 2;
    }
    const ImageStores stores;
    try {
        const OpenedDocument tag = ReadDocument(names[1], {});
        const Document sheet = NewDocument();
        sheet->AddTail(NewSheet(*tag.shapes));
        WriteDocument({names[2]}, *sheet, {});
        auto* array = static_cast<CShapeArray*>(sheet->GetShape(0));
        QTextStream(stdout) << array->GetCount() << " tags on " << array->GetAllRect().width() << " x "
                            << array->GetAllRect().height() << " mm\n";
    } catch (const Failure& failure) {
        QTextStream(stderr) << failure.file << ": " << failure.reason << '\n';
        return 1;
    }
}
