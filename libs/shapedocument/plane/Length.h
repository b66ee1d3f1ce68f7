/// Lengths of vectors.
#pragma once

#include <QPointF>

#include <cmath>

namespace shapedocument {

/// In the unit of the vector, without overflow for long ones.
inline double Length(QPointF vector)
{
    return std::hypot(vector.x(), vector.y());
}

} // namespace shapedocument
