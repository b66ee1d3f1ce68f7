#include "canvas/PictureCache.h"

#include "image/ShapeImage.h"

namespace {

constexpr int kMostSide = 3000; // pixels kept along a side: screens show no more

QImage AsInk(const cv::Mat& grey)
{
    if (grey.empty() || grey.type() != CV_8UC1)
        return {};
    const QImage look(grey.data, grey.cols, grey.rows, static_cast<qsizetype>(grey.step), QImage::Format_Grayscale8);
    const QSize size = look.size().boundedTo({kMostSide, kMostSide});
    const QImage small =
        size == look.size() ? look : look.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage source = small.convertToFormat(QImage::Format_Grayscale8);
    QImage ink(source.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < ink.height(); ++y) {
        auto* to = reinterpret_cast<QRgb*>(ink.scanLine(y));
        const uchar* from = source.constScanLine(y);
        for (int x = 0; x < ink.width(); ++x)
            to[x] = qRgba(0, 0, 0, 255 - from[x]);
    }
    return ink;
}

} // namespace

const QImage& PictureCache::Image(CShapeImage& shape)
{
    const auto known = m_images.find(&shape);
    if (known != m_images.end())
        return known->second;
    return m_images[&shape] = AsInk(shape.GetImage(false));
}
