#include "image/PixelWarp.h"

#include "geometry/Tolerances.h"
#include "host/ILog.h"

#include <QSizeF>

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <exception>
#include <stdexcept>

namespace shapes {

namespace {

constexpr double kLargestSide = 10240;  ///< pixels of a warped picture
constexpr double kLargestGrowth = 2;    ///< of each side, against the source
constexpr double kRoundingSlack = 1e-6; ///< pixels; a size this little below an integer is that integer
constexpr double kUnmoved = 1e-3;       ///< pixels; too little to reach another pixel with nearest neighbour
constexpr double kLeastArea = 1e-9;     ///< share of its bounding box up to which a quadrilateral counts as a line
constexpr int kSamplingLimit = 32767;   ///< pixels; OpenCV samples only pictures smaller than this
constexpr double kSameAspect = 0.01;

const cv::Scalar kWhite = cv::Scalar::all(255);

using Quad = std::array<QPointF, 4>;

struct WarpTarget
{
    std::array<cv::Point2f, 4> corners;
    cv::Size size; ///< before the width is rounded up
};

std::array<cv::Point2f, 4> CornersOf(cv::Size size)
{
    const auto width = static_cast<float>(size.width);
    const auto height = static_cast<float>(size.height);
    return {{{0, 0}, {width, 0}, {width, height}, {0, height}}};
}

double DoubleArea(const Quad& quad)
{
    const QPointF across = quad[2] - quad[0];
    const QPointF down = quad[3] - quad[1];
    return std::abs(across.x() * down.y() - across.y() * down.x());
}

/// size without its fraction, rounding errors allowed for.
double WithoutFraction(double size)
{
    return std::trunc(size + kRoundingSlack);
}

WarpTarget TargetOf(cv::Size source, const Quad& quad)
{
    const auto [minX, maxX] = std::minmax({quad[0].x(), quad[1].x(), quad[2].x(), quad[3].x()});
    const auto [minY, maxY] = std::minmax({quad[0].y(), quad[1].y(), quad[2].y(), quad[3].y()});
    const double boundsWidth = maxX - minX;
    const double boundsHeight = maxY - minY;
    double scale = source.width / boundsWidth;
    double width = WithoutFraction(boundsWidth * scale);
    double height = WithoutFraction(boundsHeight * scale);
    if (!AllFinite({boundsWidth, boundsHeight, scale, width, height}) ||
        !(DoubleArea(quad) > kLeastArea * boundsWidth * boundsHeight))
        throw std::invalid_argument("The outline of the image has no area.");

    const double widest = std::min(kLargestGrowth * source.width, kLargestSide);
    const double highest = std::min(kLargestGrowth * source.height, kLargestSide);
    if (width > widest || height > highest) {
        const double shrink = std::min(widest / width, highest / height);
        width = WithoutFraction(width * shrink);
        height = WithoutFraction(height * shrink);
        scale *= shrink;
    }
    WarpTarget target;
    for (size_t i = 0; i < quad.size(); ++i) {
        target.corners[i] = {static_cast<float>((quad[i].x() - minX) * scale),
                             static_cast<float>((quad[i].y() - minY) * scale)};
    }
    target.size = {std::max(1, static_cast<int>(width)), std::max(1, static_cast<int>(height))};
    return target;
}

bool LeavesPixelsInPlace(const WarpTarget& target, cv::Size source)
{
    const auto corners = CornersOf(source);
    return target.size == source && source.width % 4 == 0 &&
           std::equal(corners.begin(), corners.end(), target.corners.begin(), [](cv::Point2f a, cv::Point2f b) {
               return std::abs(a.x - b.x) <= kUnmoved && std::abs(a.y - b.y) <= kUnmoved;
           });
}

cv::Mat WithinSamplingLimit(const cv::Mat& image)
{
    const cv::Size size(std::min(image.cols, kSamplingLimit - 1), std::min(image.rows, kSamplingLimit - 1));
    if (size == image.size())
        return image;
    cv::Mat shrunk;
    cv::resize(image, shrunk, size, 0, 0, cv::INTER_NEAREST);
    return shrunk;
}

} // namespace

cv::Mat ApplyTransform(const cv::Mat& src, const QPointF& p0, const QPointF& p1, const QPointF& p2, const QPointF& p3)
{
    if (src.empty()) {
        ILog_WriteLog(ELOG_NOTE, "Input image is empty.");
        throw std::invalid_argument("There is no image to transform.");
    }
    if (src.dims > 2)
        throw std::invalid_argument("The image has more than two dimensions.");
    const WarpTarget target = TargetOf(src.size(), {p0, p1, p2, p3});
    if (LeavesPixelsInPlace(target, src.size()))
        return src;

    const cv::Mat sampled = WithinSamplingLimit(src);
    const cv::Mat matrix = cv::getPerspectiveTransform(CornersOf(sampled.size()).data(), target.corners.data());
    const cv::Size size((target.size.width + 3) / 4 * 4, target.size.height);
    cv::Mat warped;
    cv::warpPerspective(sampled, warped, matrix, size, cv::INTER_NEAREST, cv::BORDER_CONSTANT, kWhite);
    return warped;
}

void RotateMat(cv::Mat& image, double angle)
{
    try {
        if (!std::isfinite(angle))
            throw std::invalid_argument("The angle is not finite.");
        const cv::Point middle(image.cols / 2, image.rows / 2); // whole pixels, also of odd sides
        cv::Mat matrix = cv::getRotationMatrix2D(cv::Point2f(middle), -angle, 1.0);
        const double cosine = std::abs(matrix.at<double>(0, 0));
        const double sine = std::abs(matrix.at<double>(0, 1));
        const cv::Size size(static_cast<int>(cosine * image.cols + sine * image.rows),
                            static_cast<int>(sine * image.cols + cosine * image.rows));
        const cv::Point shift = cv::Point(size.width / 2, size.height / 2) - middle;
        matrix.at<double>(0, 2) += shift.x;
        matrix.at<double>(1, 2) += shift.y;
        cv::warpAffine(image, image, matrix, size, cv::INTER_NEAREST, cv::BORDER_CONSTANT, kWhite);
    } catch (const std::exception& failure) {
        ILog_WriteLogF(ELOG_FAILURE, "%s: %s", "CShapeImage::RotateMat", failure.what());
        image = cv::Mat();
    }
}

void ScaleMat(cv::Mat& image, const QSizeF& size)
{
    if (image.empty() || !(size.width() > 0 && size.height() > 0))
        return;
    const double aspect = size.width() / size.height();
    if (!(std::abs(aspect - static_cast<double>(image.cols) / image.rows) >= kSameAspect))
        return;
    const double factor = std::max({aspect, 1 / aspect, 1.0});
    if (!(std::max(image.cols, image.rows) * factor < kSamplingLimit))
        return;
    cv::Size enlarged(static_cast<int>(image.cols * factor), static_cast<int>(image.rows * factor));
    if (enlarged.empty())
        enlarged = {1, 1};
    cv::resize(image, image, enlarged, 0, 0, cv::INTER_NEAREST);
}

void MirrorMat(cv::Mat& image, bool horizontal)
{
    if (!image.empty())
        cv::flip(image, image, horizontal ? 1 : 0);
}

void ReverseMat(cv::Mat& image)
{
    if (image.depth() == CV_8U && !image.empty())
        cv::bitwise_not(image, image);
}

} // namespace shapes
