/// JobTiles: paints a job in cached tiles, so that the cost of a frame depends on its changes only.
#pragma once

#include "job/JobPainting.h"

#include <QImage>
#include <QPoint>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

/// There are two layers: the sheet with the steps to come, and the steps done. A tile has a list of the steps that
/// touch it, so panning paints only new tiles, and a change of time only tiles that it affects. At regular numbers of
/// steps a tile keeps a copy of its picture (a mark): going back in time starts from the mark before.
class JobTiles
{
public:
    /// Drops all tiles and sets the job (null: the empty bed) and its placement. density: pixels of the screen for each
    /// pixel of the widget.
    void Begin(std::shared_ptr<const MadeJob> job, const QRectF& bed, const JobPlacement& placement, double density);
    /// Whether Begin has been called since End; if not, Paint must not be called.
    bool HasBegun() const { return m_density > 0; }
    /// Makes all tiles invalid until Begin, as after a change of the palette.
    void End() { m_density = 0; }

    /// Paints a picture in the screen's pixels, whose top left shows the placement's pixel `corner`, with doneSteps
    /// steps done. Paints missing tiles for that many milliseconds, at least one; the rest is left out.
    /// @return whether nothing was left out
    bool Paint(QPainter& painter, QPoint corner, QSize size, size_t doneSteps, int milliseconds);

private:
    /// A step's rectangle, mm; rounded to float, so searches use a margin.
    struct Box
    {
        float left, top, right, bottom;
    };
    struct Tile
    {
        QImage waiting, done;             ///< done is null while no step is done
        std::vector<std::uint32_t> steps; ///< indices of the steps that touch the tile
        size_t painted = 0;               ///< number of steps painted in done
        std::vector<QImage> marks;        ///< copies of done after m_perMark, 2 m_perMark, … steps
    };

    JobPlacement PlacementOf(QPoint place) const;
    std::vector<std::uint32_t> StepsIn(const QRectF& pixels) const;
    void PaintWaiting(Tile& tile, QPoint place);
    void PaintDone(Tile& tile, QPoint place, size_t count);
    void PaintOn(Tile& tile, QPoint place, size_t end);
    void DropBeyond(const QRect& places);

    std::shared_ptr<const MadeJob> m_job;
    std::shared_ptr<const MadeJob> m_boxed; ///< the job of m_boxes
    std::vector<Box> m_boxes;               ///< of the job's steps
    QRectF m_bed;
    JobPlacement m_placement;
    double m_density = 0;
    size_t m_perMark = 0;
    std::map<std::pair<int, int>, Tile> m_tiles; ///< by column and row
};
