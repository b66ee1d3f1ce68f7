/// Lines that have been kept, found again by place.
#pragma once

#include <QLineF>
#include <QRectF>

#include <cstdint>
#include <unordered_map>
#include <vector>

namespace shapedocument {

/// A part of a line, from 0 to 1.
struct LinePart
{
    double begin, end;
};

/// An index of straight pieces by colour, place and direction.
class KeptLines
{
public:
    /// For so many pieces inside rect (mm), none longer than most (mm).
    KeptLines(const QRectF& rect, double most, size_t pieces);

    void Add(unsigned int color, const QLineF& piece);

    /// Appends the parts of a piece beside which lines of its colour have been kept: nearer than kDoubled and in about
    /// the same direction or the opposite one. In any order, they may overlap. Finds nothing any more once it has
    /// looked at so many lines that it would take too long.
    void AppendCovered(unsigned int color, const QLineF& piece, std::vector<LinePart>& parts);

    bool HasGivenUp() const { return m_gaveUp; }

private:
    struct Place
    {
        int32_t x, y;
    };
    struct Piece
    {
        Place from, to;
        uint32_t next; ///< the piece of the same cell that came before, or kNone
    };
    static constexpr uint32_t kNone = UINT32_MAX;

    Place Packed(QPointF point) const;
    QPointF Unpacked(Place place) const;
    bool AppendOfCell(uint64_t key, const QLineF& piece, std::vector<LinePart>& parts);

    QPointF m_origin;
    double m_unit;      ///< mm, of the packed coordinates
    double m_cell;      ///< mm
    size_t m_looksLeft; ///< at a piece beside another
    bool m_gaveUp = false;
    std::vector<Piece> m_pieces;
    std::unordered_map<uint64_t, uint32_t> m_cells; ///< last piece of each cell, by its middle
};

/// mm: lines nearer to each other than this lie on each other. Two that are as far apart are a hatch.
constexpr double kDoubled = 0.02;

/// mm: into how long pieces lines are cut, of a length in total (mm).
double MostPieceLength(double length);

/// Whether KeptLines may find a piece covered by another one or by a part of that.
bool MayLieOn(const QLineF& piece, const QLineF& other);

/// A number for a cell of a grid, for one colour. Others hardly ever have the same.
uint64_t CellKey(unsigned int color, double column, double row, unsigned int direction);

} // namespace shapedocument
