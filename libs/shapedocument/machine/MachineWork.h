/// All that a machine does for a document: the engraving, then the lines in the order of their colours.
#pragma once

#include "machine/ColorSettings.h"
#include "machine/MachineJob.h"
#include "shapedocument_export.h"

#include <QRectF>

namespace shapedocument {

class Engraving;

/// Borrows the job and the engraving.
struct SHAPEDOCUMENT_EXPORT MachineWork
{
    MachineWork(const MachineJob& lines) : job(lines) {} // NOLINT(google-explicit-constructor): lines alone are work

    /// Around lines and engraving; null without any.
    QRectF Rect() const;

    size_t EngravedShapes() const;

    /// Shapes that are engraved count first.
    size_t ShapeNumber(const MachinePath& path) const;

    const MachineJob& job;
    const Engraving* engraving = nullptr;
    ColorSettings colors;
};

} // namespace shapedocument
