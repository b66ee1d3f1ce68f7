#include "vector/CurveFit.h"

namespace shapes {

void FitOutline(const std::vector<QPointF>&, const std::vector<unsigned char>&, std::vector<QPointF>&,
                std::vector<unsigned char>&)
{}

} // namespace shapes
