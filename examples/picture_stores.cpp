// What a host without stores loses, and how the stores keep it; and what edits make of a picture.
#include "Board.h"

#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "image/ImageStores.h"

#include <QGuiApplication>
#include <QTextStream>

using namespace shapedocument;

namespace {

CShapeImage& AddPicture(CShapeList& document, const QString& file)
{
    auto* picture = new CShapeImage;
    document.AddTail(picture);
    if (picture->OpenImage(file.toUtf8().data()) != 0)
        throw Failure{file, "is no picture that can be read"};
    return *picture;
}

/// Pixels of the display image, which is what a document keeps.
QString Pixels(CShapeImage& picture)
{
    const cv::Mat shown = picture.GetImage(false);
    return QString("%1 x %2").arg(shown.cols).arg(shown.rows);
}

/// Reads a document and writes it, as any host does.
QString ReadAndSave(const QString& source, const QString& target)
{
    const OpenedDocument opened = ReadDocument(source, {});
    WriteDocument({target}, *opened.shapes, {});
    return Pixels(static_cast<CShapeImage&>(*opened.shapes->GetShape(0)));
}

void Draw(Board& board, const QString& title, CShapeImage& picture)
{
    const cv::Mat shown = picture.GetImage(false); // white where the turned picture leaves its rectangle
    const QImage image(shown.data, shown.cols, shown.rows, qsizetype(shown.step[0]), QImage::Format_Grayscale8);
    board.Next(title);
    board.Painter().drawImage(picture.GetRect(true), image);
    QPainterPath frame;
    frame.addRect(picture.GetRect(false));
    board.Draw(frame, Qt::blue, 0.2);
    board.Draw(*picture.GetPath(false), Qt::red, 0.3); // the four corners
}

void Run(const QString& file, const char* target)
{
    QTextStream out(stdout);
    Board board({46, 44}, 3, 3);
    {
        const ImageStores stores; // before the first document with pictures, and gone after the last
        const Document document = NewDocument();
        CShapeImage& picture = AddPicture(*document, file);
        picture.Resize({6, 6, 30, 30}); // recorded; the pixels stay
        Draw(board, "Resize", picture);
        picture.Rotate(30, {21, 21}, Qt::ZAxis);
        Draw(board, "Rotate(30): corners and display image", picture);
        const QSize working = picture.GetOriginalPixelSize();
        out << "working image " << working.width() << " x " << working.height() << ", display image " << Pixels(picture)
            << '\n';
        WriteDocument({"kept.shapes"}, *document, {});
    }
    out << "without stores: " << ReadAndSave("kept.shapes", "lost.shapes") << " pixels\n";
    const ImageStores stores;
    out << "with stores: " << ReadAndSave("kept.shapes", "again.shapes") << " pixels\n";
    const OpenedDocument opened = ReadDocument("again.shapes", {});
    Draw(board, "read from a document: upright again", static_cast<CShapeImage&>(*opened.shapes->GetShape(0)));
    if (board.Save(target) != 0)
        throw Failure{target, "cannot be written"};
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    if (argc != 3)
        return 2;
    try {
        Run(QString::fromLocal8Bit(argv[1]), argv[2]);
    } catch (const Failure& failure) {
        QTextStream(stderr) << failure.file << ": " << failure.reason << '\n';
        return 1;
    }
}
