/// Painting a job as far as the head has come.
#pragma once

#include "job/MadeJob.h"

#include <QTransform>

#include <cstdint>
#include <span>

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

/// What the job engraves, as it is seen on the bed: what burns most is farthest from the bed's own colour.
QImage RowsInColor(const MadeJob& job);

/// Steps by their ascending numbers; others between them do not matter where they are not visible. Waiting ones with
/// all rows of the job. Cost: O(points in the visible part, and steps).
void PaintSteps(QPainter& painter, const MadeJob& job, const JobPlacement& placement,
                std::span<const std::uint32_t> steps, StepLook look);

/// What is done of the step that the head is at.
void PaintStepAtWork(QPainter& painter, const MadeJob& job, const JobPlacement& placement, const HeadPlace& head);

/// The head.
void PaintHead(QPainter& painter, QPointF pixel);

/// A ring around a place of a finding.
void PaintMark(QPainter& painter, const QRectF& pixels);
