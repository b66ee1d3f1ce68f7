// A picture at the size that its file states, turned, with a second one 50 mm wide beside it.
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "image/ImageStores.h"

#include <QGuiApplication>
#include <QTextStream>

using namespace shapedocument;

namespace {

CShapeImage* NewPicture(const QString& file)
{
    auto* picture = new CShapeImage;
    if (picture->OpenImage(file.toUtf8().data()) !=
        0) { // millimetres by the file's resolution, 96 dpi where it has none
        CShape::Release(picture);
        throw Failure{file, "is no picture that can be read"};
    }
    return picture;
}

void FillDocument(CShapeList& document, const QString& file)
{
    CShapeImage* trueSize = NewPicture(file);
    document.AddTail(trueSize);
    trueSize->Rotate(15, trueSize->GetRectCenter(), Qt::ZAxis);

    CShapeImage* fitted = NewPicture(file);
    document.AddTail(fitted);
    const QSizeF size = fitted->GetRect(true).size();
    fitted->Resize({trueSize->GetRect(true).right() + 10, 0, 50, 50 * size.height() / size.width()});
    document.GetRect(true); // edits are only recorded: this brings the outlines up to date
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    const QStringList names = QGuiApplication::arguments();
    if (names.size() != 3) {
        QTextStream(stderr) << "usage: picture_true_size PICTURE TARGET\n";
        return 2;
    }
    const ImageStores stores; // pixels are kept here; documents with pictures must be gone before it
    const Document document = NewDocument();
    try {
        FillDocument(*document, names[1]);
        WriteDocument({names[2]}, *document, {});
    } catch (const Failure& failure) {
        QTextStream(stderr) << failure.file << ": " << failure.reason << '\n';
        return 1;
    }
    QTextStream out(stdout);
    for (unsigned int i = 0; i < document->GetCount(); ++i) {
        auto* picture = static_cast<CShapeImage*>(document->GetShape(i));
        const QSize pixels = picture->GetOriginalPixelSize();
        const QSizeF size = picture->GetRect(false).size();
        out << pixels.width() << " x " << pixels.height() << " pixels on " << size.width() << " x " << size.height()
            << " mm\n";
    }
}
