/// Black pictures that take no memory before their pixels are written.
#pragma once

#include <opencv2/core/mat.hpp>

namespace shapes {

/// A black 8-bit grey picture. It costs only address space until its pixels are written, so a huge size in a damaged
/// document does no harm. Throws std::bad_alloc when there is no address space.
cv::Mat ZeroedGrey(int rows, int columns);

} // namespace shapes
