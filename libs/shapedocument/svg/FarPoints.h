/// Points of a drawing so far away that its page cannot tell them from near ones.
#pragma once

#include "svg/PaintedItems.h"

namespace shapedocument::drawing {

/// Looks for far points on an overview: a page whose coordinates wrap around kOverview times farther out.
class FarPoints
{
public:
    /// Whether the path has a point that the page shows within kReach though it lies beyond, or a clip around it one
    /// that the page shows elsewhere.
    bool AreIn(const PaintedItem& item);

private:
    std::shared_ptr<const ClipArea> m_last; ///< that has been asked; neighbours share theirs
};

} // namespace shapedocument::drawing
