#include "svg/CutStretches.h"

#include "geometry/Geometry.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <unordered_map>

namespace shapedocument::drawing {

using shapes::PointDistance;

namespace {

constexpr double kJoint = 1e-3; ///< mm; ends this near to each other are one point

bool IsShort(const CubicPiece& part)
{
    const QRectF size = part.Bounds();
    return size.width() + size.height() < kShortestPart;
}

void AppendPart(std::vector<Run>& runs, const CubicPiece& part, bool goesOn, size_t subPath, bool fromStart)
{
    if (IsShort(part))
        return;
    if (!goesOn || runs.empty() || runs.back().subPath != subPath)
        runs.push_back({{}, subPath, fromStart, false});
    runs.back().pieces.push_back(part);
}

/// Finds the runs with pieces that start or end at a place.
class RunEnds
{
public:
    explicit RunEnds(std::vector<Run>& runs) : m_runs(runs)
    {
        for (size_t i = 0; i < runs.size(); ++i)
            for (const QPointF end : {runs[i].Start(), runs[i].End()})
                m_cells[CellOf(end, 0, 0)].runs.push_back(i);
    }

    /// The first such run in the list; null for none.
    Run* FirstAt(QPointF place)
    {
        size_t first = m_runs.size();
        for (const int right : {-1, 0, 1})
            for (const int down : {-1, 0, 1})
                if (const auto cell = m_cells.find(CellOf(place, right, down)); cell != m_cells.end())
                    first = std::min(first, FirstIn(cell->second, place));
        return first < m_runs.size() ? &m_runs[first] : nullptr;
    }

private:
    struct Cell
    {
        std::vector<size_t> runs;
        size_t done = 0; ///< number of leading runs without pieces
    };

    static uint64_t CellOf(QPointF at, int right, int down)
    {
        const auto number = [](double mm, int more) {
            return static_cast<uint64_t>(static_cast<int64_t>(std::floor(mm / kJoint)) + more);
        };
        return number(at.x(), right) << 32 ^ (number(at.y(), down) & 0xFFFFFFFF);
    }

    size_t FirstIn(Cell& cell, QPointF place) const
    {
        const auto isDone = [&](size_t run) { return m_runs[run].pieces.empty(); };
        while (cell.done < cell.runs.size() && isDone(cell.runs[cell.done]))
            ++cell.done;
        for (size_t i = cell.done; i < cell.runs.size(); ++i)
            if (const Run& run = m_runs[cell.runs[i]];
                !run.pieces.empty() &&
                (PointDistance(run.Start(), place) <= kJoint || PointDistance(run.End(), place) <= kJoint))
                return cell.runs[i];
        return m_runs.size();
    }

    std::vector<Run>& m_runs;
    std::unordered_map<uint64_t, Cell> m_cells; ///< cells of side kJoint; indices of their runs, ascending
};

void Append(QPainterPath& path, const Run& run)
{
    for (const CubicPiece& piece : run.pieces)
        piece.AppendTo(path);
}

} // namespace

void Run::Reverse()
{
    std::reverse(pieces.begin(), pieces.end());
    for (CubicPiece& piece : pieces)
        std::reverse(piece.points.begin(), piece.points.begin() + (piece.line ? 2 : 4));
}

Outline::Outline(const QPainterPath& path)
{
    ForEachPiece(path, [&](const CubicPiece& piece, bool first) {
        const Box box = Box::Of(piece.Bounds());
        if (first)
            subPaths.push_back({pieces.size(), pieces.size(), box});
        pieces.push_back(piece);
        boxes.push_back(box);
        subPaths.back().end = pieces.size();
        subPaths.back().around.Add(box);
    });
}

void Outline::AppendRuns(size_t subPath, const Cuts& cuts, std::vector<Run>& runs) const
{
    const size_t before = runs.size();
    const auto [begin, end, around] = subPaths[subPath];
    bool open = false; // the next piece continues the last run
    for (size_t i = begin; i < end; ++i) {
        const auto cut = cuts.find(i);
        std::vector<double> at = cut == cuts.end() ? std::vector<double>() : cut->second;
        at.push_back(1);
        std::sort(at.begin(), at.end());
        double from = 0;
        open = open && at.front() > 0;
        for (const double to : at) {
            AppendPart(runs, pieces[i].Between(from, to), open, subPath, i == begin && from == 0);
            open = false;
            from = to;
        }
        open = std::count(at.begin(), at.end(), 1.0) == 1;
    }
    if (runs.size() > before)
        runs.back().toEnd = true;
}

const CubicPiece* Outline::LongPieceOf(size_t subPath) const
{
    const auto end = pieces.begin() + static_cast<std::ptrdiff_t>(subPaths[subPath].end);
    const auto found =
        std::find_if_not(pieces.begin() + static_cast<std::ptrdiff_t>(subPaths[subPath].begin), end, IsShort);
    return found == end ? nullptr : &*found;
}

void JoinAtStarts(std::vector<Run>& runs)
{
    std::vector<Run> joined;
    joined.reserve(runs.size());
    for (size_t first = 0, last; first < runs.size(); first = last + 1) {
        last = first;
        while (last + 1 < runs.size() && runs[last + 1].subPath == runs[first].subPath)
            ++last;
        const bool meet = last > first && runs[first].fromStart && runs[last].toEnd &&
                          PointDistance(runs[last].End(), runs[first].Start()) <= kShortestPart;
        if (meet) {
            const std::vector<CubicPiece>& begin = runs[first].pieces;
            runs[last].pieces.insert(runs[last].pieces.end(), begin.begin(), begin.end());
        }
        for (size_t i = meet ? first + 1 : first; i <= last; ++i)
            joined.push_back(std::move(runs[i]));
    }
    runs = std::move(joined);
}

QPainterPath SeparateLines(const std::vector<Run>& runs)
{
    QPainterPath path;
    for (const Run& run : runs) {
        path.moveTo(run.Start());
        Append(path, run);
    }
    return path;
}

QPainterPath ChainedAreas(std::vector<Run> runs)
{
    QPainterPath path;
    RunEnds ends(runs);
    for (Run& run : runs) {
        if (run.pieces.empty())
            continue; // in the path already
        const QPointF start = run.Start();
        QPointF end = run.End();
        path.moveTo(start);
        Append(path, run);
        run.pieces.clear();
        while (PointDistance(end, start) > kJoint) {
            Run* next = ends.FirstAt(end);
            if (!next)
                break;
            if (PointDistance(next->Start(), end) > kJoint)
                next->Reverse();
            Append(path, *next);
            end = next->End();
            next->pieces.clear();
        }
        if (end != start)
            path.lineTo(start);
    }
    return path;
}

} // namespace shapedocument::drawing
