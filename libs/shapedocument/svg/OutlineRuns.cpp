#include "svg/OutlineRuns.h"

#include <algorithm>
#include <cmath>

namespace shapedocument::drawing {

namespace {

constexpr double kJoint = 1e-3; ///< mm; ends this near to each other are one point

double Distance(QPointF a, QPointF b)
{
    return std::hypot(a.x() - b.x(), a.y() - b.y());
}

void CloseSubPath(std::vector<Run>& runs)
{
    if (!runs.empty())
        runs.back().toEnd = true;
}

void AppendPart(std::vector<Run>& runs, const CubicPiece& part, bool goesOn, size_t subPath, bool fromStart)
{
    const QRectF size = part.Bounds();
    if (size.width() + size.height() < kShortestPart)
        return;
    if (!goesOn || runs.empty() || runs.back().subPath != subPath)
        runs.push_back({{}, subPath, fromStart, false});
    runs.back().pieces.push_back(part);
}

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
        cuts.push_back({piece, first, piece.Bounds(), {}});
    });
}

std::vector<Run> Outline::Runs() const
{
    std::vector<Run> runs;
    size_t subPath = 0;
    bool open = false; // the last run goes on
    for (const Cut& cut : cuts) {
        if (cut.first) {
            CloseSubPath(runs);
            ++subPath;
            open = false;
        }
        std::vector<double> at = cut.at;
        at.push_back(1);
        std::sort(at.begin(), at.end());
        double from = 0;
        open = open && at.front() > 0;
        for (const double to : at) {
            AppendPart(runs, cut.piece.Between(from, to), open, subPath, cut.first && from == 0);
            open = false;
            from = to;
        }
        open = std::count(at.begin(), at.end(), 1.0) == 1;
    }
    CloseSubPath(runs);
    return runs;
}

void JoinAtStarts(std::vector<Run>& runs)
{
    for (size_t first = 0, last; first < runs.size(); first = last + 1) {
        last = first;
        while (last + 1 < runs.size() && runs[last + 1].subPath == runs[first].subPath)
            ++last;
        if (last == first || !runs[first].fromStart || !runs[last].toEnd ||
            Distance(runs[last].End(), runs[first].Start()) > kShortestPart)
            continue;
        std::vector<CubicPiece>& joined = runs[last].pieces;
        joined.insert(joined.end(), runs[first].pieces.begin(), runs[first].pieces.end());
        runs.erase(runs.begin() + static_cast<std::ptrdiff_t>(first));
        --last;
    }
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
    while (!runs.empty()) {
        const Run run = std::move(runs.front());
        runs.erase(runs.begin());
        const QPointF start = run.Start();
        path.moveTo(start);
        Append(path, run);
        QPointF end = run.End();
        while (Distance(end, start) > kJoint) {
            const auto next = std::find_if(runs.begin(), runs.end(), [&](const Run& other) {
                return Distance(other.Start(), end) <= kJoint || Distance(other.End(), end) <= kJoint;
            });
            if (next == runs.end())
                break;
            if (Distance(next->Start(), end) > kJoint)
                next->Reverse();
            Append(path, *next);
            end = next->End();
            runs.erase(next);
        }
        if (end != start)
            path.lineTo(start);
    }
    return path;
}

} // namespace shapedocument::drawing
