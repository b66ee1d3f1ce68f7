/// Fits curves to outlines that are stored as fine straight pieces, through the curve-fitting plug-in.
#pragma once

#include "document/WorkProgress.h"
#include "shapedocument_export.h"

#include <cstddef>

class CShapeVector;

namespace shapedocument {

/// Whether the plug-in is loaded and switched on. Cost: O(1); the first call looks for the plug-in.
SHAPEDOCUMENT_EXPORT bool IsFittingOn();

/// The result of fitting an outline.
enum class FitOutcome
{
    Fitted,    ///< replaced by one with fewer points
    HasCurves, ///< unchanged: it draws curves already
    NotShorter ///< unchanged: no fit has fewer points
};

/// An outline before and after fitting.
struct OutlineFit
{
    FitOutcome outcome = FitOutcome::Fitted; ///< the result
    size_t before = 0;                       ///< points
    size_t after = 0;                        ///< points
    double deviation = 0;                    ///< mm: largest distance of either outline from the other
};

/// Replaces the shape's outline by a fitted one if that has fewer points. Throws Stopped where progress returns false;
/// the outline is then unchanged. The plug-in itself cannot be stopped. Cost: the plug-in's, and that of
/// OutlineDistance.
SHAPEDOCUMENT_EXPORT OutlineFit FitOutline(CShapeVector& shape, const WorkProgress& progress = {});

} // namespace shapedocument
