/// Runs of points as drawings hold them.
#pragma once

#include "FlattenedCurves.h"
#include "OutlineDeviation.h"
#include "RunFitter.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

namespace test {

using curvesimulate::FitRun;
using curvesimulate::Outline;
using Polyline = std::vector<QPointF>;

constexpr double kTolerance = 0.005;
#ifdef SHAPEMODEL_SANITIZED
constexpr size_t kPathStep = 6; ///< ten times as slow: the other builds look at every path
#else
constexpr size_t kPathStep = 1;
#endif

inline QPointF OnCircle(double radius, double degrees)
{
    const double angle = degrees * std::numbers::pi / 180;
    return radius * QPointF(std::cos(angle), std::sin(angle));
}

/// point: makes a point of its number.
template <class Point>
Polyline Stepwise(int count, Point point)
{
    Polyline run;
    for (int i = 0; i < count; ++i)
        run.push_back(point(i));
    return run;
}

inline Polyline Closed(Polyline run)
{
    run.push_back(run.front());
    return run;
}

inline FitQuality Compare(const Polyline& run, const Outline& fitted)
{
    return Compare(run, fitted.points, fitted.types);
}

} // namespace test
