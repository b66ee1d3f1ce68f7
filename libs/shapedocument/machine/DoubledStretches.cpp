#include "machine/DoubledStretches.h"

#include "machine/RunPieces.h"

#include <algorithm>
#include <cmath>

namespace shapedocument {

namespace {

/// mm: an uncovered gap no longer than this does not interrupt a stretch; an end of a run no longer than this is left
/// out with it.
constexpr double kGap = kDoubled;
/// mm: shorter parts do not count; a line no longer than this must be covered as a whole
constexpr double kLeastCovered = 0.002;

/// Sorts parts and joins those that meet; drops those shorter than least, which rounding leaves at the ends of lines.
void Unite(std::vector<LinePart>& parts, double least)
{
    std::sort(parts.begin(), parts.end(), [](LinePart a, LinePart b) { return a.begin < b.begin; });
    size_t last = 0;
    for (size_t i = 1; i < parts.size(); ++i) {
        if (parts[i].begin <= parts[last].end)
            parts[last].end = std::max(parts[last].end, parts[i].end);
        else
            parts[++last] = parts[i];
    }
    if (!parts.empty())
        parts.resize(last + 1);
    std::erase_if(parts, [=](LinePart part) { return part.end - part.begin < least; });
}

} // namespace

std::vector<Stretch> StretchFinder::Find(unsigned int color, std::span<const JobPoint> run)
{
    m_color = color;
    m_length = 0;
    m_mayBeWhole = true;
    m_found.clear();
    ForEachPiece(run, m_most, [this](const QLineF& line, RunPlace begin, double part) {
        m_watch.Ask();
        FollowLine(line, begin, part, m_near[m_next++]);
    });
    EndStretch(true);
    return std::move(m_found);
}

/// part: the length of the line as a part of its segment.
void StretchFinder::FollowLine(const QLineF& line, RunPlace begin, double part, bool near)
{
    m_parts.clear();
    if (near && (m_mayBeWhole || std::isfinite(m_shortest)))
        m_kept.AppendCovered(m_color, line, m_parts);
    const double length = line.length();
    Unite(m_parts, std::min(1.0, kLeastCovered / length));
    const auto take = [&](double from, double to, bool covered) {
        if (from < to)
            AddPiece({{begin.segment, begin.part + from * part},
                      {begin.segment, begin.part + to * part},
                      {line.pointAt(from), line.pointAt(to)},
                      m_length + from * length,
                      near,
                      covered});
    };
    double done = 0;
    for (const LinePart& coveredPart : m_parts) {
        take(done, coveredPart.begin, false);
        take(coveredPart.begin, coveredPart.end, true);
        done = coveredPart.end;
    }
    take(done, 1, false);
    m_length += length;
}

void StretchFinder::AddPiece(const Piece& piece)
{
    const double end = piece.from + piece.line.length();
    if (piece.covered) {
        m_coveredEnd = end;
    } else if (m_waiting.empty() || end - m_coveredEnd > kGap) {
        EndStretch(false);
        Keep(piece);
        m_mayBeWhole = m_mayBeWhole && end <= kGap;
        return;
    }
    m_waiting.push_back(piece);
}

/// The waiting pieces become a stretch or are kept.
void StretchFinder::EndStretch(bool atEnd)
{
    if (m_waiting.empty())
        return;
    const double begin = m_waiting.front().from;
    const bool whole = atEnd && begin <= kGap;
    size_t count = 0;
    if (whole || m_coveredEnd - begin >= m_shortest) {
        count = m_waiting.size();
        while (!atEnd && !m_waiting[count - 1].covered)
            --count;
        m_found.push_back({m_waiting.front().begin, m_waiting[count - 1].end, m_coveredEnd - begin});
        if (begin <= kGap)
            m_found.back().begin = {};
    }
    for (size_t i = count; i < m_waiting.size(); ++i)
        Keep(m_waiting[i]);
    m_waiting.clear();
}

} // namespace shapedocument
