#include "job/JobPainting.h"

#include "look/Look.h"

#include <QPainter>

#include <algorithm>
#include <cmath>

using namespace shapedocument;

namespace {

constexpr double kLineWidth = 1.4; // pixels
constexpr double kTravelWidth = 1; // pixels
constexpr float kWaitingAlpha = 0.3F;
constexpr float kTravelAlpha = 0.75F;

QPen LinePen(const DrawnPath& path, StepLook look)
{
    QColor color = look::LineColor(path.color);
    if (look == StepLook::Waiting)
        color.setAlphaF(kWaitingAlpha);
    QPen pen(color, path.kind == PathKind::Cut ? kLineWidth : kLineWidth * 2);
    pen.setCapStyle(Qt::RoundCap);
    pen.setJoinStyle(Qt::RoundJoin);
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

/// What a row covers from begin to end (mm).
QRectF RowRect(const MadeJob& job, QPointF from, QPointF to)
{
    const double left = std::min(from.x(), to.x()), right = std::max(from.x(), to.x());
    return {left, from.y() - (job.RowPitch() / 2), right - left, job.RowPitch()};
}

/// The part of the engraved picture that rows have made (mm). Rows are thinner than pixels, so whole pixels are taken,
/// and replaced (mode Source) where the rows before have left some.
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

/// Where the rows end that follow each other from a step on, and what they cover (mm).
std::pair<size_t, QRectF> RowsFrom(const MadeJob& job, size_t begin, size_t end)
{
    QRectF covered = RowRect(job, job.Steps()[begin].from, job.Steps()[begin].to);
    size_t i = begin + 1;
    for (; i < end && job.Steps()[i].kind != HeadStepKind::Path; ++i) {
        if (job.Steps()[i].kind == HeadStepKind::Travel)
            continue; // within the picture
        const QRectF row = RowRect(job, job.Steps()[i].from, job.Steps()[i].to);
        if (row.top() > covered.bottom() + job.RowPitch() || row.top() < covered.top())
            break; // another shape's
        covered |= row;
    }
    return {i, covered};
}

void PaintPath(QPainter& painter, const DrawnPath& path, const JobPlacement& placement, StepLook look)
{
    const QPolygonF points = placement.toPixels.map(path.points);
    if (!Touches(points.boundingRect(), placement.visible))
        return;
    painter.setPen(LinePen(path, look));
    painter.drawPolyline(points);
}

/// 1, 2 or 5 times a power of ten (mm), at least so many pixels wide.
double GridStep(double pixelsPerMm, double leastPixels)
{
    double step = 1;
    for (const double factor : {2.0, 2.5, 2.0, 2.0, 2.5, 2.0, 2.0, 2.5, 2.0})
        if (step * pixelsPerMm < leastPixels)
            step *= factor;
    return step;
}

void PaintGrid(QPainter& painter, const QRectF& bed, const JobPlacement& placement, double step, const QColor& color)
{
    painter.setPen(QPen(color, 0));
    const QRectF shown = placement.toPixels.inverted().mapRect(placement.visible) & bed;
    for (double x = std::ceil(shown.left() / step) * step; x <= shown.right(); x += step)
        painter.drawLine(placement.toPixels.map(QLineF(x, bed.top(), x, bed.bottom())));
    for (double y = std::ceil(shown.top() / step) * step; y <= shown.bottom(); y += step)
        painter.drawLine(placement.toPixels.map(QLineF(bed.left(), y, bed.right(), y)));
}

} // namespace

void PaintSheet(QPainter& painter, const QRectF& bed, const JobPlacement& placement)
{
    constexpr double kFine = 12, kCoarse = 60; // pixels
    painter.fillRect(placement.visible, look::Outside());
    const QRectF sheet = placement.toPixels.mapRect(bed);
    painter.fillRect(sheet, look::Bed());
    painter.setRenderHint(QPainter::Antialiasing, false);
    PaintGrid(painter, bed, placement, GridStep(placement.toPixels.m11(), kFine), look::Grid());
    PaintGrid(painter, bed, placement, GridStep(placement.toPixels.m11(), kCoarse), look::CoarseGrid());
    painter.setPen(QPen(look::BedEdge(), 0));
    painter.drawRect(sheet);
    painter.setRenderHint(QPainter::Antialiasing, true);
}

QImage RowsInColor(const MadeJob& job)
{
    QImage rows = job.Rows();
    if (rows.isNull() || !look::IsDark())
        return rows;
    QPainter painter(&rows);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(rows.rect(), look::Burned());
    return rows;
}

void PaintSteps(QPainter& painter, const MadeJob& job, const JobPlacement& placement, size_t begin, size_t end,
                StepLook look)
{
    painter.setRenderHint(QPainter::Antialiasing, true);
    if (look == StepLook::Waiting && !placement.rows.isNull()) {
        painter.setOpacity(kWaitingAlpha);
        painter.drawImage(placement.toPixels.mapRect(job.RowsRect()), placement.rows);
        painter.setOpacity(1);
    }
    for (size_t i = begin; i < end; ++i) {
        const HeadStep& step = job.Steps()[i];
        if (step.kind == HeadStepKind::Path) {
            PaintPath(painter, job.Paths()[step.path], placement, look);
        } else if (look == StepLook::Done && step.kind == HeadStepKind::Row) {
            const auto [next, covered] = RowsFrom(job, i, end);
            PaintRows(painter, job, placement, covered, QPainter::CompositionMode_Source);
            i = next - 1;
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
        DrawnPath done{path.points.mid(0, points), {}, path.color, path.kind};
        done.points.append(head.place);
        PaintPath(painter, done, placement, StepLook::Done);
    }
}

void PaintHead(QPainter& painter, QPointF pixel)
{
    constexpr double kRing = 7, kHair = 14, kDot = 2; // pixels
    painter.setRenderHint(QPainter::Antialiasing, true);
    painter.setPen(QPen(look::Head(), kLineWidth));
    painter.setBrush(Qt::NoBrush);
    painter.drawEllipse(pixel, kRing, kRing);
    for (const QPointF way : {QPointF(1, 0), QPointF(-1, 0), QPointF(0, 1), QPointF(0, -1)})
        painter.drawLine(pixel + way * kRing, pixel + way * kHair);
    painter.setPen(Qt::NoPen);
    painter.setBrush(look::Head());
    painter.drawEllipse(pixel, kDot, kDot);
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
