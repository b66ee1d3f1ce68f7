#include "svg/DrawingText.h"

#include "support/Outline.h"

#include "image/ShapeImage.h"

#include <cmath>

namespace test {

using namespace shapedocument;

namespace {

std::string Rounded(double value, double unit)
{
    return Number(std::round(value / unit) * unit);
}

std::string PathRounded(const QPainterPath& path)
{
    constexpr double kUnit = 0.001;
    QPainterPath rounded;
    for (int i = 0; i < path.elementCount(); ++i) {
        const auto at = [&](int k) {
            return QPointF(std::round(path.elementAt(k).x / kUnit) * kUnit,
                           std::round(path.elementAt(k).y / kUnit) * kUnit);
        };
        if (path.elementAt(i).isMoveTo()) {
            rounded.moveTo(at(i));
        } else if (path.elementAt(i).isLineTo()) {
            rounded.lineTo(at(i));
        } else {
            rounded.cubicTo(at(i), at(i + 1), at(i + 2));
            i += 2;
        }
    }
    return PathText(rounded);
}

std::string ShapeText(CShape& shape)
{
    const QPainterPath* path = shape.GetPath(false);
    std::string text = dynamic_cast<CShapeImage*>(&shape) ? "picture " : "";
    text += path ? PathRounded(*path) : "none";
    char color[16] = "";
    if (shape.GetColor() != 0)
        std::snprintf(color, sizeof color, " #%06x", shape.GetColor() & 0xffffff);
    return text + color;
}

template <class ToText>
std::string Joined(const DrawingImport& drawing, ToText toText)
{
    std::string text;
    for (const auto& shape : drawing.shapes)
        text += (text.empty() ? "" : "; ") + toText(*shape);
    return drawing.error.isEmpty() ? text : drawing.error.toStdString();
}

} // namespace

QByteArray Drawing(const std::string& content)
{
    return QByteArray::fromStdString(
        "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
        "width='100mm' height='100mm' viewBox='0 0 100 100'>" +
        content + "</svg>");
}

std::string ShapesText(const DrawingImport& drawing)
{
    return Joined(drawing, ShapeText);
}

std::string BoxesText(const DrawingImport& drawing)
{
    return Joined(drawing, [](CShape& shape) {
        constexpr double kUnit = 0.01;
        const QRectF box = shape.GetRect(false);
        return Rounded(box.left(), kUnit) + "," + Rounded(box.top(), kUnit) + "," + Rounded(box.width(), kUnit) + "," +
               Rounded(box.height(), kUnit);
    });
}

std::string ReportText(const DrawingImport& drawing)
{
    return drawing.report.Lines().join(", ").toStdString();
}

} // namespace test
