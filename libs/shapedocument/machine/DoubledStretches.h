/// Finds the stretches of runs that lie on kept lines.
#pragma once

#include "document/WorkProgress.h"
#include "machine/KeptLines.h"
#include "machine/RunPart.h"

namespace shapedocument {

struct Stretch
{
    RunPlace begin, end;
    double length; ///< mm
};

/// Takes the runs of a job in order, finds the stretches that lie on kept lines, and adds the rest to these.
class StretchFinder
{
public:
    /// most: mm, the longest piece; near: the result of FindNearPieces for the same job and most. Stretches shorter
    /// than shortest (mm, may be infinite) count only where they are whole runs. kept, near and watch are borrowed.
    StretchFinder(KeptLines& kept, double most, const std::vector<bool>& near, const WorkWatch& watch, double shortest)
        : m_kept(kept), m_most(most), m_near(near), m_watch(watch), m_shortest(shortest)
    {}

    /// The stretches of a run that are to be left out, in order; the rest is added to the kept lines. To be called for
    /// each cut of the job in its order.
    std::vector<Stretch> Find(unsigned int color, std::span<const JobPoint> run);

private:
    /// A piece of the run that is covered as a whole or not at all.
    struct Piece
    {
        RunPlace begin, end;
        QLineF line;
        double from; ///< mm along the run from its start
        bool near;   ///< other pieces may lie on it; else it need not be kept
        bool covered;
    };

    void FollowLine(const QLineF& line, RunPlace begin, double part, bool near);
    void AddPiece(const Piece& piece);
    void EndStretch(bool atEnd);
    void Keep(const Piece& piece)
    {
        if (piece.near)
            m_kept.Add(m_color, piece.line);
    }

    KeptLines& m_kept;
    double m_most;
    const std::vector<bool>& m_near;
    const WorkWatch& m_watch;
    double m_shortest;
    size_t m_next = 0; ///< piece
    unsigned int m_color = 0;
    double m_length = 0;          ///< mm, of the run so far
    bool m_mayBeWhole = true;     ///< all of the run so far is covered
    std::vector<Piece> m_waiting; ///< pieces since the first covered one that may become a stretch
    double m_coveredEnd = 0;      ///< mm along the run: the end of the last covered one of them
    std::vector<Stretch> m_found;
    std::vector<LinePart> m_parts; ///< scratch buffer, kept to avoid allocations
};

} // namespace shapedocument
