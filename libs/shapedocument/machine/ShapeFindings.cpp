#include "machine/JobReport.h"

#include "document/ShapeWalk.h"
#include "document/TextFindings.h"

#include "image/ShapeImage.h"

#include <QLineF>
#include <QPainterPath>

#include <algorithm>

namespace shapedocument {

namespace {

/// Of the picture's coarser side; 0 for one without pixels or size.
double PixelsPerMm(CShapeImage& picture)
{
    const QPainterPath* corners = picture.GetPath(false);
    const QSize pixels = picture.GetOriginalPixelSize();
    if (!corners || corners->elementCount() < 3)
        return 0;
    const double width = QLineF(corners->elementAt(0), corners->elementAt(1)).length();
    const double height = QLineF(corners->elementAt(1), corners->elementAt(2)).length();
    return width > 0 && height > 0 ? std::min(pixels.width() / width, pixels.height() / height) : 0;
}

} // namespace

void AddShapeFindings(JobReport& report, CShapeList& document, const ReportOptions& options)
{
    ForEachShape(document, [&](CShape& shape, int) {
        const QPointF place = shape.GetRect(false).center();
        if (shape.IsHide())
            report.Add(FindingKind::Hidden, {place, 0, {}});
        if (shape.IsLock())
            report.Add(FindingKind::Locked, {place, 0, {}});
        auto* picture = dynamic_cast<CShapeImage*>(&shape);
        if (!picture || !options.linesPerMm)
            return;
        if (const double fineness = PixelsPerMm(*picture); fineness < *options.linesPerMm)
            report.Add(FindingKind::CoarsePicture, {place, fineness, {}});
    });
    TextFindings texts;
    texts.Add(document);
    for (const QString& line : texts.Lines())
        report.Add(FindingKind::MissingFont, {std::nullopt, 0, line});
}

} // namespace shapedocument
