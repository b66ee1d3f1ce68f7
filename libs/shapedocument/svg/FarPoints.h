/// Finds points of a drawing so far away that on its page they look like near ones.
#pragma once

#include "svg/PaintedItems.h"

namespace shapedocument::drawing {

/// Searches an overview, whose coordinates wrap around kOverview times farther out than the page's.
class FarPoints
{
public:
    /// Whether the path has a point that the page shows within kPageReach although it lies beyond, or a clip around it
    /// has one that the page shows at a wrong place.
    bool AreIn(const PaintedItem& item);

private:
    std::shared_ptr<const ClipArea> m_last; ///< the clip tested last, as neighbouring items share theirs
};

} // namespace shapedocument::drawing
