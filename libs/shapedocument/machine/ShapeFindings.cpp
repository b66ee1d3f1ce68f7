/// The findings of a report that are seen from the shapes, before they become paths of the job.
#include "machine/JobReport.h"

#include "document/ShapeWalk.h"
#include "document/TextFindings.h"

#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "text/ShapeText.h"

#include <QLineF>
#include <QPainterPath>

#include <algorithm>
#include <limits>

namespace shapedocument {

namespace {

constexpr double kEnoughPart = 0.999; // factor for pixels per mm, so that 254 dpi are enough for 10 lines per mm

/// Pixels per mm along the picture's coarser side; infinite for one without pixels or size, which is not engraved.
double PixelsPerMm(CShapeImage& picture)
{
    const QPainterPath* corners = picture.GetPath(false);
    const QSize pixels = picture.GetOriginalPixelSize();
    if (!corners || corners->elementCount() < 3 || pixels.isEmpty())
        return std::numeric_limits<double>::infinity();
    const double width = QLineF(corners->elementAt(0), corners->elementAt(1)).length();
    const double height = QLineF(corners->elementAt(1), corners->elementAt(2)).length();
    return std::min(pixels.width() / width, pixels.height() / height);
}

/// False also for an array without a cell, which shows none of its members.
bool IsShown(CShape& shape)
{
    if (shape.IsHide())
        return false;
    auto* array = dynamic_cast<CShapeArray*>(&shape);
    if (!array)
        return true;
    const QList<ShapeArrayInfo> cells = array->GetShapeArrayInfo();
    return std::any_of(cells.begin(), cells.end(), [](const ShapeArrayInfo& cell) { return cell.bValid; });
}

/// While a document is walked: whether a shape and all that hold it are shown.
class ShownShapes
{
public:
    bool Visit(CShape& shape, int depth)
    {
        if (depth <= m_hiddenDepth)
            m_hiddenDepth = IsShown(shape) ? kNone : depth;
        return m_hiddenDepth == kNone;
    }

private:
    static constexpr int kNone = std::numeric_limits<int>::max();
    int m_hiddenDepth = kNone; ///< of the shape that hides what is below it
};

void AddWhatIsShown(JobReport& report, CShape& shape, std::optional<double> linesPerMm)
{
    const QPointF place = shape.GetRect(false).center();
    if (auto* picture = dynamic_cast<CShapeImage*>(&shape); picture && linesPerMm)
        if (const double fineness = PixelsPerMm(*picture); fineness < *linesPerMm * kEnoughPart)
            report.Add(FindingKind::CoarsePicture, {place, fineness, {}});
    if (auto* text = dynamic_cast<CShapeText*>(&shape)) {
        TextFindings findings;
        findings.Add(*text);
        if (const QStringList lines = findings.Lines(); !lines.isEmpty())
            report.Add(FindingKind::MissingFont, {place, 0, lines.join("; ")});
    }
}

} // namespace

void AddShapeFindings(JobReport& report, CShapeList& document, std::optional<double> linesPerMm)
{
    ShownShapes shown;
    ForEachShape(document, [&](CShape& shape, int depth) {
        if (shape.IsHide())
            report.Add(FindingKind::Hidden, {shape.GetRect(false).center(), 0, {}});
        if (shape.IsLock())
            report.Add(FindingKind::Locked, {shape.GetRect(false).center(), 0, {}});
        if (shown.Visit(shape, depth))
            AddWhatIsShown(report, shape, linesPerMm);
    });
}

} // namespace shapedocument
