#include "svg/Dashes.h"

#include "svg/CubicPiece.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace shapedocument::drawing {

namespace {

constexpr double kMostDashes = 100'000; ///< limit for a path
constexpr double kShortestDash = 1e-12; ///< part of the path's length; shorter dashes would be dots

/// Walks a path piece by piece and draws where the pattern has a line.
class Dasher
{
public:
    Dasher(const std::vector<double>& lengths, double offset) : m_lengths(lengths), m_offset(offset) {}

    void Start()
    {
        m_index = 0;
        m_left = m_lengths[0];
        m_drawing = false;
        for (double rest = m_offset; rest > 0;) {
            const double step = std::min(rest, m_left);
            rest -= step;
            Advance(step);
        }
    }

    void Follow(const CubicPiece& piece)
    {
        const LengthTable table(piece);
        double done = 0;
        while (done < table.Total()) {
            const double end = std::min(done + m_left, table.Total());
            if (m_index % 2 == 0)
                Draw(piece.Between(table.ParameterAt(done), table.ParameterAt(end)));
            Advance(end > done ? end - done : m_left); // a remainder below rounding counts as done
            done = end;
        }
    }

    QPainterPath m_dashes;

private:
    void Advance(double step)
    {
        m_left -= step;
        if (m_left > 0)
            return;
        m_index = (m_index + 1) % m_lengths.size();
        m_left = m_lengths[m_index];
        m_drawing = false;
    }

    void Draw(const CubicPiece& piece)
    {
        if (!m_drawing)
            m_dashes.moveTo(piece.points[0]);
        m_drawing = true;
        piece.AppendTo(m_dashes);
    }

    const std::vector<double>& m_lengths;
    double m_offset;
    size_t m_index = 0; ///< of the line or gap that is being followed
    double m_left = 0;  ///< of its length, still to be followed
    bool m_drawing = false;
};

} // namespace

bool CutIntoDashes(QPainterPath& path, std::vector<double> lengths, double offset)
{
    if (lengths.size() % 2 == 1)
        lengths.insert(lengths.end(), lengths.begin(), lengths.end());
    const double period = std::accumulate(lengths.begin(), lengths.end(), 0.0);
    const double whole = path.length();
    if (lengths.empty() || !(period > 0) || !(whole / period * static_cast<double>(lengths.size()) < kMostDashes))
        return false;
    for (size_t i = 0; i < lengths.size(); ++i)
        if (lengths[i] < 0 || (i % 2 == 0 && lengths[i] <= whole * kShortestDash))
            return false;
    offset = std::fmod(offset, period);
    Dasher dasher(lengths, offset < 0 ? offset + period : offset);
    ForEachPiece(path, [&](const CubicPiece& piece, bool first) {
        if (first)
            dasher.Start();
        dasher.Follow(piece);
    });
    path = dasher.m_dashes;
    return true;
}

} // namespace shapedocument::drawing
