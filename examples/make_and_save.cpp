// A host that draws: a frame, a ring, a star and a name become a document, whose state on disk is checked.
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "text/ShapeText.h"
#include "vector/ShapeVector.h"

#include <QGuiApplication>
#include <QTextStream>

#include <algorithm>
#include <string_view>

using namespace shapedocument;

namespace {

CShapeVector* NewOutline(EVECTOR_TYPE type, unsigned int color)
{
    auto* shape = new CShapeVector; // the list that it is added to owns it
    shape->SetVectorType(type);     // how the points are laid out: the next rebuild reads them by it
    shape->SetColor(color);
    return shape;
}

CShape* NewText(std::string_view text, QPointF centre)
{
    auto* shape = new CShapeText;
    SText& parameters = *shape->GetTextP();
    const size_t length = std::min<size_t>(text.size(), TEXT_BUFFER_SIZE - 1);
    std::copy_n(text.data(), length, parameters.pText);
    parameters.pText[length] = '\0';
    parameters.font.dSize = 20;                    // pixels of the layout
    parameters.dScaleX = parameters.dScaleY = 0.4; // millimetres per pixel: 8 mm letters
    parameters.ptCenter = centre;
    shape->UpdatePainterPath(); // lays the text out; needs a QGuiApplication
    return shape;
}

Document Draw()
{
    Document document = NewDocument(); // frees what it holds
    CShapeVector* frame = NewOutline(EVECTOR_RECT, 0x000000);
    frame->SetShapeRect({0, 0, 80, 50}); // millimetres, y down
    document->AddTail(frame);

    CShapeVector* ring = NewOutline(EVECTOR_ELLIPSE, 0xFF0000);
    ring->SetShapeEllipse({5, 5, 40, 40});
    document->AddTail(ring);

    CShapeVector* hexagon = NewOutline(EVECTOR_POLYLINE, 0x0000FF);
    double angle = 0;
    CShape::Release(hexagon->SetShapeIsogon(6, 10, {25, 25}, {35, 25}, false, ETOOL_ISOGON, angle));
    document->AddTail(hexagon);

    document->AddTail(NewText("Tag 1", {62, 25}));
    return document;
}

} // namespace

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    if (argc != 2) {
        QTextStream(stderr) << "usage: make_and_save TARGET\n";
        return 2;
    }
    const Document document = Draw();
    try {
        // Whole on the disk, or a Failure. CShapeList::Save alone answers 0 also on a full disk: ask the file then.
        WriteDocument({QString::fromLocal8Bit(argv[1])}, *document, {});
    } catch (const Failure& failure) {
        QTextStream(stderr) << failure.file << ": " << failure.reason << '\n';
        return 1;
    }
    QTextStream(stdout) << document->GetCount() << " shapes\n";
}
