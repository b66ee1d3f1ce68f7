/// How far transforms of a drawing's source move and enlarge what they hold.
#pragma once

#include <algorithm>
#include <optional>
#include <string_view>

namespace shapedocument::drawing {

/// A point no farther from an element's origin than r lies no farther from the page's corner than r * scale + shift,
/// both measured along the axes.
struct ReachFrame
{
    double scale = 1;
    double shift = 0;

    double At(double distance) const { return distance * scale + shift; }
    /// Becomes the frame of what stands in inner, itself inside this one.
    void Enter(const ReachFrame& inner)
    {
        shift = At(inner.shift);
        scale *= inner.scale;
    }
    /// Becomes large enough for both.
    void Include(const ReachFrame& other)
    {
        scale = std::max(scale, other.scale);
        shift = std::max(shift, other.shift);
    }
};

/// Of the value of a transform attribute. None where the renderer may not understand it: it leaves such transforms out,
/// and what they would make smaller stays large.
std::optional<ReachFrame> FrameOfTransforms(std::string_view transforms);

} // namespace shapedocument::drawing
