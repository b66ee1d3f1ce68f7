/// Measures a fitted outline against the polyline it came from, independently of how it was fitted.
#pragma once

#include <QPointF>

#include <vector>

namespace test {

/// What fitting did to one run.
struct FitQuality
{
    double deviation = 0.0; ///< largest distance of either line from the other
    int cornersLost = 0;    ///< turns over 20 degrees of the polyline that the fitted outline does not have
    int cornersInvented = 0;
};

/// Angle between two directions, 0 to 180.
double TurnDegrees(QPointF a, QPointF b);

/// Compares by sampling both lines densely.
FitQuality Compare(const std::vector<QPointF>& polyline, const std::vector<QPointF>& points,
                   const std::vector<unsigned char>& types);

/// Largest distance of a point of the polyline from the fitted outline.
double VertexDistance(const std::vector<QPointF>& polyline, const std::vector<QPointF>& points,
                      const std::vector<unsigned char>& types);

} // namespace test
