#include "job/JobTiles.h"

#include "canvas/Sheet.h"

#include <QElapsedTimer>
#include <QPainter>

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

using namespace shapedocument;

namespace {

constexpr int kSide = 128;           // pixels of the screen: small enough to paint a tile within a frame
constexpr double kPen = 4;           // pixels by which lines extend beyond their points
constexpr size_t kLeastPerMark = 64; // steps of a tile
constexpr size_t kMarks = 1024;      // about, for a whole job: 64 MB
constexpr size_t kKeptScreens = 3;   // tiles that are kept, as multiples of those in the widget

int TileOf(int pixel)
{
    return pixel >= 0 ? pixel / kSide : -((-pixel + kSide - 1) / kSide);
}

QImage EmptyTile(QImage::Format format)
{
    QImage tile(kSide, kSide, format);
    tile.fill(Qt::transparent);
    return tile;
}

/// The rectangle that the step paints, mm.
QRectF ReachOf(const MadeJob& job, const HeadStep& step)
{
    if (step.kind == HeadStepKind::Path)
        return job.Paths()[step.path].bounds;
    const QRectF way = QRectF(step.from, step.to).normalized();
    return step.kind == HeadStepKind::Row ? way.adjusted(0, -job.RowPitch(), 0, job.RowPitch()) : way;
}

} // namespace

void JobTiles::Begin(std::shared_ptr<const MadeJob> job, const QRectF& bed, const JobPlacement& placement,
                     double density)
{
    m_job = std::move(job);
    m_bed = bed;
    m_placement = placement;
    m_density = density;
    m_tiles.clear();
    if (std::exchange(m_boxed, m_job) == m_job)
        return;
    m_boxes.clear();
    if (!m_job)
        return;
    m_boxes.reserve(m_job->Steps().size());
    for (const HeadStep& step : m_job->Steps()) {
        const QRectF reach = ReachOf(*m_job, step);
        m_boxes.push_back({static_cast<float>(reach.left()), static_cast<float>(reach.top()),
                           static_cast<float>(reach.right()), static_cast<float>(reach.bottom())});
    }
    m_perMark = std::max(kLeastPerMark, m_boxes.size() / kMarks);
}

JobPlacement JobTiles::PlacementOf(QPoint place) const
{
    JobPlacement placement = m_placement;
    placement.visible = QRectF(QPointF(place * kSide) / m_density, QSizeF(kSide, kSide) / m_density);
    return placement;
}

/// The steps in a rectangle (pixels). Cost: O(steps), a nanosecond each.
std::vector<std::uint32_t> JobTiles::StepsIn(const QRectF& pixels) const
{
    const QRectF mm = m_placement.toPixels.inverted().mapRect(pixels.adjusted(-kPen, -kPen, kPen, kPen));
    const auto left = static_cast<float>(mm.left()), right = static_cast<float>(mm.right());
    const auto top = static_cast<float>(mm.top()), bottom = static_cast<float>(mm.bottom());
    std::vector<std::uint32_t> steps;
    for (size_t i = 0; i < m_boxes.size(); ++i)
        if (const Box& box = m_boxes[i];
            box.left <= right && box.right >= left && box.top <= bottom && box.bottom >= top)
            steps.push_back(static_cast<std::uint32_t>(i));
    return steps;
}

void JobTiles::PaintWaiting(Tile& tile, QPoint place)
{
    const JobPlacement placement = PlacementOf(place);
    tile.waiting = EmptyTile(QImage::Format_RGB32);
    QPainter painter(&tile.waiting);
    painter.translate(-place * kSide);
    painter.scale(m_density, m_density);
    PaintSheet(painter, m_bed, placement.toPixels, placement.visible, true);
    if (!m_job)
        return;
    tile.steps = StepsIn(placement.visible);
    PaintSteps(painter, *m_job, placement, tile.steps, StepLook::Waiting);
}

/// Paints the tile's steps from tile.painted up to end.
void JobTiles::PaintOn(Tile& tile, QPoint place, size_t end)
{
    if (tile.done.isNull())
        tile.done = EmptyTile(QImage::Format_ARGB32_Premultiplied);
    QPainter painter(&tile.done);
    painter.translate(-place * kSide);
    painter.scale(m_density, m_density);
    const std::span<const std::uint32_t> steps(tile.steps);
    PaintSteps(painter, *m_job, PlacementOf(place), steps.subspan(tile.painted, end - tile.painted), StepLook::Done);
    tile.painted = end;
}

void JobTiles::PaintDone(Tile& tile, QPoint place, size_t count)
{
    if (!m_job)
        return;
    const size_t mark = std::min(count / m_perMark, tile.marks.size());
    if (count < tile.painted || mark * m_perMark > tile.painted) {
        tile.done = mark > 0 ? tile.marks[mark - 1] : QImage();
        tile.painted = mark * m_perMark;
    }
    while (tile.painted < count) {
        const size_t next = tile.painted / m_perMark + 1;
        PaintOn(tile, place, std::min(count, next * m_perMark));
        if (tile.painted == next * m_perMark && tile.marks.size() < next)
            tile.marks.push_back(tile.done); // shares the pixels until more is painted
    }
}

bool JobTiles::Paint(QPainter& painter, QPoint corner, QSize size, size_t doneSteps, int milliseconds)
{
    const QRect places(QPoint(TileOf(corner.x()), TileOf(corner.y())),
                       QPoint(TileOf(corner.x() + size.width() - 1), TileOf(corner.y() + size.height() - 1)));
    QElapsedTimer sinceBegin;
    sinceBegin.start();
    bool isWhole = true, hasPainted = false;
    for (int row = places.top(); row <= places.bottom(); ++row) {
        for (int column = places.left(); column <= places.right(); ++column) {
            const QPoint place(column, row);
            Tile& tile = m_tiles[{column, row}];
            if (tile.waiting.isNull()) {
                if (hasPainted && sinceBegin.elapsed() >= milliseconds) {
                    isWhole = false;
                    continue;
                }
                hasPainted = true;
                PaintWaiting(tile, place);
            }
            const auto done = std::ranges::lower_bound(tile.steps, doneSteps) - tile.steps.begin();
            PaintDone(tile, place, static_cast<size_t>(done));
            painter.drawImage(place * kSide - corner, tile.waiting);
            if (!tile.done.isNull())
                painter.drawImage(place * kSide - corner, tile.done);
        }
    }
    DropBeyond(places);
    return isWhole;
}

/// Drops tiles outside places if there are many; a few are kept, because the view may come back.
void JobTiles::DropBeyond(const QRect& places)
{
    const auto seen = static_cast<size_t>(places.width()) * static_cast<size_t>(places.height());
    if (m_tiles.size() > seen * kKeptScreens)
        std::erase_if(m_tiles, [&](const auto& entry) {
            return !places.contains(QPoint(entry.first.first, entry.first.second));
        });
}
