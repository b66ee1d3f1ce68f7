#include "machine/LineOutput.h"

#include "machine/ArcMoves.h"
#include "machine/MachineJob.h"

#include <QIODevice>

#include <algorithm>
#include <cmath>

namespace shapedocument {

namespace {

constexpr int kDecimals = 4; // a ten-thousandth of a millimetre
constexpr int kBulgeDigits = 9;

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

/// Text on its way into a device, in pieces of bearable size.
class Text
{
public:
    explicit Text(QIODevice& device) : m_device(device) {}
    Text(const Text&) = delete;
    Text& operator=(const Text&) = delete;
    ~Text() { m_device.write(m_waiting); }

    Text& operator<<(const QByteArray& text)
    {
        constexpr qsizetype kPiece = qsizetype{64} * 1024;
        m_waiting += text;
        if (m_waiting.size() >= kPiece) {
            m_device.write(m_waiting);
            m_waiting.resize(0); // keeps its room
        }
        return *this;
    }

private:
    QIODevice& m_device;
    QByteArray m_waiting;
};

QByteArray Count(size_t number)
{
    return QByteArray::number(qulonglong(number));
}

QByteArray SvgHead(const QRectF& rect)
{
    const QPointF origin(std::min(0.0, rect.left()), std::min(0.0, rect.top()));
    const QSizeF size(rect.right() - origin.x(), rect.bottom() - origin.y());
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" +
           Number(size.width()) + "mm\" height=\"" + Number(size.height()) + "mm\" viewBox=\"" + Number(origin.x()) +
           " " + Number(origin.y()) + " " + Number(size.width()) + " " + Number(size.height()) +
           "\" fill=\"none\" stroke-width=\"0.1\">\n";
}

void WriteSvgPolyline(Text& text, const MachinePath& path, JobReader& reader)
{
    text << "        <polyline class=\"" + KindName(path.kind) + "\" points=\"";
    for (const char* between = ""; const auto point = reader.NextPoint(); between = " ")
        text << between + Number(point->point.x()) + "," + Number(point->point.y());
    text << "\"/>\n";
}

void WriteSvgPath(Text& text, const MachinePath& path, JobReader& reader)
{
    JobPoint from = reader.NextPoint().value_or(JobPoint());
    text << "        <path class=\"" + KindName(path.kind) + "\" d=\"M " + Number(from.point.x()) + "," +
                Number(from.point.y());
    while (const auto point = reader.NextPoint()) {
        text << " " + SvgMove(from.point, point->point, from.bulge);
        from = *point;
    }
    text << "\"/>\n";
}

} // namespace

void WriteCsv(QIODevice& device, const MachineJob& job)
{
    Text text(device);
    text << (job.HasArcs() ? "shape,path,kind,x1,y1,x2,y2,color,bulge\n" : "shape,path,kind,x1,y1,x2,y2,color\n");
    JobReader reader(job);
    for (size_t number = 1; const auto path = reader.NextPath(); ++number) {
        const QByteArray begin = Count(path->shape) + "," + Count(number) + "," + KindName(path->kind);
        const QByteArray end = "," + Color(path->color);
        QByteArray from;
        double bulge = 0;
        while (const auto point = reader.NextPoint()) {
            const QByteArray to = Number(point->point.x()) + "," + Number(point->point.y());
            if (!from.isEmpty())
                text << begin + (bulge != 0 ? "-arc," : ",") + from + "," + to + end +
                            (job.HasArcs() ? "," + QByteArray::number(bulge, 'g', kBulgeDigits) : "") + "\n";
            from = to;
            bulge = point->bulge;
        }
    }
}

void WriteSvg(QIODevice& device, const MachineJob& job)
{
    Text text(device);
    text << SvgHead(job.Rect());
    JobReader reader(job);
    size_t shape = 0;
    while (const auto path = reader.NextPath()) {
        if (path->shape != shape) {
            text << (shape > 0 ? "    </g>\n" : "") + ("    <g id=\"shape" + Count(path->shape)) + "\" stroke=\"" +
                        Color(path->color) + "\">\n";
            shape = path->shape;
        }
        if (job.HasArcs())
            WriteSvgPath(text, *path, reader);
        else
            WriteSvgPolyline(text, *path, reader);
    }
    text << (shape > 0 ? "    </g>\n</svg>\n" : "</svg>\n");
}

void WriteGcode(QIODevice& device, const MachineJob& job, const GcodeOptions& options)
{
    const double height = options.height.value_or(job.Rect().bottom());
    const auto machine = [&](QPointF point) { return options.yDown ? point : QPointF(point.x(), height - point.y()); };
    const QByteArray on = (options.constantPower ? "M3 S" : "M4 S") + QByteArray::number(options.power) + "\n";
    const QByteArray feed = " F" + QByteArray::number(options.feed);
    Text text(device);
    text << "; millimetres, absolute; laser off on every G0\nG21\nG90\nG94\nM5\n";
    JobReader reader(job);
    size_t shape = 0;
    while (const auto path = reader.NextPath()) {
        if (path->shape != shape)
            text << "; shape " + Count(path->shape) + " " + Color(path->color) + "\n";
        shape = path->shape;
        JobPoint from = reader.NextPoint().value_or(JobPoint());
        text << "G0" + Place(machine(from.point)) + "\n" + on;
        for (QByteArray first = feed; const auto point = reader.NextPoint(); first.clear()) {
            const double bulge = options.yDown ? from.bulge : -from.bulge;
            text << GcodeMove(machine(from.point), machine(point->point), bulge) + first + "\n";
            from = *point;
        }
        text << "M5\n";
    }
    text << "G0 X0 Y0\nM2\n";
}

} // namespace shapedocument
