#include "machine/GcodeOutput.h"

#include "machine/ArcMoves.h"
#include "machine/GcodeRows.h"
#include "machine/PathPasses.h"

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

    /// Answers the number of rows.
    size_t Write()
    {
        m_text << "; millimetres, absolute; laser off on every G0\n" << m_dialect.begin;
        SwitchAir(m_options.air == AirAssist::All);
        const size_t rowCount = m_work.EngravedShapes() > 0 ? Engrave() : 0;
        SwitchAir(m_options.air != AirAssist::Off);
        ForEachPass(m_work, m_options.passes,
                    [this](const PathPass& pass, JobReader& points) { Follow(pass, points); });
        GoDown(0);
        SwitchAir(false);
        m_text << m_dialect.end;
        return rowCount;
    }

private:
    size_t Engrave()
    {
        GcodeRows rows(m_text, m_options, m_height);
        rows.Begin();
        const size_t count = m_work.ForEachRow([&rows](const EngraveRow& row) { rows.Write(row); });
        rows.End();
        return count;
    }

    void Follow(const PathPass& pass, JobReader& points)
    {
        const size_t shape = m_work.ShapeNumber(pass.path);
        if (std::exchange(m_shape, shape) != shape)
            (m_text << "; shape " << shape << ' ').Color(pass.path.color) << '\n';
        GoDown(pass.pass * m_options.passDepth);
        const double power = pass.setting.power.value_or(m_options.power);
        JobPoint from = points.NextPoint().value_or(JobPoint());
        GoTo("G0", from.point);
        SwitchOn(power);
        for (bool first = true; const auto to = points.NextPoint(); first = false) {
            FollowTo(from, to->point);
            if (first)
                BeginToBurn(pass.setting.feed.value_or(m_options.feed), power);
            m_text << '\n';
            from = *to;
        }
        m_text << m_dialect.off;
    }

    QPointF Placed(QPointF point) const { return m_options.yDown ? point : QPointF(point.x(), m_height - point.y()); }

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
            m_text << GcodeMove(Placed(from.point), Placed(to), bulge).toStdString();
        else
            GoTo("G1", to);
    }

    void SwitchOn(double power)
    {
        m_text << '\n' << (m_options.constantPower ? m_dialect.onConstant : m_dialect.on);
        if (m_dialect.powerWithOn)
            (m_text << " S").Short(power);
        m_text << '\n';
    }

    void BeginToBurn(double feed, double power)
    {
        (m_text << " F").Short(feed);
        if (!m_dialect.powerWithOn)
            (m_text << " S").Short(power);
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
    size_t m_shape = 0;
};

} // namespace

size_t WriteGcode(QIODevice& device, const MachineWork& work, const GcodeOptions& options)
{
    return GcodeWriter(device, work, options).Write();
}

} // namespace shapedocument
