/// PictureCache: images of grey pictures, ready to be painted.
#pragma once

#include <QImage>
#include <QPointF>

#include <opencv2/core.hpp>

#include <array>
#include <unordered_map>

class CShape;
class CShapeImage;

/// Keeps one image for each picture shape, by its address. An edit replaces shapes by copies: a copy whose picture
/// looks the same, as after a move, takes over the image of the shape that left.
class PictureCache
{
public:
    /// The picture as a burn: its black opaque, its white transparent. Null when there is nothing to show. Cost: that
    /// of CShapeImage::GetImage, once; O(edits of the shape) where an image is taken over.
    const QImage& Image(CShapeImage& shape);
    /// Call for every shape that leaves the drawing, members included. Its image can be taken over until DropLeft.
    void Forget(const CShape& shape);
    /// Call when the drawing has been painted.
    void DropLeft() { m_left.clear(); }

private:
    /// An image and what it was made of.
    struct Picture
    {
        cv::Mat pixels;                   ///< shared with the stores
        std::array<QPointF, 4> corners{}; ///< that they cover, from the first one (mm)
        QImage ink{};
    };

    static Picture SourceOf(CShapeImage& shape);
    bool TakeLeft(Picture& picture);

    std::unordered_map<const CShape*, Picture> m_pictures;
    std::unordered_multimap<const uchar*, Picture> m_left; ///< of shapes that left, by their pixels
};
