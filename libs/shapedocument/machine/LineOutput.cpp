#include "machine/LineOutput.h"

#include "machine/ArcMoves.h"
#include "machine/Engraving.h"
#include "machine/OutputText.h"
#include "machine/PathPasses.h"

#include <algorithm>
#include <vector>

namespace shapedocument {

namespace {

std::string_view KindName(PathKind kind)
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

/// A span in the direction in which the machine goes along it.
struct Run
{
    double from;
    double to;
    unsigned char grey;
};

template <class Take>
void ForEachSpan(const EngraveRow& row, Take take)
{
    const size_t count = row.spans.size();
    for (size_t i = 0; i < count; ++i) {
        const EngraveSpan& span = row.spans[row.backwards ? count - 1 - i : i];
        take(row.backwards ? Run{span.end, span.begin, span.grey} : Run{span.begin, span.end, span.grey});
    }
}

/// Returns the number of rows, as WriteSvgRows does.
size_t WriteCsvRows(OutputText& text, const MachineWork& work)
{
    const std::string_view straight = work.job.HasArcs() ? ",0," : ",";
    size_t number = 0;
    return work.ForEachRow([&](const EngraveRow& row) {
        ++number;
        ForEachSpan(row, [&](const Run& run) {
            text << row.shape << "," << number << ",engrave,";
            (text.Fixed(run.from) << ",").Fixed(row.y) << ",";
            (text.Fixed(run.to) << ",").Fixed(row.y) << ",";
            text.Color(row.color) << straight << size_t{run.grey} << "\n";
        });
    });
}

void WriteSvgHead(OutputText& text, const QRectF& rect)
{
    const QPointF origin(std::min(0.0, rect.left()), std::min(0.0, rect.top()));
    const QSizeF size(rect.right() - origin.x(), rect.bottom() - origin.y());
    text << "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"";
    (text.Fixed(size.width()) << "mm\" height=\"").Fixed(size.height()) << "mm\" viewBox=\"";
    (text.Fixed(origin.x()) << " ").Fixed(origin.y()) << " ";
    (text.Fixed(size.width()) << " ").Fixed(size.height()) << "\" fill=\"none\" stroke-width=\"0.1\">\n";
}

size_t WriteSvgRows(OutputText& text, const MachineWork& work)
{
    size_t shape = 0;
    const size_t rows = work.ForEachRow([&](const EngraveRow& row) {
        if (row.shape != shape) {
            text << (shape > 0 ? "    </g>\n" : "") << "    <g class=\"engrave\" id=\"shape" << row.shape;
            (text << "\" stroke-width=\"").Fixed(work.engraving->Pitch()) << "\">\n";
            shape = row.shape;
        }
        ForEachSpan(row, [&](const Run& run) {
            (text << "        <path d=\"M").Short(run.from) << ' ';
            (text.Short(row.y) << 'H').Short(run.to) << "\" stroke=\"";
            text.Color(run.grey * 0x010101U) << "\"/>\n";
        });
    });
    text << (shape > 0 ? "    </g>\n" : "");
    return rows;
}

void WriteSvgPolyline(OutputText& text, const MachinePath& path, JobReader& points)
{
    text << "        <polyline class=\"" << KindName(path.kind) << "\" points=\"";
    for (const char* between = ""; const auto point = points.NextPoint(); between = " ")
        ((text << between).Fixed(point->point.x()) << ',').Fixed(point->point.y());
    text << "\"/>\n";
}

void WriteSvgPath(OutputText& text, const MachinePath& path, JobReader& points)
{
    JobPoint from = points.NextPoint().value_or(JobPoint());
    text << "        <path class=\"" << KindName(path.kind) << "\" d=\"M ";
    (text.Fixed(from.point.x()) << ',').Fixed(from.point.y());
    while (const auto to = points.NextPoint()) {
        text << ' ' << SvgMoveText(from.point, to->point, from.bulge).toStdString();
        from = *to;
    }
    text << "\"/>\n";
}

std::string Bulge(double bulge)
{
    constexpr int kBulgeDigits = 9;
    return QByteArray::number(bulge, 'g', kBulgeDigits).toStdString();
}

} // namespace

size_t WriteCsv(QIODevice& device, const MachineWork& work)
{
    OutputText text(device);
    const bool arcs = work.job.HasArcs(), engraved = work.EngravedShapes() > 0;
    text << "shape,path,kind,x1,y1,x2,y2,color" << (arcs ? ",bulge" : "") << (engraved ? ",grey\n" : "\n");
    const size_t rows = WriteCsvRows(text, work);
    size_t number = rows;
    ForEachPass(work, {}, [&](const PathPass& pass, JobReader& points) {
        ++number;
        JobPoint from = points.NextPoint().value_or(JobPoint());
        while (const auto to = points.NextPoint()) {
            text << work.ShapeNumber(pass.path) << "," << number << "," << KindName(pass.path.kind);
            ((text << (from.bulge != 0 ? "-arc," : ",")).Fixed(from.point.x()) << ",").Fixed(from.point.y()) << ",";
            (text.Fixed(to->point.x()) << ",").Fixed(to->point.y()) << ",";
            text.Color(pass.path.color) << (arcs ? "," + Bulge(from.bulge) : "") << (engraved ? ",\n" : "\n");
            from = *to;
        }
    });
    return rows;
}

size_t WriteSvg(QIODevice& device, const MachineWork& work)
{
    OutputText text(device);
    WriteSvgHead(text, work.Rect());
    const size_t rows = WriteSvgRows(text, work);
    size_t shape = 0;
    std::vector<bool> begun(work.job.ShapeCount() + 1); // an id must be unique: further groups of a shape get a class
    ForEachPass(work, {}, [&](const PathPass& pass, JobReader& points) {
        if (pass.path.shape != shape) {
            const char* name = begun[pass.path.shape] ? "class" : "id";
            begun[pass.path.shape] = true;
            (text << (shape > 0 ? "    </g>\n" : "") << "    <g " << name) << "=\"shape" << work.ShapeNumber(pass.path);
            (text << "\" stroke=\"").Color(pass.path.color) << "\">\n";
            shape = pass.path.shape;
        }
        if (work.job.HasArcs())
            WriteSvgPath(text, pass.path, points);
        else
            WriteSvgPolyline(text, pass.path, points);
    });
    text << (shape > 0 ? "    </g>\n</svg>\n" : "</svg>\n");
    return rows;
}

} // namespace shapedocument
