/// Painting a job as far as the head has come.
#pragma once

#include "job/MadeJob.h"

#include <QTransform>

class QPainter;

/// Whether steps are still to come or done.
enum class StepLook
{
    Waiting, ///< faint, without travel
    Done     ///< as they are burned
};

/// How a job lies on the screen.
struct JobPlacement
{
    QTransform toPixels;     ///< from mm; scales and moves only
    QRectF visible;          ///< pixels; what lies outside is left out
    bool showsTravel = true; ///< dashed lines where the head goes without burning
    QImage rows = {};        ///< of RowsInColor
};

/// The bed with a grid whose lines are never closer than a few pixels.
void PaintSheet(QPainter& painter, const QRectF& bed, const JobPlacement& placement);

/// What the job engraves, as it is seen on the bed: what burns most is farthest from the bed's own colour.
QImage RowsInColor(const MadeJob& job);

/// Steps from begin up to, not including, end. Cost: O(points in the visible part, and steps).
void PaintSteps(QPainter& painter, const MadeJob& job, const JobPlacement& placement, size_t begin, size_t end,
                StepLook look);

/// What is done of the step that the head is at.
void PaintStepAtWork(QPainter& painter, const MadeJob& job, const JobPlacement& placement, const HeadPlace& head);

/// The head.
void PaintHead(QPainter& painter, QPointF pixel);

/// A ring around a place of a finding.
void PaintMark(QPainter& painter, const QRectF& pixels);
