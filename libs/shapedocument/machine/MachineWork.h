/// All that a machine does for a document: the engraving, then the lines in the order of their colours.
#pragma once

#include "machine/ColorSettings.h"
#include "machine/MachineJob.h"
#include "shapedocument_export.h"

#include <QRectF>

#include <functional>

namespace shapedocument {

class Engraving;
struct EngraveRow;

/// A job and its engraving, both borrowed.
struct SHAPEDOCUMENT_EXPORT MachineWork
{
    /// Lines without engraving.
    MachineWork(const MachineJob& lines) : job(lines) {} // NOLINT(google-explicit-constructor): lines alone are work

    /// The rectangle around lines and engraving (mm, y down); null without any.
    QRectF Rect() const;

    /// Shapes that are engraved; 0 without engraving.
    size_t EngravedShapes() const;

    /// The path's shape, counted after the engraved shapes.
    size_t ShapeNumber(const MachinePath& path) const;

    /// Engraving::ForEachRow. Returns the number of rows that burn. Cost: O(dots).
    size_t ForEachRow(const std::function<void(const EngraveRow&)>& take) const;

    const MachineJob& job;                                          ///< the lines
    const Engraving* engraving = nullptr;                           ///< null: none
    ColorSettings colors;                                           ///< of the lines
    std::function<void(size_t rowsSoFar, size_t allRows)> progress; ///< called after each row; may be empty
    /// called for lines, pass by pass, and again where a report looks for flaws in them; may be empty
    std::function<void(size_t pathsSoFar, size_t allPaths)> pathProgress;
};

} // namespace shapedocument
