#include "edits/Texts.h"

#include "text/ShapeText.h"

#include <algorithm>
#include <cstring>

namespace {

/// New texts are laid out at this pixel size and scaled to millimetres: font sizes are whole pixels, and hints of small
/// ones would show in the outline.
constexpr double kLayoutSize = 100;

} // namespace

bool FillText(SText& parameters, const QString& text)
{
    const QByteArray bytes = text.toUtf8();
    qsizetype count = std::min<qsizetype>(bytes.size(), TEXT_BUFFER_SIZE - 1);
    while (count < bytes.size() && count > 0 && (bytes[count] & 0xC0) == 0x80)
        --count; // A letter's further bytes begin with the bits 10.
    std::memcpy(parameters.pText, bytes.constData(), static_cast<size_t>(count));
    parameters.pText[count] = 0;
    return count == bytes.size();
}

OwnedShape NewText(const QString& text, QPointF corner, unsigned int color)
{
    OwnedShape shape(CShape::NewShape(ESHAPE_TEXT));
    SText parameters;
    FillText(parameters, text);
    parameters.font.dSize = kLayoutSize;
    parameters.dScaleX = parameters.dScaleY = kNewTextSize / kLayoutSize;
    static_cast<CShapeText&>(*shape).SetText(parameters);
    shape->SetColor(color);
    const QPointF placed = shape->GetRect(false).topLeft();
    shape->Offset(corner.x() - placed.x(), corner.y() - placed.y());
    return shape;
}
