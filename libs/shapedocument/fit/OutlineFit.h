/// Fitting curves to outlines that are stored as fine straight pieces, through the curve-fitting plug-in.
#pragma once

#include "document/WorkProgress.h"
#include "shapedocument_export.h"

#include <cstddef>

class CShapeVector;

namespace shapedocument {

/// Whether the plug-in is there and switched on.
SHAPEDOCUMENT_EXPORT bool IsFittingOn();

/// What became of an outline.
enum class FitOutcome
{
    Fitted,    ///< replaced by one with fewer points
    HasCurves, ///< left alone
    NotShorter ///< Nothing with fewer points fits; the outline is as it was.
};

/// An outline before and after fitting.
struct OutlineFit
{
    FitOutcome outcome = FitOutcome::Fitted; ///< what was done
    size_t before = 0;                       ///< points
    size_t after = 0;                        ///< points
    double deviation = 0;                    ///< mm: largest distance of either outline from the other
};

/// Replaces the shape's outline by a fitted one if that has fewer points. Throws Stopped where progress answers false:
/// the outline is as it was then. The plug-in itself cannot be stopped.
/// Cost: the plug-in's, and that of OutlineDistance.
SHAPEDOCUMENT_EXPORT OutlineFit FitOutline(CShapeVector& shape, const WorkProgress& progress = {});

} // namespace shapedocument
