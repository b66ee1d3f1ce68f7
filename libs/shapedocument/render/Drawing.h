/// Painting documents and machine jobs on a sheet with a millimetre frame.
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
    /// Throws Failure, naming file, when content is no rectangle that could be shown.
    Sheet(const QRectF& content, const QString& file);

    /// Of the whole sheet, mm.
    QSizeF Size() const { return m_sheet.size(); }

    /// Maps the painter from a sheet of the given width in device units at 0, 0 to the content's millimetres.
    void SetUp(QPainter& painter, double width) const;
    /// Draws frame, ticks and numbers; the painter is set up.
    void DrawFrame(QPainter& painter) const;

    /// A length that looks the same on every sheet: a thousandth of the frame's longer side (mm).
    double Unit() const;

private:
    SHAPEDOCUMENT_NO_EXPORT void DrawScale(QPainter& painter, double from, double to, bool vertical) const;

    QRectF m_frame; ///< mm
    QRectF m_sheet; ///< mm
    double m_step;  ///< mm between two numbers
};

/// The pictures, and above them the outlines of all visible shapes in their colours. Throws Stopped, as the next two
/// do, where progress, told of the shapes, answers false. Cost: O(points + pixels).
SHAPEDOCUMENT_EXPORT void DrawShapes(QPainter& painter, CShapeList& document, double unit,
                                     const WorkProgress& progress = {});

/// The stored points: dots where the outline goes through, rings with tangents for control points. Cost: O(points).
SHAPEDOCUMENT_EXPORT void DrawPoints(QPainter& painter, CShapeList& document, double unit,
                                     const WorkProgress& progress = {});

/// The micro lines in their colours, moves dashed with an arrow, and the running number of each path at its start while
/// there are few enough. Cost: O(points).
SHAPEDOCUMENT_EXPORT void DrawOrder(QPainter& painter, const MachineJob& job, double unit,
                                    const WorkProgress& progress = {});

/// The machine's bed, dashed.
SHAPEDOCUMENT_EXPORT void DrawBed(QPainter& painter, const QRectF& bed, double unit);

/// Rings around the places of findings: red where the work is spoilt, orange where it may be meant.
/// Cost: O(findings that are told).
SHAPEDOCUMENT_EXPORT void DrawFindings(QPainter& painter, const JobReport& report, double unit);

} // namespace shapedocument
