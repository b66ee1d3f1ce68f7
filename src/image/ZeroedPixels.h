/// Black pictures that take no memory before their pixels are written.
#pragma once

#include <opencv2/core/mat.hpp>

namespace shapes {

/// A black 8-bit grey picture. Sizes that a damaged document states cost address space only. Throws when there is none.
cv::Mat ZeroedGrey(int rows, int columns);

} // namespace shapes
