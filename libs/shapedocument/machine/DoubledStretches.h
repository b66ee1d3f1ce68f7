/// Which stretches of a run lie on lines that have been kept.
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

/// Follows runs one after the other and keeps what they do not leave out.
class StretchFinder
{
public:
    /// most: mm, of a piece; near: FindNearPieces of the job with that. Stretches of less than shortest (mm, may be
    /// infinite) count only where they are whole runs. All is borrowed.
    StretchFinder(KeptLines& kept, double most, const std::vector<bool>& near, const WorkWatch& watch, double shortest)
        : m_kept(kept), m_most(most), m_near(near), m_watch(watch), m_shortest(shortest)
    {}

    /// To be called for each cut of the job in its order.
    /// The stretches of a run that are to be left out, in order. The rest is added to the kept lines.
    std::vector<Stretch> Find(unsigned int color, std::span<const JobPoint> run);

private:
    /// A piece of the run that is covered as a whole or not at all.
    struct Piece
    {
        RunPlace begin, end;
        QLineF line;
        double from; ///< mm of the run before it
        bool near;   ///< to others, or it need not be kept
        bool covered;
    };

    void FollowLine(const QLineF& line, RunPlace begin, double part, bool near);
    void Take(const Piece& piece);
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
    double m_length = 0;          ///< of the run so far
    bool m_mayBeWhole = true;     ///< all of the run so far is covered
    std::vector<Piece> m_waiting; ///< from the first covered piece on, as long as they may become a stretch
    double m_coveredEnd = 0;      ///< of the last covered one of them
    std::vector<Stretch> m_found;
    std::vector<LinePart> m_parts; ///< scratch buffer, kept to avoid allocations
};

} // namespace shapedocument
