/// Paints a job up to the place of the head.
#pragma once

#include "job/MadeJob.h"

#include <QTransform>

#include <cstdint>
#include <span>

class QPainter;

/// How steps are painted.
enum class StepLook
{
    Waiting, ///< still to come: faint, without travel
    Done     ///< in full colour
};

/// How a job lies on the screen.
struct JobPlacement
{
    QTransform toPixels;     ///< from mm; only scales and translations
    QRectF visible;          ///< pixels; steps outside may be left out
    bool showsTravel = true; ///< moves without burning are dashed lines
    QImage rows = {};        ///< the result of RowsInColor
};

/// The job's engraving as seen on the bed. With the dark palette outlines that are filled are light; pictures burn in
/// black, on cards that PaintSteps paints.
QImage RowsInColor(const MadeJob& job);

/// Paints steps, given by ascending indices, which must include all visible ones of their range. Waiting steps are
/// painted with all rows of the job, and the cards of its pictures. Cost: O(points in the visible part, and steps).
void PaintSteps(QPainter& painter, const MadeJob& job, const JobPlacement& placement,
                std::span<const std::uint32_t> steps, StepLook look);

/// Paints the done part of the step at which the head is.
void PaintStepAtWork(QPainter& painter, const MadeJob& job, const JobPlacement& placement, const HeadPlace& head);

/// Paints the head.
void PaintHead(QPainter& painter, QPointF pixel);

/// Paints a ring around the place of a finding.
void PaintMark(QPainter& painter, const QRectF& pixels);
