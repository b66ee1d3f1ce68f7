// A host in sixty lines: opens a document, draws it to a PNG, moves its first shape and saves the document safely.
// Needs only the two installed libraries.
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "image/ImageStores.h"
#include "render/Drawing.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QTextStream>

using namespace shapedocument;

static void DrawPng(CShapeList& document, const QString& name, const QString& picture)
{
    constexpr int kWidth = 800; // pixels
    const Sheet sheet(document.GetRect(false), name);
    QImage image(QSizeF(kWidth, kWidth * sheet.Size().height() / sheet.Size().width()).toSize(), QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    sheet.SetUp(painter, kWidth);
    sheet.DrawFrame(painter);
    DrawShapes(painter, document, sheet.Unit());
    painter.end();
    if (!image.save(picture))
        throw Failure{picture, "cannot be written"};
}

static void Run(const QString& source, const QString& picture, const QString& target)
{
    const OpenedDocument opened = ReadDocument(source, {});
    for (const QString& warning : opened.warnings)
        QTextStream(stderr) << source << ": " << warning << '\n';
    DrawPng(*opened.shapes, source, picture);

    if (opened.shapes->GetCount() == 0)
        throw Failure{source, "holds no shape to move"};
    if (!opened.shapes->GetShape(0)->Offset(10, 5)) // millimetres, y down
        throw Failure{source, "its first shape cannot be moved"};
    WriteDocument({target}, *opened.shapes, {}); // replaces target as a whole, or leaves it unchanged
}

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv); // texts need fonts
    const QStringList names = QGuiApplication::arguments();
    if (names.size() != 4) {
        QTextStream(stderr) << "usage: open_draw_save DOCUMENT PICTURE.png TARGET\n";
        return 2;
    }
    const ImageStores stores; // pictures keep their pixels here; without it they are lost

    try {
        Run(names[1], names[2], names[3]);
    } catch (const Failure& failure) {
        QTextStream(stderr) << failure.file << ": " << failure.reason << '\n';
        return 1;
    }
}
