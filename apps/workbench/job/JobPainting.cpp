#include "job/JobPainting.h"

#include "look/Look.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace shapedocument;

namespace {

constexpr double kLineWidth = 1.4; // pixels
constexpr double kTravelWidth = 1; // pixels
constexpr double kInkPixels = 3;   // pixels by which lines and dots extend beyond their points
constexpr double kDot = 0.7;       // pixels: smaller paths are one dot
constexpr float kWaitingAlpha = 0.3F;
constexpr float kTravelAlpha = 0.75F;

QPen LinePen(const DrawnPath& path, StepLook look)
{
    QColor color = look::LineColor(path.color);
    if (look == StepLook::Waiting)
        color.setAlphaF(kWaitingAlpha);
    QPen pen(color, path.kind == PathKind::Cut ? kLineWidth : kLineWidth * 2);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::BevelJoin); // Round joins are slow with thousands of paths, and no different at this width.
    return pen;
}

QPen TravelPen()
{
    QColor color = look::Travel();
    color.setAlphaF(kTravelAlpha);
    QPen pen(color, kTravelWidth);
    pen.setDashPattern({4, 3});
    return pen;
}

bool Touches(const QRectF& rect, const QRectF& visible)
{
    return rect.left() <= visible.right() && rect.right() >= visible.left() && rect.top() <= visible.bottom() &&
           rect.bottom() >= visible.top();
}

void PaintTravel(QPainter& painter, const JobPlacement& placement, QPointF from, QPointF to)
{
    const QLineF line(placement.toPixels.map(from), placement.toPixels.map(to));
    if (!placement.showsTravel || !Touches(QRectF(line.p1(), line.p2()).normalized(), placement.visible))
        return;
    painter.setPen(TravelPen());
    painter.drawLine(line);
}

/// The rectangle (mm) of a row from one point to another.
QRectF RowRect(const MadeJob& job, QPointF from, QPointF to)
{
    const double left = std::min(from.x(), to.x()), right = std::max(from.x(), to.x());
    return {left, from.y() - (job.RowPitch() / 2), right - left, job.RowPitch()};
}

/// Paints the part (mm) of the engraving that rows cover. Rows may be thinner than pixels, so whole pixels are painted;
/// mode Source replaces pixels that earlier rows have painted already.
void PaintRows(QPainter& painter, const MadeJob& job, const JobPlacement& placement, const QRectF& rows,
               QPainter::CompositionMode mode)
{
    const QRectF all = placement.toPixels.mapRect(job.RowsRect());
    const QRectF target = QRectF(placement.toPixels.mapRect(rows & job.RowsRect()).toAlignedRect());
    if (placement.rows.isNull() || target.isEmpty() || !Touches(target, placement.visible))
        return;
    const double scaleX = placement.rows.width() / all.width(), scaleY = placement.rows.height() / all.height();
    painter.setCompositionMode(mode);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(target, placement.rows,
                      QRectF((target.left() - all.left()) * scaleX, (target.top() - all.top()) * scaleY,
                             target.width() * scaleX, target.height() * scaleY));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
}

/// The number of steps, of which the first is a row, that are consecutive rows of one shape, and the rectangle that
/// they cover (mm). Travel between these rows counts, too.
std::pair<size_t, QRectF> RowsOf(const MadeJob& job, std::span<const std::uint32_t> steps)
{
    const auto rect = [&](size_t i) { return RowRect(job, job.Steps()[steps[i]].from, job.Steps()[steps[i]].to); };
    QRectF covered = rect(0);
    size_t end = 1;
    for (size_t i = 1; i < steps.size() && job.Steps()[steps[i]].kind != HeadStepKind::Path; ++i) {
        if (job.Steps()[steps[i]].kind == HeadStepKind::Travel)
            continue;
        const QRectF row = rect(i);
        if (row.top() > covered.bottom() + job.RowPitch() || row.top() < covered.top())
            break; // another shape's
        covered |= row;
        end = i + 1;
    }
    return {end, covered};
}

/// The points on the screen without those within half a pixel of the one before: jobs have a point every few
/// micrometres.
QPolygonF Thinned(const QPolygonF& points, const QTransform& toPixels)
{
    constexpr double kPixel = 0.5;
    QPolygonF kept;
    kept.reserve(points.size());
    for (const QPointF point : points) {
        const QPointF pixel = toPixels.map(point);
        if (kept.isEmpty() || (pixel - kept.back()).manhattanLength() >= kPixel)
            kept.append(pixel);
    }
    if (!points.isEmpty())
        kept.append(toPixels.map(points.back()));
    return kept;
}

void PaintPath(QPainter& painter, const DrawnPath& path, const JobPlacement& placement, StepLook look)
{
    const QRectF bounds = placement.toPixels.mapRect(path.bounds);
    if (!Touches(bounds.adjusted(-kInkPixels, -kInkPixels, kInkPixels, kInkPixels), placement.visible))
        return;
    painter.setPen(LinePen(path, look));
    if (std::max(bounds.width(), bounds.height()) < kDot)
        painter.drawPoint(bounds.center());
    else
        painter.drawPolyline(Thinned(path.points, placement.toPixels));
}

} // namespace

QImage RowsInColor(const MadeJob& job)
{
    QImage rows = job.Rows();
    if (rows.isNull() || !look::IsDark())
        return rows;
    QPainter painter(&rows);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(rows.rect(), look::Burned());
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.scale(rows.width() / job.RowsRect().width(), rows.height() / job.RowsRect().height());
    painter.translate(-job.RowsRect().topLeft());
    painter.setClipPath(job.Pictures());
    painter.drawImage(job.RowsRect(), job.Rows());
    return rows;
}

void PaintSteps(QPainter& painter, const MadeJob& job, const JobPlacement& placement,
                std::span<const std::uint32_t> steps, StepLook look)
{
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (look == StepLook::Waiting && !placement.rows.isNull()) {
        if (look::IsDark())
            painter.fillPath(placement.toPixels.map(job.Pictures()), look::Card());
        painter.setOpacity(kWaitingAlpha);
        painter.drawImage(placement.toPixels.mapRect(job.RowsRect()), placement.rows);
        painter.setOpacity(1);
    }
    for (size_t i = 0; i < steps.size(); ++i) {
        const HeadStep& step = job.Steps()[steps[i]];
        if (step.kind == HeadStepKind::Path) {
            PaintPath(painter, job.Paths()[step.path], placement, look);
        } else if (look == StepLook::Done && step.kind == HeadStepKind::Row) {
            const auto [count, covered] = RowsOf(job, steps.subspan(i));
            PaintRows(painter, job, placement, covered, QPainter::CompositionMode_Source);
            i += count - 1;
        } else if (look == StepLook::Done) {
            PaintTravel(painter, placement, step.from, step.to);
        }
    }
}

void PaintStepAtWork(QPainter& painter, const MadeJob& job, const JobPlacement& placement, const HeadPlace& head)
{
    if (head.step >= job.Steps().size())
        return;
    const HeadStep& step = job.Steps()[head.step];
    if (step.kind == HeadStepKind::Travel)
        PaintTravel(painter, placement, step.from, head.place);
    else if (step.kind == HeadStepKind::Row)
        PaintRows(painter, job, placement, RowRect(job, step.from, head.place), QPainter::CompositionMode_SourceOver);
    else {
        const DrawnPath& path = job.Paths()[step.path];
        const double length = path.lengths.back() * head.part;
        const auto points = std::ranges::lower_bound(path.lengths, length) - path.lengths.begin();
        DrawnPath done{path.points.mid(0, points), path.bounds, {}, path.color, path.kind};
        done.points.append(head.place);
        PaintPath(painter, done, placement, StepLook::Done);
    }
}

void PaintHead(QPainter& painter, QPointF pixel)
{
    constexpr double kRing = 7, kHair = 14, kCore = 2; // pixels
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(look::Head(), kLineWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(pixel, kRing, kRing);
    for (const QPointF way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
        painter.drawLine(pixel + way * kRing, pixel + way * kHair);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look::Head());
    painter.drawEllipse(pixel, kCore, kCore);
}

void PaintMark(QPainter& painter, const QRectF& pixels)
{
    constexpr double kLeast = 12, kWidth = 2.5; // pixels
    const double radius = std::max({kLeast, pixels.width() / 2, pixels.height() / 2});
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(look::Problem(), kWidth));
    painter.drawEllipse(pixels.center(), radius, radius);
}
