/// An outline as stretches between the points where it is cut.
#pragma once

#include "plane/BoxTree.h"
#include "svg/CubicPiece.h"

#include <map>
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

/// Where the pieces of an outline are cut, by their numbers: parameters, in any order.
using Cuts = std::map<size_t, std::vector<double>>;

/// An outline's pieces, sub-path by sub-path.
struct Outline
{
    struct SubPath
    {
        size_t begin, end; ///< of its pieces
        Box around;
    };
    std::vector<CubicPiece> pieces;
    std::vector<Box> boxes; ///< of the pieces
    std::vector<SubPath> subPaths;

    explicit Outline(const QPainterPath& path);
    void AppendRuns(size_t subPath, const Cuts& cuts, std::vector<Run>& runs) const;
    const CubicPiece* LongPieceOf(size_t subPath) const; ///< one that is no rounding; null for none
};

/// Makes one run of the last and the first of each closed sub-path that is not cut where it begins.
void JoinAtStarts(std::vector<Run>& runs);

/// One open sub-path for each run.
QPainterPath SeparateLines(const std::vector<Run>& runs);

/// Closed sub-paths: each run is followed by one that begins or ends where it ends.
QPainterPath ChainedAreas(std::vector<Run> runs);

} // namespace shapedocument::drawing
