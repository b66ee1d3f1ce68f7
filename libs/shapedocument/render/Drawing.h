/// Paints documents and machine jobs on a sheet with a millimetre frame.
#pragma once

#include "document/WorkProgress.h"
#include "shapedocument_export.h"

#include <QRectF>

class CShapeList;
class QPainter;

namespace shapedocument {

class MachineJob;
struct JobReport;

/// A white sheet with a frame, ticks and numbers in millimetres around some content.
class SHAPEDOCUMENT_EXPORT Sheet
{
public:
    /// content: mm. Throws Failure, naming file, when it reaches beyond kFarthest.
    Sheet(const QRectF& content, const QString& file);

    /// The size of the whole sheet, mm.
    QSizeF Size() const { return m_sheet.size(); }

    /// Sets the painter's transform so that the content is drawn in millimetres, on a sheet that is width device units
    /// wide and starts at 0, 0.
    void SetUp(QPainter& painter, double width) const;
    /// Draws frame, ticks and numbers. Call SetUp first.
    void DrawFrame(QPainter& painter) const;

    /// A length that looks the same on every sheet: a thousandth of the frame's longer side (mm).
    double Unit() const;

private:
    SHAPEDOCUMENT_NO_EXPORT void DrawScale(QPainter& painter, double from, double to, bool vertical) const;

    QRectF m_frame; ///< mm
    QRectF m_sheet; ///< mm
    double m_step;  ///< mm between two numbers
};

/// Draws the pictures, and above them the outlines of all visible shapes in their colours. unit: Sheet::Unit(), also
/// below. Throws Stopped where progress, called for each shape, returns false. Cost: O(points + pixels).
SHAPEDOCUMENT_EXPORT void DrawShapes(QPainter& painter, CShapeList& document, double unit,
                                     const WorkProgress& progress = {});

/// Draws the stored points: dots on the outline, rings with tangents for control points. Throws Stopped likewise. Cost:
/// O(points).
SHAPEDOCUMENT_EXPORT void DrawPoints(QPainter& painter, CShapeList& document, double unit,
                                     const WorkProgress& progress = {});

/// Draws the paths in their colours, moves dashed with an arrow, and each path's number at its start if there are few
/// enough. Throws Stopped likewise. Cost: O(points).
SHAPEDOCUMENT_EXPORT void DrawOrder(QPainter& painter, const MachineJob& job, double unit,
                                    const WorkProgress& progress = {});

/// Draws the machine's bed (mm), dashed. Cost: O(1).
SHAPEDOCUMENT_EXPORT void DrawBed(QPainter& painter, const QRectF& bed, double unit);

/// Draws rings around the places of findings: red where the work is spoilt, orange where it may be intended. Cost:
/// O(findings listed).
SHAPEDOCUMENT_EXPORT void DrawFindings(QPainter& painter, const JobReport& report, double unit);

} // namespace shapedocument
