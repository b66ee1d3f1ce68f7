#include "render/Drawing.h"

#include "machine/JobReport.h"

#include <QPainter>

#include <array>

namespace shapedocument {

namespace {

constexpr double kRing = 8; // units

QColor ColorOf(FindingKind kind)
{
    return WordsOf(kind).spoils ? QColor(220, 0, 0) : QColor(230, 140, 0);
}

} // namespace

void DrawFindings(QPainter& painter, const JobReport& report, double unit)
{
    painter.setBrush(Qt::NoBrush);
    for (size_t i = 0; i < report.findings.size(); ++i) {
        const auto kind = static_cast<FindingKind>(i);
        painter.setPen(QPen(ColorOf(kind), 2 * unit));
        for (const Finding& finding : report.findings[i].first)
            if (finding.place)
                painter.drawEllipse(*finding.place, kRing * unit, kRing * unit);
    }
}

} // namespace shapedocument
