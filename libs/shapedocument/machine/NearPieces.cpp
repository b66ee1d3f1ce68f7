#include "machine/NearPieces.h"

#include "machine/KeptLines.h"
#include "machine/RunPieces.h"
#include "plane/BoxTree.h"

#include <array>

namespace shapedocument {

namespace {

constexpr size_t kSlices = 4096;        // of the height; a band is made of whole slices
constexpr double kCellsOfLongest = 8;   // cells along the longest piece
constexpr size_t kMostNeighbours = 100; // pieces in a cell; where there are more, all count as near
// mm around each of two pieces: more than half of the distance that they may have
constexpr double kSearchReach = kDoubled * 0.6;

class NearSearch
{
public:
    NearSearch(const MachineJob& job, double most, const WorkWatch& watch, size_t mostHeld)
        : m_reader(job), m_most(most), m_watch(watch), m_mostHeld(mostHeld), m_top(job.Rect().top()),
          m_slice(std::max(job.Rect().height() / kSlices, kSearchReach))
    {}

    std::vector<bool> Run()
    {
        Survey();
        size_t crossing = 0; // pieces that reach from one band into the next
        for (size_t begin = 0, end = 0; begin < kSlices; begin = end) {
            size_t begun = 0, ended = 0;
            do {
                begun += m_begins[end];
                ended += m_ends[end++];
            } while (end < kSlices && (begun < crossing || crossing + begun + m_begins[end] <= m_mostHeld));
            LookAtBand(begin, end);
            crossing += begun - ended;
        }
        return std::move(m_near);
    }

private:
    /// A cut and its place in the job.
    struct Cut
    {
        qint64 place;
        size_t firstPiece;
        unsigned int color;
        uint16_t firstSlice, lastSlice;
    };

    /// A piece in one of the cells that it reaches into.
    struct InCell
    {
        uint64_t cell;
        QLineF line;
        size_t piece;

        bool operator<(const InCell& other) const { return cell < other.cell; }
    };

    static Box ReachOf(const QLineF& line)
    {
        Box box = Box::Of(line.p1());
        box.Add(Box::Of(line.p2()));
        return box.Grown(kSearchReach);
    }

    uint16_t SliceOf(double y) const
    {
        return static_cast<uint16_t>(std::clamp((y - m_top) / m_slice, 0.0, double(kSlices - 1)));
    }

    /// Collects the places of the cuts and the lengths of their pieces.
    void Survey()
    {
        double length = 0;
        size_t pieces = 0;
        while (const auto path = m_reader.NextPath()) {
            if (path->kind != PathKind::Cut)
                continue;
            m_watch.Ask();
            Cut cut{m_reader.Place(), pieces, path->color, kSlices - 1, 0};
            ForEachPiece(m_reader.Run(), m_most, [&](const QLineF& line, RunPlace, double) {
                const Box reach = ReachOf(line);
                const uint16_t first = SliceOf(reach.top), last = SliceOf(reach.bottom);
                ++m_begins[first];
                ++m_ends[last];
                cut.firstSlice = std::min(cut.firstSlice, first);
                cut.lastSlice = std::max(cut.lastSlice, last);
                length += line.length();
                ++pieces;
            });
            m_cuts.push_back(cut);
        }
        m_near.resize(pieces);
        m_cell = std::max(length / static_cast<double>(std::max<size_t>(pieces, 1)), m_most / kCellsOfLongest);
    }

    /// Two pieces that lie on each other share a slice and a cell, so it is enough to compare within these.
    void LookAtBand(size_t begin, size_t end)
    {
        m_held.clear();
        for (const Cut& cut : m_cuts) {
            if (cut.lastSlice < begin || cut.firstSlice >= end)
                continue;
            m_watch.Ask();
            m_reader.GoTo(cut.place);
            m_reader.NextPath();
            size_t piece = cut.firstPiece;
            ForEachPiece(m_reader.Run(), m_most, [&](const QLineF& line, RunPlace, double) {
                const Box reach = ReachOf(line);
                if (SliceOf(reach.bottom) >= begin && SliceOf(reach.top) < end)
                    Hold(cut.color, line, reach, piece);
                ++piece;
            });
        }
        LookAtHeld();
    }

    void Hold(unsigned int color, const QLineF& line, const Box& reach, size_t piece)
    {
        const double bottom = std::floor(reach.bottom / m_cell), right = std::floor(reach.right / m_cell);
        for (double row = std::floor(reach.top / m_cell); row <= bottom; ++row)
            for (double column = std::floor(reach.left / m_cell); column <= right; ++column)
                m_held.push_back({CellKey(color, column, row, 0), line, piece});
    }

    void LookAtHeld()
    {
        std::sort(m_held.begin(), m_held.end());
        for (size_t begin = 0, end = 0; begin < m_held.size(); begin = end) {
            while (end < m_held.size() && m_held[end].cell == m_held[begin].cell)
                ++end;
            m_watch.Ask();
            LookAtCell(std::span(m_held).subspan(begin, end - begin));
        }
    }

    void LookAtCell(std::span<const InCell> cell)
    {
        if (cell.size() > kMostNeighbours) {
            for (const InCell& in : cell)
                m_near[in.piece] = true;
            return;
        }
        m_boxes.clear();
        for (const InCell& in : cell)
            m_boxes.push_back(ReachOf(in.line));
        for (size_t i = 1; i < cell.size(); ++i)
            for (size_t j = 0; j < i; ++j)
                if (m_boxes[i].Overlaps(m_boxes[j]))
                    LookAtPair(cell[i], cell[j]);
    }

    void LookAtPair(const InCell& a, const InCell& b)
    {
        if (m_near[a.piece] && m_near[b.piece])
            return;
        const auto& [earlier, later] =
            std::minmax(a, b, [](const InCell& x, const InCell& y) { return x.piece < y.piece; });
        if (MayLieOn(later.line, earlier.line))
            m_near[later.piece] = m_near[earlier.piece] = true;
    }

    JobReader m_reader;
    double m_most;
    const WorkWatch& m_watch;
    size_t m_mostHeld;                                ///< pieces of a band; each stands in two or three cells
    double m_top, m_slice;                            ///< mm
    double m_cell = 0;                                ///< mm
    std::array<size_t, kSlices> m_begins{}, m_ends{}; ///< number of pieces that start or end in each slice
    std::vector<Cut> m_cuts;
    std::vector<bool> m_near;
    std::vector<InCell> m_held;
    std::vector<Box> m_boxes; ///< of one cell's pieces
};

} // namespace

std::vector<bool> FindNearPieces(const MachineJob& job, double most, const WorkWatch& watch, size_t mostHeld)
{
    return NearSearch(job, most, watch, mostHeld).Run();
}

} // namespace shapedocument
