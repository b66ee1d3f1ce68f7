#include "fit/PathNodes.h"

#include "geometry/Geometry.h"
#include "geometry/PathSteps.h"

#include <algorithm>
#include <cmath>

namespace shapedocument {

using shapes::PathStep, shapes::PathSteps, shapes::PointDistance;

namespace {

/// A straight piece or a cubic.
struct Piece
{
    QPointF from, control1, control2, to;
    bool curve = false;
    int element = 0; ///< index in the path, of its end

    QPointF At(double t) const
    {
        if (!curve)
            return from + (to - from) * t;
        const double s = 1 - t;
        return s * s * s * from + 3 * s * s * t * control1 + 3 * s * t * t * control2 + t * t * t * to;
    }
};

struct SubPath
{
    QPointF start;
    int element = 0; ///< of the path
    std::vector<Piece> pieces;

    bool Closed() const { return pieces.size() > 1 && pieces.back().to == start; }
};

/// The sub-paths. What a path begins with, if that is not a move, starts the first one.
std::vector<SubPath> SubPathsOf(const QPainterPath& path)
{
    std::vector<SubPath> subPaths;
    QPointF last;
    for (const PathStep& step : PathSteps(path)) {
        const QPointF end = step.End();
        if (step.IsMove() || subPaths.empty())
            subPaths.push_back({end, step.EndIndex(), {}});
        else if (step.IsCurve())
            subPaths.back().pieces.push_back({last, step.points[0], step.points[1], end, true, step.EndIndex()});
        else
            subPaths.back().pieces.push_back({last, last, end, end, false, step.EndIndex()});
        last = end;
    }
    return subPaths;
}

QPainterPath Joined(const std::vector<SubPath>& subPaths)
{
    QPainterPath path;
    for (const SubPath& subPath : subPaths) {
        if (subPath.pieces.empty())
            continue;
        path.moveTo(subPath.start);
        for (const Piece& piece : subPath.pieces)
            piece.curve ? path.cubicTo(piece.control1, piece.control2, piece.to) : path.lineTo(piece.to);
    }
    return path;
}

/// Parameter of the piece's nearest point: the best of evenly spaced samples, refined by ever smaller steps around it.
double NearestParameter(const Piece& piece, QPointF near)
{
    constexpr int kSamples = 32;
    constexpr double kFine = 1e-9;
    double best = 0;
    const auto tryAt = [&](double t) {
        if (t >= 0 && t <= 1 && PointDistance(piece.At(t), near) < PointDistance(piece.At(best), near))
            best = t;
    };
    for (int i = 1; i <= kSamples; ++i)
        tryAt(static_cast<double>(i) / kSamples);
    for (double step = 1.0 / kSamples; step > kFine; step /= 2) {
        tryAt(best - step);
        tryAt(best + step);
    }
    return best;
}

/// The piece in two at t, by de Casteljau's construction.
std::pair<Piece, Piece> Split(const Piece& piece, double t)
{
    const auto between = [t](QPointF a, QPointF b) { return a + (b - a) * t; };
    const QPointF middle = piece.At(t);
    if (!piece.curve)
        return {{piece.from, piece.from, middle, middle, false, 0}, {middle, middle, piece.to, piece.to, false, 0}};
    const QPointF a = between(piece.from, piece.control1), b = between(piece.control1, piece.control2),
                  c = between(piece.control2, piece.to);
    return {{piece.from, a, between(a, b), middle, true, 0}, {middle, between(b, c), c, piece.to, true, 0}};
}

/// One piece that replaces the two that meet at the point to be removed.
Piece Merged(const Piece& first, const Piece& second)
{
    const bool curve = first.curve || second.curve;
    return {first.from,
            first.curve ? first.control1 : first.from,
            second.curve ? second.control2 : second.to,
            second.to,
            curve,
            second.element};
}

void RemoveStart(SubPath& subPath)
{
    std::vector<Piece>& pieces = subPath.pieces;
    if (subPath.Closed()) {
        pieces.back() = Merged(pieces.back(), pieces.front());
        subPath.start = pieces.front().to;
        pieces.erase(pieces.begin());
    } else if (!pieces.empty()) {
        subPath.start = pieces.front().to;
        pieces.erase(pieces.begin());
    }
}

} // namespace

std::vector<PathNode> NodesOf(const QPainterPath& path)
{
    std::vector<PathNode> nodes;
    for (const SubPath& subPath : SubPathsOf(path)) {
        nodes.push_back({subPath.element, subPath.start, subPath.element, false});
        int before = subPath.element;
        for (size_t i = 0; i < subPath.pieces.size(); ++i) {
            const Piece& piece = subPath.pieces[i];
            const bool repeats = i + 1 == subPath.pieces.size() && subPath.Closed();
            const int anchor = repeats ? subPath.element : piece.element;
            if (piece.curve) {
                nodes.push_back({piece.element - 2, piece.control1, before, true});
                nodes.push_back({piece.element - 1, piece.control2, anchor, true});
            }
            if (!repeats)
                nodes.push_back({piece.element, piece.to, piece.element, false});
            before = piece.element;
        }
    }
    return nodes;
}

QPainterPath WithNodeMoved(const QPainterPath& path, int element, QPointF to)
{
    QPainterPath moved = path;
    if (element < 0 || element >= path.elementCount())
        return moved;
    const QPointF by = to - QPointF(path.elementAt(element));
    const auto move = [&](int i) {
        const QPointF at = path.elementAt(i);
        moved.setElementPositionAt(i, at.x() + by.x(), at.y() + by.y());
    };
    bool onOutline = false;
    for (const SubPath& subPath : SubPathsOf(path)) {
        const bool start = element == subPath.element;
        const bool ofRing = subPath.Closed() && (start || element == subPath.pieces.back().element);
        if (start || ofRing)
            move(subPath.element);
        onOutline = onOutline || start || ofRing;
        int before = subPath.element;
        for (const Piece& piece : subPath.pieces) {
            const bool leaves = before == element || (ofRing && before == subPath.element);
            const bool arrives = piece.element == element || (ofRing && &piece == &subPath.pieces.back());
            if (arrives)
                move(piece.element);
            if (piece.curve && leaves)
                move(piece.element - 2);
            if (piece.curve && arrives)
                move(piece.element - 1);
            onOutline = onOutline || arrives;
            before = piece.element;
        }
    }
    if (!onOutline)
        move(element);
    return moved;
}

QPainterPath WithNodeRemoved(const QPainterPath& path, int element)
{
    std::vector<SubPath> subPaths = SubPathsOf(path);
    for (SubPath& subPath : subPaths) {
        std::vector<Piece>& pieces = subPath.pieces;
        const auto piece =
            std::find_if(pieces.begin(), pieces.end(), [&](const Piece& p) { return p.element == element; });
        const bool last = piece != pieces.end() && piece + 1 == pieces.end();
        if (element == subPath.element || (last && subPath.Closed())) {
            RemoveStart(subPath);
        } else if (last) {
            pieces.pop_back();
        } else if (piece != pieces.end()) {
            *(piece + 1) = Merged(*piece, *(piece + 1));
            pieces.erase(piece);
        }
    }
    return Joined(subPaths);
}

QPainterPath WithNodeInserted(const QPainterPath& path, QPointF near, double reach)
{
    std::vector<SubPath> subPaths = SubPathsOf(path);
    std::vector<Piece>* home = nullptr;
    size_t place = 0;
    double best = reach, at = 0;
    for (SubPath& subPath : subPaths) {
        for (size_t i = 0; i < subPath.pieces.size(); ++i) {
            const double t = NearestParameter(subPath.pieces[i], near);
            const double distance = PointDistance(subPath.pieces[i].At(t), near);
            if (distance > best || t <= 0 || t >= 1)
                continue;
            best = distance;
            at = t;
            home = &subPath.pieces;
            place = i;
        }
    }
    if (!home)
        return path;
    const auto [first, second] = Split((*home)[place], at);
    (*home)[place] = second;
    home->insert(home->begin() + static_cast<std::ptrdiff_t>(place), first);
    return Joined(subPaths);
}

} // namespace shapedocument
