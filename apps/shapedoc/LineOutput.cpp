#include "LineOutput.h"

#include "MachinePaths.h"

#include <QIODevice>
#include <QXmlStreamWriter>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kDecimals = 4; // a ten-thousandth of a millimetre

QByteArray Number(double value)
{
    const double scale = std::pow(10.0, kDecimals);
    return QByteArray::number(std::round(value * scale) / scale + 0.0, 'f', kDecimals); // + 0.0: no "-0.0000"
}

QByteArray Color(unsigned int color)
{
    return "#" + QByteArray::number(color & 0xFFFFFFu, 16).rightJustified(6, '0');
}

QByteArray KindName(PathKind kind)
{
    switch (kind) {
    case PathKind::Cut:
        return "cut";
    case PathKind::LeadIn:
        return "lead-in";
    case PathKind::LeadOut:
        return "lead-out";
    }
    return {};
}

QByteArray Place(QPointF point)
{
    return " X" + Number(point.x()) + " Y" + Number(point.y());
}

QString PointList(const QPolygonF& points)
{
    QByteArray list;
    for (const QPointF& point : points)
        list += (list.isEmpty() ? "" : " ") + Number(point.x()) + "," + Number(point.y());
    return QString::fromLatin1(list);
}

} // namespace

void WriteCsv(QIODevice& device, const MachineJob& job)
{
    device.write("shape,path,kind,x1,y1,x2,y2,color\n");
    for (size_t i = 0; i < job.paths.size(); ++i) {
        const MachinePath& path = job.paths[i];
        const QByteArray begin = QByteArray::number(qulonglong(path.shape)) + "," +
                                 QByteArray::number(qulonglong(i + 1)) + "," + KindName(path.kind) + ",";
        QByteArray rows;
        for (qsizetype p = 1; p < path.points.size(); ++p) {
            const QPointF from = path.points[p - 1];
            const QPointF to = path.points[p];
            rows += begin + Number(from.x()) + "," + Number(from.y()) + "," + Number(to.x()) + "," + Number(to.y()) +
                    "," + Color(path.color) + "\n";
        }
        device.write(rows);
    }
}

void WriteSvg(QIODevice& device, const MachineJob& job)
{
    const QRectF rect = JobRect(job);
    const QPointF origin(std::min(0.0, rect.left()), std::min(0.0, rect.top()));
    const QSizeF size(rect.right() - origin.x(), rect.bottom() - origin.y());
    QXmlStreamWriter svg(&device);
    svg.setAutoFormatting(true);
    svg.writeStartDocument();
    svg.writeStartElement("svg");
    svg.writeDefaultNamespace("http://www.w3.org/2000/svg");
    svg.writeAttribute("width", Number(size.width()) + "mm");
    svg.writeAttribute("height", Number(size.height()) + "mm");
    svg.writeAttribute("viewBox", Number(origin.x()) + " " + Number(origin.y()) + " " + Number(size.width()) + " " +
                                      Number(size.height()));
    svg.writeAttribute("fill", "none");
    svg.writeAttribute("stroke-width", "0.1");
    for (size_t i = 0; i < job.paths.size(); ++i) {
        const MachinePath& path = job.paths[i];
        if (i == 0 || job.paths[i - 1].shape != path.shape) {
            svg.writeStartElement("g");
            svg.writeAttribute("id", "shape" + QString::number(path.shape));
            svg.writeAttribute("stroke", Color(path.color));
        }
        svg.writeEmptyElement("polyline");
        svg.writeAttribute("class", KindName(path.kind));
        svg.writeAttribute("points", PointList(path.points));
        if (i + 1 == job.paths.size() || job.paths[i + 1].shape != path.shape)
            svg.writeEndElement();
    }
    svg.writeEndDocument();
}

void WriteGcode(QIODevice& device, const MachineJob& job, const GcodeOptions& options)
{
    const double height = options.height.value_or(JobRect(job).bottom());
    const auto machine = [&](QPointF point) { return options.yDown ? point : QPointF(point.x(), height - point.y()); };
    const QByteArray on = (options.constantPower ? "M3 S" : "M4 S") + QByteArray::number(options.power) + "\n";
    const QByteArray feed = " F" + QByteArray::number(options.feed);
    device.write("; millimetres, absolute; laser off on every G0\nG21\nG90\nG94\nM5\n");
    size_t shape = 0;
    for (const MachinePath& path : job.paths) {
        QByteArray block;
        if (path.shape != shape)
            block += "; shape " + QByteArray::number(qulonglong(path.shape)) + " " + Color(path.color) + "\n";
        shape = path.shape;
        block += "G0" + Place(machine(path.points.first())) + "\n" + on;
        for (qsizetype i = 1; i < path.points.size(); ++i)
            block += "G1" + Place(machine(path.points[i])) + (i == 1 ? feed : QByteArray()) + "\n";
        device.write(block + "M5\n");
    }
    device.write("G0 X0 Y0\nM2\n");
}
