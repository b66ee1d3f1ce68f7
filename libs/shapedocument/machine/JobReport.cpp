#include "machine/JobReport.h"

#include "machine/Bulge.h"
#include "machine/DoubledLines.h"
#include "machine/Engraving.h"
#include "machine/GapSearch.h"
#include "machine/MachineWork.h"
#include "machine/MotionTimer.h"
#include "machine/SelfCrossings.h"

#include <QLineF>

#include <algorithm>
#include <cmath>

namespace shapedocument {

namespace {

constexpr std::array<FindingWords, static_cast<size_t>(FindingKind::Count_)> kWords{{
    {"gaps", "contour that is not quite closed", "contours that are not quite closed", true},
    {"outOfBed", "path outside the bed", "paths outside the bed", true},
    {"doubledLines", "doubled line", "doubled lines", false},
    {"selfCrossings", "crossing of a contour with itself", "crossings of contours with themselves", false},
    {"shortLines", "path shorter than the beam", "paths shorter than the beam", false},
    {"tinyIslands", "contour that the beam burns away", "contours that the beam burns away", false},
    {"coarsePictures", "picture coarser than the engraving", "pictures coarser than the engraving", false},
    {"missingFonts", "text not as it should be", "texts not as they should be", true},
    {"hidden", "hidden shape", "hidden shapes", false},
    {"locked", "locked shape", "locked shapes", false},
}};

constexpr double kChordTolerance = 0.005; // mm
constexpr double kIslandBeams = 3;        // a contour narrower than this many beams leaves nothing inside
constexpr size_t kMostPairs = 50'000'000; // of segments; some seconds

double Outside(const QRectF& rect, const QSizeF& bed)
{
    return std::max({0.0, -rect.left(), -rect.top(), rect.right() - bed.width(), rect.bottom() - bed.height()});
}

/// Goes through a job path by path.
class Reporter
{
public:
    Reporter(JobReport& report, const ReportOptions& options)
        : m_report(report), m_options(options), m_timer(options.machine)
    {}

    void Add(const MachinePath& path, const std::vector<JobPoint>& points)
    {
        ++m_report.paths;
        Move(points);
        ExpectOnBed(m_rect);
        if (path.kind != PathKind::Cut)
            return;
        FindInPath(path, points);
    }

    /// The rectangle of all rows. They are centred on it and may reach beyond it by half of one.
    void BeginEngraving(const QRectF& rect)
    {
        if (!rect.isNull())
            ExpectOnBed(rect);
    }

    /// Over white the laser is off, at the speed of travel.
    void Engrave(const EngraveRow& row, double pitch)
    {
        const size_t spans = row.spans.size();
        for (size_t i = 0; i < spans; ++i) {
            const EngraveSpan& span = row.spans[row.backwards ? spans - 1 - i : i];
            m_timer.Travel({row.backwards ? span.end : span.begin, row.y});
            m_head = QPointF(row.backwards ? span.begin : span.end, row.y);
            m_timer.Line(m_head, m_options.machine.engraveFeed);
            m_report.engravedArea += (span.end - span.begin) * pitch;
        }
    }

    void Finish()
    {
        Travel(QPointF());
        m_report.seconds = m_timer.Seconds();
    }

private:
    void Travel(QPointF to)
    {
        m_report.travelLength += QLineF(m_head, to).length();
        m_timer.Travel(to);
        m_head = to;
    }

    void Move(const std::vector<JobPoint>& points)
    {
        Travel(points.front().point);
        m_length = 0;
        m_chords.assign(1, m_head);
        m_rect = QRectF();
        for (size_t i = 1; i < points.size(); ++i)
            Cut(points[i - 1], points[i].point);
        m_report.cutLength += m_length;
    }

    void Cut(const JobPoint& from, QPointF to)
    {
        m_timer.Cut(from, to);
        m_length += SegmentLength(from.point, to, from.bulge);
        const int chords = ChordCount(from.point, to, from.bulge, kChordTolerance);
        for (int i = 1; i <= chords; ++i)
            m_chords.push_back(i == chords ? to : PointOnSegment(from.point, to, from.bulge, double(i) / chords));
        m_rect |= SegmentRect(from.point, to, from.bulge);
        m_head = to;
    }

    void ExpectOnBed(const QRectF& rect)
    {
        if (const double outside = m_options.bed ? Outside(rect, *m_options.bed) : 0; outside > 0)
            m_report.Add(FindingKind::OutOfBed, {rect.center(), outside, {}});
    }

    void FindInPath(const MachinePath& path, const std::vector<JobPoint>& points)
    {
        const QPointF begin = points.front().point;
        if (m_length < m_options.machine.beam)
            m_report.Add(FindingKind::ShortLine, {begin, m_length, {}});
        if (path.closed)
            FindInContour();
    }

    void FindInContour()
    {
        if (const double side = std::min(m_rect.width(), m_rect.height()); side < kIslandBeams * m_options.machine.beam)
            m_report.Add(FindingKind::TinyIsland, {m_rect.center(), side, {}});
        Findings& crossings = m_report.Of(FindingKind::SelfCrossing);
        if (crossings.isComplete)
            crossings.isComplete = FindSelfCrossings(m_chords, true, m_pairs, [&](QPointF place) {
                m_report.Add(FindingKind::SelfCrossing, {place, 0, {}});
            });
    }

    JobReport& m_report;
    const ReportOptions& m_options;
    MotionTimer m_timer;
    size_t m_pairs = kMostPairs;
    QPointF m_head;
    // Of the path at hand.
    double m_length = 0;
    QRectF m_rect;
    std::vector<QPointF> m_chords;
};

} // namespace

const FindingWords& WordsOf(FindingKind kind)
{
    return kWords[static_cast<size_t>(kind)];
}

void JobReport::Add(FindingKind kind, Finding finding)
{
    Findings& all = Of(kind);
    if (++all.count <= kMostTold)
        all.first.push_back(std::move(finding));
}

bool JobReport::Spoils() const
{
    for (size_t kind = 0; kind < findings.size(); ++kind)
        if (kWords[kind].spoils && findings[kind].count > 0)
            return true;
    return false;
}

JobReport ReportOf(const MachineWork& work, const ReportOptions& options, const QString& file)
{
    JobReport report;
    Reporter reporter(report, options);
    if (work.engraving)
        reporter.BeginEngraving(work.engraving->Rect());
    work.ForEachRow([&](const EngraveRow& row) { reporter.Engrave(row, work.engraving->Pitch()); });
    JobReader reader(work.job);
    std::vector<JobPoint> points;
    while (const std::optional<MachinePath> path = reader.NextPath()) {
        points.clear();
        while (const std::optional<JobPoint> point = reader.NextPoint())
            points.push_back(*point);
        reporter.Add(*path, points);
    }
    reporter.Finish();
    for (const Gap& gap : FindGaps(work.job, options.widestGap, file))
        report.Add(FindingKind::Gap, {gap.place, gap.width, {}});
    return report;
}

void AddDoubledLines(JobReport& report, const DoubledLines& doubled)
{
    Findings& all = report.Of(FindingKind::DoubledLine);
    all.count += doubled.count;
    if (doubled.count > 0)
        all.first.push_back({std::nullopt, doubled.length, {}});
}

} // namespace shapedocument
