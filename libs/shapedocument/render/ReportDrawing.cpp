/// The machine's bed and the findings of a report, drawn over the picture of a document.
#include "render/Drawing.h"

#include "machine/JobReport.h"

#include <QPainter>

#include <array>

namespace shapedocument {

namespace {

constexpr double kRing = 8; // units

constexpr QColor kSpoils(220, 0, 0), kMayBeMeant(230, 140, 0), kBed(60, 90, 200);

} // namespace

void DrawBed(QPainter& painter, const QRectF& bed, double unit)
{
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(kBed, unit, Qt::DashLine));
    painter.drawRect(bed);
}

void DrawFindings(QPainter& painter, const JobReport& report, double unit)
{
    painter.setBrush(Qt::NoBrush);
    int kind = 0;
    for (const auto& findings : report.findings) {
        painter.setPen(QPen(report.Spoils(static_cast<FindingKind>(kind++)) ? kSpoils : kMayBeMeant, 2 * unit));
        for (const Finding& finding : findings.first)
            painter.drawEllipse(finding.place, kRing * unit, kRing * unit);
    }
}

} // namespace shapedocument
