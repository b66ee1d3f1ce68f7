/// An index of the lines kept so far, to find what lies on them.
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
    /// For that many pieces inside rect (mm), none longer than most (mm).
    KeptLines(const QRectF& rect, double most, size_t pieces);

    void Add(unsigned int color, const QLineF& piece);

    /// Appends the parts of a piece beside which lines of its colour have been kept: nearer than kDoubled and in about
    /// the same direction or the opposite one. The parts are in any order and may overlap. Finds nothing after a fixed
    /// number of comparisons, see HasGivenUp.
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
        uint32_t next;      ///< the piece of the same cell that came before, or kNone
        unsigned int color; ///< the cells of two colours may have the same key
    };
    static constexpr uint32_t kNone = UINT32_MAX;

    Place Packed(QPointF point) const;
    QPointF Unpacked(Place place) const;
    bool AppendOfCell(uint64_t key, unsigned int color, const QLineF& piece, std::vector<LinePart>& parts);

    QPointF m_origin;
    double m_unit;      ///< mm, of the packed coordinates
    double m_cell;      ///< mm
    size_t m_looksLeft; ///< budget of comparisons of two pieces
    bool m_gaveUp = false;
    std::vector<Piece> m_pieces;
    std::unordered_map<uint64_t, uint32_t> m_cells; ///< last piece of each cell, by its middle
};

/// mm: lines nearer to each other than this lie on each other. Lines exactly this far apart are a hatch.
constexpr double kDoubled = 0.02;

/// The length of the pieces (mm) into which lines of that total length (mm) are cut.
double MostPieceLength(double length);

/// Whether KeptLines may find piece covered by other or by a part of it; true in doubt.
bool MayLieOn(const QLineF& piece, const QLineF& other);

/// A hash of a grid's cell, colour and direction. Pieces of other cells, colours and directions may have it, too: who
/// finds a piece by it compares these.
uint64_t CellKey(unsigned int color, double column, double row, unsigned int direction);

} // namespace shapedocument
