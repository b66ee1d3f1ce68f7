/// Paints what G-code burns.
#pragma once

#include "shapedocument_export.h"

#include <QRectF>
#include <QString>

#include <map>

class QIODevice;
class QPainter;

namespace shapedocument {

/// Extent and power of what G-code burns, which drawing it needs.
struct GcodeTrace
{
    QRectF rect;                       ///< mm, around all that is burned; null when nothing is
    double mostPower = 0;              ///< the highest S word with which anything is burned
    std::map<QString, size_t> ignored; ///< words that were not understood, see GcodeMoves
};

/// Reads the G-code from its start; the device must not be sequential. Cost: O(moves).
SHAPEDOCUMENT_EXPORT GcodeTrace TraceGcode(QIODevice& device);

/// Draws what is burned as wide as the beam (mm), black where trace.mostPower burns and lighter where less does; where
/// two burns overlap the darker one shows. The device must not be sequential. y goes up in the G-code, down in the
/// drawing. Cost: O(moves).
SHAPEDOCUMENT_EXPORT void DrawGcode(QPainter& painter, QIODevice& device, const GcodeTrace& trace, double beam);

} // namespace shapedocument
