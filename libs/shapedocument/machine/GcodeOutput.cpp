#include "machine/GcodeOutput.h"

#include "machine/ArcMoves.h"
#include "machine/GcodeRows.h"
#include "machine/PathPasses.h"

#include <optional>
#include <utility>

namespace shapedocument {

namespace {

class GcodeWriter
{
public:
    GcodeWriter(QIODevice& device, const MachineWork& work, const GcodeOptions& options)
        : m_text(device), m_work(work), m_options(options), m_dialect(*options.dialect),
          m_height(options.height.value_or(work.Rect().bottom()))
    {}

    RowCounts Write()
    {
        m_text << "; millimetres, absolute; laser off on every G0\n" << m_dialect.begin;
        SwitchAir(m_options.air == AirAssist::All);
        const RowCounts counts = m_work.EngravedShapes() > 0 ? Engrave() : RowCounts();
        SwitchAir(m_options.air != AirAssist::Off);
        ForEachPass(m_work, m_options.passes,
                    [this](const PathPass& pass, JobReader& points) { Follow(pass, points); });
        GoDown(0);
        SwitchAir(false);
        m_text << m_dialect.end;
        return counts;
    }

private:
    /// A place in units of its last written digit; no move is written to where the head stands already.
    using Place = std::pair<long long, long long>;

    RowCounts Engrave()
    {
        GcodeRows rows(m_text, m_options, m_height);
        rows.Begin();
        m_work.ForEachRow([&rows](const EngraveRow& row) { rows.Write(row); });
        rows.End();
        return rows.Counts();
    }

    void Follow(const PathPass& pass, JobReader& points)
    {
        JobPoint from = points.NextPoint().value_or(JobPoint());
        bool burns = false;
        while (const auto to = points.NextPoint()) {
            if (PlaceOf(from.point) != PlaceOf(to->point) || (burns && m_place != PlaceOf(to->point))) {
                if (!burns)
                    Begin(pass, from.point);
                FollowTo(from, to->point);
                if (!burns)
                    BeginToBurn(pass);
                burns = true;
                m_text << '\n';
            }
            from = *to;
        }
        if (burns)
            m_text << m_dialect.off;
    }

    /// Moves to the path's start with the laser off, then switches it on.
    void Begin(const PathPass& pass, QPointF start)
    {
        const size_t shape = m_work.ShapeNumber(pass.path);
        if (std::exchange(m_shape, shape) != shape)
            (m_text << "; shape " << shape << ' ').Color(pass.path.color) << '\n';
        GoDown(pass.pass * m_options.passDepth);
        if (m_place != PlaceOf(start)) {
            GoTo("G0", start);
            m_text << '\n';
        }
        m_text << (m_options.constantPower ? m_dialect.onConstant : m_dialect.on);
        if (m_dialect.powerWithOn)
            (m_text << " S").Short(PowerOf(pass));
        m_text << '\n';
    }

    double PowerOf(const PathPass& pass) const { return pass.setting.power.value_or(m_options.power); }

    void BeginToBurn(const PathPass& pass)
    {
        (m_text << " F").Short(pass.setting.feed.value_or(m_options.feed));
        if (!m_dialect.powerWithOn)
            (m_text << " S").Short(PowerOf(pass));
    }

    QPointF Placed(QPointF point) const { return m_options.yDown ? point : QPointF(point.x(), m_height - point.y()); }

    Place PlaceOf(QPointF point) const
    {
        const QPointF place = Placed(point);
        return {Written(place.x()), Written(place.y())};
    }

    void GoTo(std::string_view motion, QPointF point)
    {
        const QPointF place = Placed(point);
        m_text << motion << " X";
        m_text.Fixed(place.x()) << " Y";
        m_text.Fixed(place.y());
    }

    void FollowTo(const JobPoint& from, QPointF to)
    {
        const double bulge = m_options.yDown ? from.bulge : -from.bulge;
        if (IsWrittenAsArc(from.point, to, bulge))
            m_text << GcodeMoveText(Placed(from.point), Placed(to), bulge).toStdString();
        else
            GoTo("G1", to);
        m_place = PlaceOf(to);
    }

    void GoDown(double depth)
    {
        if (std::exchange(m_depth, depth) != depth)
            (m_text << "G0 Z").Fixed(-depth) << '\n';
    }

    void SwitchAir(bool on)
    {
        if (std::exchange(m_air, on) != on)
            m_text << (on ? m_dialect.airOn : m_dialect.airOff);
    }

    OutputText m_text;
    const MachineWork& m_work;
    const GcodeOptions& m_options;
    const GcodeDialect& m_dialect;
    double m_height;
    double m_depth = 0;
    bool m_air = false;
    std::optional<Place> m_place; ///< of the head; unknown before the first line
    size_t m_shape = 0;
};

} // namespace

RowCounts WriteGcode(QIODevice& device, const MachineWork& work, const GcodeOptions& options)
{
    return GcodeWriter(device, work, options).Write();
}

} // namespace shapedocument
