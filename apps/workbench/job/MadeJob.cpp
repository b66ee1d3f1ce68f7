#include "job/MadeJob.h"

#include "document/ShapeWalk.h"
#include "machine/Bulge.h"
#include "shape/Shape.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace shapedocument;

namespace {

const QString kName = "drawing"; // used in messages

/// Appends the points of an arc after its first one, accurate enough for display.
void AppendArc(QPolygonF& points, const JobPoint& from, QPointF to)
{
    constexpr double kTolerance = 0.005; // mm
    const int count = from.bulge == 0 ? 1 : ChordCount(from.point, to, from.bulge, kTolerance);
    for (int i = 1; i < count; ++i)
        points.append(PointOnSegment(from.point, to, from.bulge, double(i) / count));
    points.append(to);
}

std::vector<double> LengthsOf(const QPolygonF& points)
{
    std::vector<double> lengths(static_cast<size_t>(points.size()), 0);
    for (qsizetype i = 1; i < points.size(); ++i)
        lengths[static_cast<size_t>(i)] =
            lengths[static_cast<size_t>(i - 1)] + QLineF(points[i - 1], points[i]).length();
    return lengths;
}

} // namespace

QPointF DrawnPath::PlaceAt(double part) const
{
    if (points.isEmpty())
        return {};
    const double length = lengths.back() * part;
    const auto next = std::ranges::lower_bound(lengths, length);
    if (next == lengths.begin() || next == lengths.end())
        return next == lengths.end() ? points.back() : points.front();
    const double before = *(next - 1);
    const auto index = next - lengths.begin();
    return QLineF(points[index - 1], points[index]).pointAt((length - before) / (*next - before));
}

MadeJob::MadeJob(ShapeListOwner copy, const JobSettings& settings, const WorkProgress& progress)
    : m_settings(settings), m_drawing(std::move(copy)),
      m_prepared(PrepareJob(*m_drawing, m_settings.job, kName, progress)),
      m_engraving(m_settings.job.engraved ? std::make_unique<Engraving>(*m_drawing, m_settings.engraving, kName)
                                          : nullptr),
      m_work(m_prepared.job)
{
    m_work.engraving = m_engraving.get();
    m_work.colors = m_settings.job.colors;
    m_work.progress = [&progress](size_t rows, size_t all) {
        if (progress && !progress(WorkStep::Lines, rows, all))
            throw Stopped();
    };
    const bool engraves = m_work.EngravedShapes() > 0;
    m_report = ReportOf(m_work, m_settings.Report(), kName);
    AddDoubledLines(m_report, m_prepared.doubled);
    AddShapeFindings(m_report, *m_drawing, engraves ? std::optional(m_settings.engraving.linesPerMm) : std::nullopt);
    m_way = WayOfHead(m_work, m_settings.Gcode(), m_settings.machine);
    CollectPaths();
    if (engraves) {
        DrawRows();
        CollectPictures();
    }
    m_work.progress = {};
}

void MadeJob::CollectPaths()
{
    m_paths.reserve(m_prepared.job.PathCount());
    JobReader reader(m_prepared.job);
    while (const auto path = reader.NextPath()) {
        DrawnPath drawn{{}, {}, {}, path->color, path->kind};
        JobPoint from = reader.NextPoint().value_or(JobPoint());
        drawn.points.append(from.point);
        while (const auto to = reader.NextPoint()) {
            AppendArc(drawn.points, from, to->point);
            from = *to;
        }
        drawn.bounds = drawn.points.boundingRect();
        drawn.lengths = LengthsOf(drawn.points);
        m_paths.push_back(std::move(drawn));
    }
}

void MadeJob::DrawRows()
{
    constexpr double kMostRowPixels = 4e6, kBlack = 255;
    m_rowsRect = m_engraving->Rect();
    if (m_rowsRect.isEmpty())
        return;
    const double finest = std::sqrt(kMostRowPixels / (m_rowsRect.width() * m_rowsRect.height()));
    const double scale = std::min(m_settings.engraving.linesPerMm, finest); // pixels per mm
    m_rows = QImage(std::max(1, int(std::ceil(m_rowsRect.width() * scale))),
                    std::max(1, int(std::ceil(m_rowsRect.height() * scale))), QImage::Format_ARGB32_Premultiplied);
    m_rows.fill(Qt::transparent);
    QPainter painter(&m_rows);
    painter.scale(m_rows.width() / m_rowsRect.width(), m_rows.height() / m_rowsRect.height());
    painter.translate(-m_rowsRect.topLeft());
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    const double pitch = RowPitch();
    m_work.ForEachRow([&](const EngraveRow& row) {
        for (const EngraveSpan& span : row.spans)
            painter.fillRect(QRectF(span.begin, row.y - pitch / 2, span.end - span.begin, pitch),
                             QColor(0, 0, 0, int(kBlack) - span.grey));
    });
}

void MadeJob::CollectPictures()
{
    m_pictures.setFillRule(Qt::WindingFill);
    ForEachVisibleOutline(*m_drawing, [this](CShape& shape) {
        const bool isPicture = shape.GetShapeType() == ESHAPE_IMAGE || shape.GetShapeType() == ESHAPE_CODEIMAGE;
        if (const QPainterPath* outline = isPicture ? shape.GetPath(false) : nullptr)
            m_pictures.addPath(*outline);
    });
}

HeadPlace MadeJob::PlaceAt(double seconds) const
{
    const auto& steps = m_way.steps;
    if (steps.empty())
        return {};
    const auto step = std::ranges::lower_bound(steps, seconds, {}, &HeadStep::end);
    if (step == steps.end())
        return {steps.size(), 0, steps.back().to};
    const double begin = step == steps.begin() ? 0 : (step - 1)->end;
    const double part = step->end > begin ? std::clamp((seconds - begin) / (step->end - begin), 0.0, 1.0) : 1;
    const QPointF place = step->kind == HeadStepKind::Path ? m_paths[step->path].PlaceAt(part)
                                                           : QLineF(step->from, step->to).pointAt(part);
    return {static_cast<size_t>(step - steps.begin()), part, place};
}
