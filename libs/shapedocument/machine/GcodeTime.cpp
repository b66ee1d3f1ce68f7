#include "machine/GcodeTime.h"

#include "machine/Engraving.h"
#include "machine/HeadWay.h"
#include "machine/MotionTimer.h"
#include "machine/PathPasses.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace shapedocument {

namespace {

/// Repeats the moves of the G-code in the document's frame: mirroring changes no time.
class GcodeClock
{
public:
    /// way: receives the steps; null where they are not wanted.
    GcodeClock(const MachineWork& work, const GcodeOptions& options, const MachineSettings& machine, HeadWay* way)
        : m_work(work), m_options(options), m_rapid(machine.rapid), m_origin(GcodeOrigin(work, options)),
          m_timer(machine, m_origin), m_feed(options.dialect->feedOfRapid), m_way(way)
    {
        if (!way)
            return;
        for (JobReader reader(work.job); reader.NextPath();)
            m_places.push_back(reader.Place());
    }

    GcodeTime Measure()
    {
        m_time.engravedRows = m_work.ForEachRow([this](const EngraveRow& row) { Engrave(row); });
        m_timer.Stop();
        m_time.engraveTravelLength = m_time.travelLength;
        ForEachPass(m_work, m_options.passes,
                    [this](const PathPass& pass, JobReader& points) { Follow(pass, points); });
        GoDown(0);
        NoteTravel(m_origin);
        m_time.seconds = m_timer.Seconds();
        TimeSteps();
        return m_time;
    }

private:
    /// The speed of G0, mm per minute: in some firmware that of the last F word.
    double RapidSpeed() const { return m_options.dialect->feedOfRapid > 0 ? m_feed : m_rapid; }

    void Travel(QPointF to) { m_time.travelLength += m_timer.Line(to, RapidSpeed()); }

    void Engrave(const EngraveRow& row)
    {
        const double runUp = row.backwards ? -m_options.overscan : m_options.overscan;
        const size_t count = row.spans.size();
        NoteTravel(QPointF(row.backwards ? row.spans.back().end : row.spans.front().begin, row.y) - QPointF(runUp, 0));
        const QPointF begin = m_timer.Head();
        for (size_t i = 0; i < count; ++i) {
            const EngraveSpan& span = row.spans[row.backwards ? count - 1 - i : i];
            const QPointF from(row.backwards ? span.end : span.begin, row.y);
            if (i > 0)
                Travel(from);
            m_feed = m_options.engraveFeed;
            RunUpTo(from);
            m_timer.Line({row.backwards ? span.begin : span.end, row.y}, m_feed);
            m_time.engravedArea += (span.end - span.begin) * m_work.engraving->Pitch();
        }
        RunUpTo(m_timer.Head() + QPointF(runUp, 0));
        Note({.kind = HeadStepKind::Row, .from = begin, .to = m_timer.Head()});
    }

    /// At the speed of rows, without power.
    void RunUpTo(QPointF to) { m_time.travelLength += m_timer.Line(to, m_feed); }

    void Follow(const PathPass& pass, JobReader& points)
    {
        GoDown(pass.pass * m_options.passDepth);
        JobPoint from = points.NextPoint().value_or(JobPoint());
        NoteTravel(from.point);
        m_timer.Stop();
        m_feed = pass.setting.feed.value_or(m_options.feed);
        while (const auto to = points.NextPoint()) {
            m_time.cutLength += m_timer.Segment(from, to->point, m_feed);
            from = *to;
        }
        m_timer.Stop();
        if (m_way)
            Note({.kind = HeadStepKind::Path, .to = from.point, .path = PathAt(points.Place()), .pass = pass.pass});
    }

    /// The number of the path at a place of the job.
    size_t PathAt(qint64 place) const
    {
        return static_cast<size_t>(std::ranges::lower_bound(m_places, place) - m_places.begin());
    }

    void NoteTravel(QPointF to)
    {
        const QPointF from = m_timer.Head();
        Travel(to);
        if (from != to)
            Note({.kind = HeadStepKind::Travel, .from = from, .to = to});
    }

    /// Adds a step that ends where the head is now.
    void Note(const HeadStep& step)
    {
        if (!m_way)
            return;
        m_timer.Mark();
        m_way->steps.push_back(step);
    }

    void TimeSteps()
    {
        if (!m_way)
            return;
        for (size_t i = 0; i < m_way->steps.size(); ++i)
            m_way->steps[i].end = m_timer.Marks()[i];
    }

    void GoDown(double depth) { m_timer.Lift(std::abs(std::exchange(m_depth, depth) - depth), RapidSpeed()); }

    const MachineWork& m_work;
    const GcodeOptions& m_options;
    double m_rapid;
    QPointF m_origin;
    MotionTimer m_timer;
    double m_feed; ///< of the last F word
    double m_depth = 0;
    GcodeTime m_time;
    HeadWay* m_way;
    std::vector<qint64> m_places; ///< of the job's paths, where steps are wanted
};

} // namespace

GcodeTime TimeGcode(const MachineWork& work, const GcodeOptions& options, const MachineSettings& machine)
{
    return GcodeClock(work, options, machine, nullptr).Measure();
}

HeadWay WayOfHead(const MachineWork& work, const GcodeOptions& options, const MachineSettings& machine)
{
    HeadWay way;
    way.time = GcodeClock(work, options, machine, &way).Measure();
    return way;
}

QPointF GcodeOrigin(const MachineWork& work, const GcodeOptions& options)
{
    return {0, options.yDown ? 0 : options.height.value_or(work.Rect().bottom())};
}

} // namespace shapedocument
