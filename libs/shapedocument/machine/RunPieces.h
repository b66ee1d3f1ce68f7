/// Cuts runs into straight pieces for the search for doubled lines.
#pragma once

#include "machine/Bulge.h"
#include "machine/RunPart.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace shapedocument {

/// mm between an arc and the chords that stand for it.
constexpr double kArcChords = 0.002;

/// Calls take(piece, begin, part) with the straight pieces of a run, none longer than most (mm), with the place where
/// each starts, and its length as a part of its segment.
template <class Take>
void ForEachPiece(std::span<const JobPoint> run, double most, Take take)
{
    for (size_t segment = 0; segment + 1 < run.size(); ++segment) {
        const QPointF from = run[segment].point, to = run[segment + 1].point;
        const double bulge = run[segment].bulge;
        const double chords = ChordCount(from, to, bulge, kArcChords);
        const double count = std::max(chords, std::ceil(SegmentLength(from, to, bulge) / most));
        QPointF begin = from;
        for (double i = 0; i < count; ++i) {
            const QPointF end = PointOnSegment(from, to, bulge, (i + 1) / count);
            take(QLineF(begin, end), RunPlace{segment, i / count}, 1 / count);
            begin = end;
        }
    }
}

} // namespace shapedocument
