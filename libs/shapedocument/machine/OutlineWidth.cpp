#include "machine/OutlineWidth.h"

#include "machine/Contour.h"

#include <opencv2/imgproc.hpp>

#include <cmath>

namespace shapedocument {

double OutlineWidth(const std::vector<QPointF>& outline, double enough)
{
    // No convex outline of width w holds more than w times half its length, and a hull is no longer than its outline.
    if (const double length = PolylineLength(outline); 2 * EnclosedArea(outline) > enough * length)
        return enough;
    std::vector<cv::Point2f> points; // relative to the first point, so that single precision is enough
    points.reserve(outline.size());
    for (const QPointF& point : outline)
        points.emplace_back(float(point.x() - outline[0].x()), float(point.y() - outline[0].y()));
    const cv::Size2f size = cv::minAreaRect(points).size;
    return std::min(size.width, size.height);
}

} // namespace shapedocument
