#include "machine/HatchRows.h"

#include "machine/PictureRows.h"

#include <algorithm>
#include <cmath>

namespace shapedocument {

namespace {

/// Whether it is the null line that Flatten puts between two sub-paths.
bool IsSeparator(const QLineF& line)
{
    return line.x1() == 0 && line.y1() == 0 && line.x2() == 0 && line.y2() == 0;
}

QRectF RectOf(const std::vector<QLineF>& lines)
{
    constexpr double kNone = std::numeric_limits<double>::infinity();
    double left = kNone, top = kNone, right = -kNone, bottom = -kNone;
    for (const QLineF& line : lines) {
        if (IsSeparator(line))
            continue;
        left = std::min({left, line.x1(), line.x2()});
        right = std::max({right, line.x1(), line.x2()});
        top = std::min({top, line.y1(), line.y2()});
        bottom = std::max({bottom, line.y1(), line.y2()});
    }
    return left <= right ? QRectF(QPointF(left, top), QPointF(right, bottom)) : QRectF();
}

} // namespace

HatchRows::HatchRows(const std::vector<QLineF>& lines, double pitch) : m_pitch(pitch), m_rect(RectOf(lines))
{
    QPointF start, end;
    bool inRun = false;
    for (const QLineF& line : lines) {
        const bool separator = IsSeparator(line);
        const bool joined = inRun && !separator && line.x1() == end.x() && line.y1() == end.y();
        if (inRun && !joined)
            AddEdge(end, start);
        if (!joined)
            start = line.p1();
        inRun = !separator;
        if (inRun)
            AddEdge(line.p1(), line.p2());
        end = line.p2();
    }
    if (inRun)
        AddEdge(end, start);
    std::sort(m_edges.begin(), m_edges.end(), [](const Edge& a, const Edge& b) { return a.top.y() < b.top.y(); });
    m_rows = m_edges.empty() ? 0 : DotCount(m_rect.height(), pitch);
    m_top = m_rect.center().y() - static_cast<double>(m_rows) * pitch / 2;
}

/// Horizontal edges are not crossed by rows.
void HatchRows::AddEdge(QPointF from, QPointF to)
{
    if (from.y() < to.y())
        m_edges.push_back({from, to});
    else if (from.y() > to.y())
        m_edges.push_back({to, from});
}

double HatchRows::Crossings() const
{
    double sum = static_cast<double>(m_rows);
    for (const Edge& edge : m_edges)
        sum += (edge.bottom.y() - edge.top.y()) / m_pitch + 1;
    return sum;
}

/// The upper end of an edge belongs to it, the lower does not: a corner between two edges is crossed once.
void HatchRows::RenewCrossed(double y)
{
    std::erase_if(m_crossed, [y](const Edge& edge) { return edge.bottom.y() <= y; });
    for (; m_nextEdge < m_edges.size() && m_edges[m_nextEdge].top.y() <= y; ++m_nextEdge)
        if (m_edges[m_nextEdge].bottom.y() > y)
            m_crossed.push_back(m_edges[m_nextEdge]);
}

void HatchRows::Next(std::vector<EngraveSpan>& spans)
{
    const double y = CentreOf(m_nextRow++);
    RenewCrossed(y);
    m_places.clear();
    for (const auto& [top, bottom] : m_crossed)
        m_places.push_back(top.x() + (bottom.x() - top.x()) * ((y - top.y()) / (bottom.y() - top.y())));
    std::sort(m_places.begin(), m_places.end());
    spans.clear();
    for (size_t i = 0; i + 1 < m_places.size(); i += 2)
        if (m_places[i] < m_places[i + 1])
            spans.push_back({m_places[i], m_places[i + 1], 0});
}

} // namespace shapedocument
