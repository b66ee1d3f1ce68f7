/// An outline as stretches between the points where it is cut.
#pragma once

#include "svg/CubicPiece.h"

#include <QRectF>

#include <vector>

namespace shapedocument::drawing {

/// Parts below this length are rounding; mm.
constexpr double kShortestPart = 2e-5;

/// A stretch of an outline between two cuts.
struct Run
{
    std::vector<CubicPiece> pieces;
    size_t subPath = 0;
    bool fromStart = false; ///< begins where the sub-path does
    bool toEnd = false;

    QPointF Start() const { return pieces.front().points[0]; }
    QPointF End() const { return pieces.back().End(); }
    void Reverse();
};

/// An outline's pieces with the parameters that they are cut at.
struct Outline
{
    struct Cut
    {
        CubicPiece piece;
        bool first;
        QRectF bounds;
        std::vector<double> at;
    };
    std::vector<Cut> cuts;

    explicit Outline(const QPainterPath& path);
    std::vector<Run> Runs() const;
};

/// Makes one run of the last and the first of each closed sub-path that is not cut where it begins.
void JoinAtStarts(std::vector<Run>& runs);

/// One open sub-path for each run.
QPainterPath SeparateLines(const std::vector<Run>& runs);

/// Closed sub-paths: each run is followed by one that begins or ends where it ends.
QPainterPath ChainedAreas(std::vector<Run> runs);

} // namespace shapedocument::drawing
