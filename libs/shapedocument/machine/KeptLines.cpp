#include "machine/KeptLines.h"

#include "geometry/Geometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace shapedocument {

using shapes::Cross;

namespace {

constexpr double kShortestCell = 2.5; ///< mm
constexpr double kMostPieces = 1e6;   ///< into which long lines are cut
constexpr double kLong = 1.25;        ///< mm: pieces of this length or more are filed by direction, too
constexpr size_t kLooks = 20'000'000; ///< comparisons, about a second; in addition kLooksOfPiece for each piece
constexpr size_t kLooksOfPiece = 100; ///< ordinary drawings need fewer
constexpr unsigned int kDirections = 32;
constexpr unsigned int kAnyDirection = kDirections;
constexpr double kNearlyWhole = 1e-5;    ///< part of a piece that packing the coordinates may cut off
constexpr double kRoundedOverlap = 1e-9; ///< mm: overlap that rounding leaves where pieces meet at their ends
constexpr double kTouch = 1e-6; ///< mm less than kDoubled, so that rounding does not make a hatch doubled lines

/// Sine of the largest angle between two pieces that may lie on each other: that of 1 mm within kDoubled on either
/// side, or that between two chords of one curve, as each follows it within the tolerance of runs.
double MostSine(double longer)
{
    constexpr double kAlong = 0.04, kCurve = 0.1; // mm
    return std::max(kAlong, std::min(1.0, kCurve / longer));
}

unsigned int DirectionOf(const QLineF& piece)
{
    if (piece.length() < kLong)
        return kAnyDirection;
    // 0 to 2; times kDirections and modulo kDirections opposite directions are equal
    const double half = std::atan2(piece.dy(), piece.dx()) / std::numbers::pi + 1;
    return static_cast<unsigned int>(half * kDirections) % kDirections;
}

/// Narrows the part to where begin + t * slope lies between low and high.
void Narrow(LinePart& part, double begin, double slope, double low, double high)
{
    if (slope == 0) {
        if (begin < low || begin > high)
            part.end = part.begin - 1;
        return;
    }
    const double one = (low - begin) / slope, other = (high - begin) / slope;
    part.begin = std::max(part.begin, std::min(one, other));
    part.end = std::min(part.end, std::max(one, other));
}

/// The part of a piece no farther than apart (mm) from a line; where there is none, one whose end is before its start.
LinePart PartBeside(const QLineF& piece, const QLineF& line, double apart, double mostSine)
{
    const QPointF along(piece.dx(), piece.dy()), direction(line.dx(), line.dy());
    const double length = line.length();
    LinePart part{0, 1};
    if (length == 0 || std::abs(Cross(along, direction)) > mostSine * length * piece.length())
        return {1, 0};
    const QPointF way = piece.p1() - line.p1();
    Narrow(part, Cross(direction, way) / length, Cross(direction, along) / length, -apart, apart);
    Narrow(part, QPointF::dotProduct(direction, way) / length, QPointF::dotProduct(direction, along) / length, 0,
           length);
    return part;
}

} // namespace

double MostPieceLength(double length)
{
    return std::max(kShortestCell, length / kMostPieces);
}

/// Compares with the piece's own greatest angle: a part of other may lie at a greater angle than the whole.
bool MayLieOn(const QLineF& piece, const QLineF& other)
{
    const QPointF along(piece.dx(), piece.dy());
    const double one = Cross(along, other.p1() - piece.p1()), two = Cross(along, other.p2() - piece.p1());
    const double nearest = one * two > 0 ? std::min(std::abs(one), std::abs(two)) : 0;
    if (nearest * nearest > kDoubled * kDoubled * QPointF::dotProduct(along, along))
        return false; // all of it lies on one side, too far off
    const double length = piece.length();
    const LinePart part = PartBeside(piece, other, kDoubled, MostSine(length));
    return (part.end - part.begin) * length > kRoundedOverlap;
}

KeptLines::KeptLines(const QRectF& rect, double most, size_t pieces)
    : m_origin(rect.center()), m_unit(std::max({rect.width(), rect.height(), 1.0}) / INT32_MAX), m_cell(most),
      m_looksLeft(kLooks + kLooksOfPiece * pieces)
{}

uint64_t CellKey(unsigned int color, double column, double row, unsigned int direction)
{
    uint64_t key = 0;
    for (const uint64_t part : {uint64_t{color}, static_cast<uint64_t>(static_cast<int64_t>(column)),
                                static_cast<uint64_t>(static_cast<int64_t>(row)), uint64_t{direction}}) {
        key = (key ^ part) * 0x9E3779B97F4A7C15u; // the golden ratio: Fibonacci hashing
        key ^= key >> 29;
    }
    return key;
}

KeptLines::Place KeptLines::Packed(QPointF point) const
{
    const QPointF way = (point - m_origin) / m_unit;
    return {static_cast<int32_t>(std::lround(way.x())), static_cast<int32_t>(std::lround(way.y()))};
}

QPointF KeptLines::Unpacked(Place place) const
{
    return m_origin + QPointF(place.x, place.y) * m_unit;
}

void KeptLines::Add(unsigned int color, const QLineF& piece)
{
    const QPointF middle = piece.center() - m_origin;
    const uint64_t key =
        CellKey(color, std::floor(middle.x() / m_cell), std::floor(middle.y() / m_cell), DirectionOf(piece));
    const auto [cell, fresh] = m_cells.try_emplace(key, kNone);
    m_pieces.push_back({Packed(piece.p1()), Packed(piece.p2()), cell->second, color});
    cell->second = static_cast<uint32_t>(m_pieces.size() - 1);
}

void KeptLines::AppendCovered(unsigned int color, const QLineF& piece, std::vector<LinePart>& parts)
{
    if (m_gaveUp)
        return;
    const QPointF from = piece.p1() - m_origin, to = piece.p2() - m_origin;
    const double beyond = m_cell / 2 + kDoubled; // the middle of a piece that covers it may lie this far away
    const double left = std::floor((std::min(from.x(), to.x()) - beyond) / m_cell);
    const double right = std::floor((std::max(from.x(), to.x()) + beyond) / m_cell);
    const double top = std::floor((std::min(from.y(), to.y()) - beyond) / m_cell);
    const double bottom = std::floor((std::max(from.y(), to.y()) + beyond) / m_cell);
    const double turn = std::atan2(piece.dy(), piece.dx()) / std::numbers::pi + 1;
    const auto direction = static_cast<unsigned int>(turn * kDirections);
    for (double row = top; row <= bottom; ++row) {
        for (double column = left; column <= right; ++column) {
            for (unsigned int beside : {kDirections - 1, 0u, 1u})
                if (!AppendOfCell(CellKey(color, column, row, (direction + beside) % kDirections), color, piece, parts))
                    return;
            if (!AppendOfCell(CellKey(color, column, row, kAnyDirection), color, piece, parts))
                return;
        }
    }
}

/// Newest first: what covers a piece as a whole is mostly the line before it. Returns false when one does, or when the
/// budget is used up.
bool KeptLines::AppendOfCell(uint64_t key, unsigned int color, const QLineF& piece, std::vector<LinePart>& parts)
{
    const auto cell = m_cells.find(key);
    const QPointF along(piece.dx(), piece.dy());
    const double apart = kDoubled * piece.length();
    for (uint32_t i = cell == m_cells.end() ? kNone : cell->second; i != kNone; i = m_pieces[i].next) {
        m_gaveUp = m_gaveUp || m_looksLeft == 0;
        if (m_looksLeft == 0)
            return false;
        --m_looksLeft;
        if (m_pieces[i].color != color)
            continue;
        const QPointF from = Unpacked(m_pieces[i].from), to = Unpacked(m_pieces[i].to);
        const double one = Cross(along, from - piece.p1()), other = Cross(along, to - piece.p1());
        if (std::min(one, other) > apart || std::max(one, other) < -apart)
            continue; // all of it lies on one side, too far off
        const QLineF line(from, to);
        const double sine = MostSine(std::max(piece.length(), line.length()));
        const LinePart part = PartBeside(piece, line, kDoubled - kTouch, sine);
        if (part.begin < part.end)
            parts.push_back(part);
        if (part.begin < kNearlyWhole && part.end > 1 - kNearlyWhole)
            return false;
    }
    return true;
}

} // namespace shapedocument
