#include "machine/EndPairs.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace shapedocument {

namespace {

/// Pairs are sought within a tiny distance first, then within four times as much, up to the tolerance. As no two ends
/// that could be paired are left within a quarter of a distance, few lie within the distance itself.
constexpr int kRounds = 10;

class EndPairing
{
public:
    EndPairing(const std::vector<RunEnd>& ends, const std::vector<bool>& mayClose)
        : m_ends(ends), m_mayClose(mayClose), m_partners(ends.size(), kNoPartner)
    {
        m_open.resize(ends.size());
        for (uint32_t i = 0; i < m_open.size(); ++i)
            m_open[i] = i;
    }

    /// Pairs ends that share a cell of a tiny size (mm), in the order of their places and runs.
    void PairSame(double size)
    {
        FillCells(size);
        for (size_t i = 0; i + 1 < m_cells.size(); ++i) {
            const Cell &a = m_cells[i], &b = m_cells[i + 1];
            if (Key(a) == Key(b) && MayPair(a.end, b.end)) {
                Pair(a.end, b.end);
                ++i;
            }
        }
        DropPaired();
    }

    void PairWithin(double distance, const std::function<void()>& ask)
    {
        FillCells(distance);
        std::vector<Candidate> candidates;
        for (size_t i = 0; i < m_cells.size(); ++i) {
            ask();
            AddCandidates(i, distance, candidates);
        }
        std::sort(candidates.begin(), candidates.end());
        for (const auto& [apart, between, a, b] : candidates) {
            if (m_partners[a] == kNoPartner && m_partners[b] == kNoPartner)
                Pair(a, b);
        }
        DropPaired();
    }

    std::vector<uint32_t> Extract() { return std::move(m_partners); }

private:
    struct Cell
    {
        unsigned int color;
        double row, column;
        uint32_t end;
    };
    using Candidate = std::tuple<double, uint32_t, uint32_t, uint32_t>; // mm apart, runs between, ends

    std::tuple<double, double, uint32_t> Place(uint32_t end) const
    {
        return {m_ends[end].point.y(), m_ends[end].point.x(), end};
    }

    static std::tuple<unsigned int, double, double> Key(const Cell& cell)
    {
        return {cell.color, cell.row, cell.column};
    }

    bool MayPair(uint32_t a, uint32_t b) const { return m_ends[a].run != m_ends[b].run || m_mayClose[m_ends[a].run]; }

    void Pair(uint32_t a, uint32_t b)
    {
        m_partners[a] = b;
        m_partners[b] = a;
    }

    void DropPaired()
    {
        std::erase_if(m_open, [this](uint32_t end) { return m_partners[end] != kNoPartner; });
    }

    void FillCells(double size)
    {
        m_cells.clear();
        for (const uint32_t end : m_open) {
            const RunEnd& e = m_ends[end];
            m_cells.push_back({e.color, std::floor(e.point.y() / size), std::floor(e.point.x() / size), end});
        }
        std::sort(m_cells.begin(), m_cells.end(), [this](const Cell& a, const Cell& b) {
            return std::tuple_cat(Key(a), Place(a.end)) < std::tuple_cat(Key(b), Place(b.end));
        });
    }

    /// Pairs the end with those behind it in its own cell, in the next cell of the row, and in three cells of the next
    /// row.
    void AddCandidates(size_t index, double distance, std::vector<Candidate>& candidates) const
    {
        const Cell& cell = m_cells[index];
        size_t other = index + 1;
        for (; other < m_cells.size() && IsWithin(m_cells[other], cell, 0, 1); ++other)
            AddCandidate(cell.end, m_cells[other].end, distance, candidates);
        const Cell first{cell.color, cell.row + 1, cell.column - 1, 0};
        const auto begin = m_cells.begin() + static_cast<std::ptrdiff_t>(other);
        auto below =
            std::lower_bound(begin, m_cells.end(), first, [](const Cell& a, const Cell& b) { return Key(a) < Key(b); });
        for (; below != m_cells.end() && IsWithin(*below, cell, 1, 1); ++below)
            AddCandidate(cell.end, below->end, distance, candidates);
    }

    static bool IsWithin(const Cell& cell, const Cell& of, double row, double columns)
    {
        return cell.color == of.color && cell.row == of.row + row && cell.column <= of.column + columns;
    }

    void AddCandidate(uint32_t a, uint32_t b, double distance, std::vector<Candidate>& candidates) const
    {
        const QPointF way = m_ends[a].point - m_ends[b].point;
        const double apart = std::hypot(way.x(), way.y());
        const auto [low, high] = std::minmax(m_ends[a].run, m_ends[b].run);
        if (apart <= distance && MayPair(a, b))
            candidates.emplace_back(apart, high - low, a, b);
    }

    const std::vector<RunEnd>& m_ends;
    const std::vector<bool>& m_mayClose;
    std::vector<uint32_t> m_partners;
    std::vector<uint32_t> m_open; ///< ends without a partner
    std::vector<Cell> m_cells;
};

} // namespace

std::vector<uint32_t> PairEnds(const std::vector<RunEnd>& ends, const std::vector<bool>& mayClose, double tolerance,
                               const std::function<void()>& ask)
{
    EndPairing pairing(ends, mayClose);
    pairing.PairSame(std::ldexp(tolerance, -2 * kRounds));
    for (int round = kRounds; round >= 0; --round)
        pairing.PairWithin(std::ldexp(tolerance, -2 * round), ask);
    return pairing.Extract();
}

} // namespace shapedocument
