/// PictureCache: images of grey pictures, ready to be painted.
#pragma once

#include <QImage>

#include <unordered_map>

class CShape;
class CShapeImage;

/// Keeps one image for each picture shape, by its address.
class PictureCache
{
public:
    /// The picture as a burn: its black opaque, its white transparent. Null when there is nothing to show. Cost: that
    /// of CShapeImage::GetImage, once.
    const QImage& Image(CShapeImage& shape);
    /// Call for every shape that leaves the drawing, members included.
    void Forget(const CShape& shape) { m_images.erase(&shape); }

private:
    std::unordered_map<const CShape*, QImage> m_images;
};
