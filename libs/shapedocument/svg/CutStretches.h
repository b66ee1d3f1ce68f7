/// Splits an outline into runs between the points where it is cut.
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
    bool fromStart = false; ///< starts where the sub-path starts
    bool toEnd = false;

    QPointF Start() const { return pieces.front().points[0]; }
    QPointF End() const { return pieces.back().End(); }
    void Reverse();
};

/// Where pieces of an outline are cut: parameters in any order, by the piece's index.
using Cuts = std::map<size_t, std::vector<double>>;

/// An outline's pieces, sub-path by sub-path.
struct Outline
{
    struct SubPath
    {
        size_t begin, end; ///< indices of its pieces
        Box around;
    };
    std::vector<CubicPiece> pieces;
    std::vector<Box> boxes; ///< of the pieces
    std::vector<SubPath> subPaths;

    explicit Outline(const QPainterPath& path);
    void AppendRuns(size_t subPath, const Cuts& cuts, std::vector<Run>& runs) const;
    const CubicPiece* LongPieceOf(size_t subPath) const; ///< a piece longer than rounding; null for none
};

/// Joins the last run of each closed sub-path to its first one, unless it is cut at its start.
void JoinAtStarts(std::vector<Run>& runs);

/// One open sub-path for each run.
QPainterPath SeparateLines(const std::vector<Run>& runs);

/// Closed sub-paths: each run is followed by one that begins or ends where it ends.
QPainterPath ChainedAreas(std::vector<Run> runs);

} // namespace shapedocument::drawing
