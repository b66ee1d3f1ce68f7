/// A filled outline as the rows of a machine see it.
#pragma once

#include "machine/EngraveRow.h"

#include <QLineF>
#include <QRectF>

#include <vector>

namespace shapedocument {

/// Rows of one pitch over the outline's rectangle, centred on it. What lies inside by the even-odd rule along a row's
/// centre is burned, its ends exact.
class HatchRows
{
public:
    /// lines: the outline as CShape::Flatten answers it, mm; runs whose ends are apart are closed.
    HatchRows(const std::vector<QLineF>& lines, double pitch);

    /// Null without any line.
    QRectF Rect() const { return m_rect; }
    size_t Rows() const { return m_rows; }

    /// How often a row's centre crosses a line, at most: what going through all rows costs.
    double Crossings() const;

    double CentreOf(size_t row) const { return m_top + (static_cast<double>(row) + 0.5) * m_pitch; }

    /// The next row's spans from left to right; the first call is for row 0.
    void Next(std::vector<EngraveSpan>& spans);

private:
    struct Edge
    {
        QPointF top;
        QPointF bottom;
    };

    void AddEdge(QPointF from, QPointF to);
    void RenewCrossed(double y);

    double m_pitch;
    QRectF m_rect;
    size_t m_rows = 0;
    double m_top = 0;          ///< mm, of the first row
    std::vector<Edge> m_edges; ///< by their upper end
    size_t m_nextEdge = 0;
    size_t m_nextRow = 0;
    std::vector<Edge> m_crossed; ///< by the row
    std::vector<double> m_places;
};

} // namespace shapedocument
