/// JobTiles, a job painted in tiles that are kept, so that a frame costs what is new in it.
#pragma once

#include "job/JobPainting.h"

#include <QImage>
#include <QPoint>

#include <cstdint>
#include <map>
#include <memory>
#include <vector>

/// Two layers lie over each other: the sheet with what is to come, and what is done. Each tile knows the steps that
/// touch it, so panning paints the tiles that come in and time moves those in which something changes. Every so many
/// steps a tile keeps how it looked (a mark): going back begins at the mark before.
class JobTiles
{
public:
    /// Forgets all tiles. The job (null: the empty bed) lies as placement says, on a screen of so many pixels of its
    /// own for each of the widget's (density).
    void Begin(std::shared_ptr<const MadeJob> job, const QRectF& bed, const JobPlacement& placement, double density);
    /// To be called before Begin, and after the palette has changed, for a job's picture of rows.
    bool HasBegun() const { return m_density > 0; }
    /// All tiles are void until Begin.
    void End() { m_density = 0; }

    /// Paints a picture of the screen's own pixels whose corner shows the placement's pixel `corner`, with as many
    /// steps done. Tiles that are missing are painted for so long (ms), at least one of them; the rest is left out.
    /// @return whether nothing was left out
    bool Paint(QPainter& painter, QPoint corner, QSize size, size_t doneSteps, int milliseconds);

private:
    /// A step's rectangle, mm; rounded, so it is taken a little larger.
    struct Box
    {
        float left, top, right, bottom;
    };
    struct Tile
    {
        QImage waiting, done;             ///< done is null before anything is
        std::vector<std::uint32_t> steps; ///< that touch the tile
        size_t painted = 0;               ///< of steps, in done
        std::vector<QImage> marks;        ///< done behind one, two, … times so many steps
    };

    JobPlacement PlacementOf(QPoint place) const;
    std::vector<std::uint32_t> StepsIn(const QRectF& pixels) const;
    void PaintWaiting(Tile& tile, QPoint place);
    void PaintDone(Tile& tile, QPoint place, size_t count);
    void PaintOn(Tile& tile, QPoint place, size_t end);
    void DropBeyond(const QRect& places);

    std::shared_ptr<const MadeJob> m_job;
    std::shared_ptr<const MadeJob> m_boxed; ///< the job whose boxes these are
    std::vector<Box> m_boxes;               ///< of the job's steps
    QRectF m_bed;
    JobPlacement m_placement;
    double m_density = 0;
    size_t m_perMark = 0;
    std::map<std::pair<int, int>, Tile> m_tiles; ///< by column and row
};
