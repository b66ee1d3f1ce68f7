#include "svg/DrawingText.h"

#include "support/Outline.h"

#include "image/ShapeImage.h"

#include <cmath>

namespace test {

using namespace shapedocument;

namespace {

double Rounded(double value)
{
    constexpr double kUnit = 0.001;
    return std::round(value / kUnit) * kUnit;
}

std::string ShapeText(CShape& shape)
{
    QPainterPath path = *shape.GetPath(false);
    for (int i = 0; i < path.elementCount(); ++i)
        path.setElementPositionAt(i, Rounded(path.elementAt(i).x), Rounded(path.elementAt(i).y));
    char color[16] = "";
    if (shape.GetColor() != 0)
        std::snprintf(color, sizeof color, " #%06x", shape.GetColor() & 0xffffff);
    return (dynamic_cast<CShapeImage*>(&shape) ? "picture " : "") + PathText(path) + color;
}

} // namespace

QByteArray Drawing(const QByteArray& content)
{
    return "<svg xmlns='http://www.w3.org/2000/svg' xmlns:xlink='http://www.w3.org/1999/xlink' "
           "width='100mm' height='100mm' viewBox='0 0 100 100'>" +
           content + "</svg>";
}

DrawingImport Imported(const QByteArray& content, const DrawingOptions& options)
{
    return ImportDrawing(Drawing(content), {}, options);
}

std::string ShapesText(const DrawingImport& drawing)
{
    std::string text;
    for (const auto& shape : drawing.shapes)
        text += (text.empty() ? "" : "; ") + ShapeText(*shape);
    return drawing.error.isEmpty() ? text : drawing.error.toStdString();
}

std::string ReportText(const DrawingImport& drawing)
{
    return drawing.report.Lines().join(", ").toStdString();
}

std::string OneOf(const std::string& expected, const std::string& said)
{
    const QStringList all = QString::fromStdString(expected).split(" | ");
    return all.contains(QString::fromStdString(said)) ? said : all.first().toStdString();
}

} // namespace test
