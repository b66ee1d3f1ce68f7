/// Painting what G-code burns.
#pragma once

#include "shapedocument_export.h"

#include <QRectF>
#include <QString>

#include <map>

class QIODevice;
class QPainter;

namespace shapedocument {

/// What G-code burns, as far as it is needed to draw it.
struct GcodeTrace
{
    QRectF rect;                       ///< mm, around all that is burned; null when nothing is
    double mostPower = 0;              ///< the highest S word that anything is burned with
    std::map<QString, size_t> ignored; ///< words that were not obeyed, see GcodeMoves
};

/// Runs through the G-code from its begin; the device can be sought. Cost: O(moves).
SHAPEDOCUMENT_EXPORT GcodeTrace TraceGcode(QIODevice& device);

/// Draws what is burned as wide as the beam (mm), black where trace.mostPower burns and lighter where less does; what
/// is burned twice shows the darker. y goes up in the G-code, down in the drawing. Cost: O(moves).
SHAPEDOCUMENT_EXPORT void DrawGcode(QPainter& painter, QIODevice& device, const GcodeTrace& trace, double beam);

} // namespace shapedocument
