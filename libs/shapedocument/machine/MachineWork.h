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

/// Borrows the job and the engraving.
struct SHAPEDOCUMENT_EXPORT MachineWork
{
    /// Lines without engraving.
    MachineWork(const MachineJob& lines) : job(lines) {} // NOLINT(google-explicit-constructor): lines alone are work

    /// Around lines and engraving; null without any.
    QRectF Rect() const;

    /// Shapes that are engraved; 0 without engraving.
    size_t EngravedShapes() const;

    /// Shapes that are engraved count first.
    size_t ShapeNumber(const MachinePath& path) const;

    /// Engraving::ForEachRow. Returns the number of rows that burn. Cost: O(dots).
    size_t ForEachRow(const std::function<void(const EngraveRow&)>& take) const;

    const MachineJob& job;                                                ///< the lines
    const Engraving* engraving = nullptr;                                 ///< null: none
    ColorSettings colors;                                                 ///< of the lines
    std::function<void(size_t rowsSoFar, size_t allRows)> progress;       ///< told now and then, where there is one
    std::function<void(size_t pathsSoFar, size_t allPaths)> pathProgress; ///< the same for lines, pass by pass
};

} // namespace shapedocument
