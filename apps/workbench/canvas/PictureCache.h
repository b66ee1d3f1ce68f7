/// PictureCache, grey pictures as the machine will see them, ready to be painted.
#pragma once

#include <QImage>

#include <unordered_map>

class CShape;
class CShapeImage;

/// Keeps one image for each picture shape, by its address.
class PictureCache
{
public:
    /// In the palette's colour of what is burnt, with the opacity of the grey: what is white is not burnt, and shows
    /// what lies behind it. Null when there is nothing to show. Cost: that of CShapeImage::GetImage once.
    const QImage& Image(CShapeImage& shape);
    /// To be called with every shape that leaves the drawing, members included.
    void Forget(const CShape& shape) { m_images.erase(&shape); }

private:
    std::unordered_map<const CShape*, QImage> m_images;
    QRgb m_ink = 0; ///< of all of them
};
