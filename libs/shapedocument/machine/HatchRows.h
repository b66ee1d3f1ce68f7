/// A filled outline as the rows of a machine see it.
#pragma once

#include "machine/EngraveRow.h"

#include <QLineF>
#include <QRectF>

#include <vector>

namespace shapedocument {

/// Rows of one pitch over the outline's rectangle, centred on it. A row burns where its centre line is inside by the
/// even-odd rule; span ends are exact.
class HatchRows
{
public:
    /// lines: the outline as CShape::Flatten returns it, mm; open sub-paths are closed. pitch: mm.
    HatchRows(const std::vector<QLineF>& lines, double pitch);

    /// Null without any line.
    QRectF Rect() const { return m_rect; }
    size_t Rows() const { return m_rows; }

    /// Upper bound of the crossings of rows with lines: the cost of reading all rows.
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
    std::vector<Edge> m_edges; ///< sorted by their upper end
    size_t m_nextEdge = 0;
    size_t m_nextRow = 0;
    std::vector<Edge> m_crossed; ///< by the present row
    std::vector<double> m_places;
};

} // namespace shapedocument
