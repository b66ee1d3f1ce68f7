#include "canvas/PictureCache.h"

#include "image/ShapeImage.h"

#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <utility>

namespace {

constexpr int kMostSide = 3000; // pixels kept along a side: screens show no more

QImage AsInk(const cv::Mat& grey)
{
    if (grey.empty() || grey.type() != CV_8UC1)
        return {};
    cv::Mat small = grey;
    if (std::max(grey.cols, grey.rows) > kMostSide)
        cv::resize(grey, small, {std::min(grey.cols, kMostSide), std::min(grey.rows, kMostSide)}, 0, 0, cv::INTER_AREA);
    QImage ink(small.cols, small.rows, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < ink.height(); ++y) {
        auto* to = reinterpret_cast<QRgb*>(ink.scanLine(y));
        const uchar* from = small.ptr(y);
        for (int x = 0; x < ink.width(); ++x)
            to[x] = qRgba(0, 0, 0, 255 - from[x]);
    }
    return ink;
}

} // namespace

/// Without the image.
PictureCache::Picture PictureCache::SourceOf(CShapeImage& shape)
{
    Picture picture;
    picture.pixels = shape.GetUnwarpedImage(picture.corners);
    const QPointF first = picture.corners.front();
    for (QPointF& corner : picture.corners)
        corner -= first;
    return picture;
}

/// Takes over the image of a shape that left and looks the same.
bool PictureCache::TakeLeft(Picture& picture)
{
    constexpr double kSame = 1e-6; // mm
    const auto isSame = [&](const Picture& left) {
        return left.pixels.size() == picture.pixels.size() && left.pixels.step == picture.pixels.step &&
               std::ranges::equal(left.corners, picture.corners,
                                  [](QPointF a, QPointF b) { return (a - b).manhattanLength() < kSame; });
    };
    const auto [begin, end] = m_left.equal_range(picture.pixels.data);
    const auto found = std::find_if(begin, end, [&](const auto& entry) { return isSame(entry.second); });
    if (picture.pixels.empty() || found == end)
        return false;
    picture.ink = found->second.ink;
    return true;
}

const QImage& PictureCache::Image(CShapeImage& shape)
{
    const auto known = m_pictures.find(&shape);
    if (known != m_pictures.end())
        return known->second.ink;
    Picture picture = SourceOf(shape);
    if (!TakeLeft(picture))
        picture.ink = AsInk(shape.GetImage(false));
    return m_pictures.insert_or_assign(&shape, std::move(picture)).first->second.ink;
}

void PictureCache::Forget(const CShape& shape)
{
    auto known = m_pictures.extract(&shape);
    if (known)
        m_left.emplace(known.mapped().pixels.data, std::move(known.mapped()));
}
