/// The points of outlines as they are stored, for comparing an outline before and after fitting.
#include "document/ShapeWalk.h"
#include "render/Drawing.h"

#include "shape/Shape.h"

#include <QPainter>

namespace shapedocument {

namespace {

constexpr double kNode = 2.2; // radii and widths in units of the sheet
constexpr double kControl = 3.2;
constexpr double kTangent = 0.7;
const QColor kNodeColor(0x22, 0x22, 0x22);
const QColor kControlColor(0x7b, 0x2c, 0xbf);

void DrawTriple(QPainter& painter, QPointF start, QPointF control1, QPointF control2, QPointF end, double unit)
{
    painter.setPen(QPen(kControlColor, kTangent * unit));
    painter.setBrush(Qt::white);
    painter.drawLine(start, control1);
    painter.drawLine(end, control2);
    painter.drawEllipse(control1, kControl * unit, kControl * unit);
    painter.drawEllipse(control2, kControl * unit, kControl * unit);
}

void DrawNode(QPainter& painter, QPointF point, double unit)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(kNodeColor);
    painter.drawEllipse(point, kNode * unit, kNode * unit);
}

void DrawPointsOf(QPainter& painter, CShape& shape, double unit)
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    for (size_t i = 0; i < std::min(points.size(), types.size()); ++i) {
        if (types[i] == ELINE_SEGMENT_SEPARATOR)
            continue;
        if (types[i] == ELINE_SEGMENT_CURVE && i > 0 && i + 2 < points.size()) {
            DrawTriple(painter, points[i - 1], points[i], points[i + 1], points[i + 2], unit);
            i += 2;
        }
        DrawNode(painter, points[i], unit);
    }
}

} // namespace

void DrawPoints(QPainter& painter, CShapeList& document, double unit, const WorkProgress& progress)
{
    WorkWatch watch(progress, WorkStep::Drawing, progress ? OutlineCount(document) : 0);
    ForEachVisibleOutline(document, [&](CShape& shape) {
        watch.Next();
        DrawPointsOf(painter, shape, unit);
    });
}

} // namespace shapedocument
