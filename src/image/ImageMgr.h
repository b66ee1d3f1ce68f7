/// ImageMgr, a store of pictures that shapes share.
#pragma once

#include "shapemodel_export.h"

#include <opencv2/core.hpp>

#include <memory>

class CShapeImage;

/// Keeps one picture per image shape, and one only for all shapes whose pictures are equal byte for byte, so that copies
/// on the design cost no pixel memory.
///
/// **Ownership.** The host makes its stores and hands them to the library (CShapeImage::SetImageMgr and its fellows); it
/// must take them back (set null) before it destroys them. A store owns its pictures, never the shapes: their addresses
/// are keys. A shape takes itself out of the stores when it is destroyed.
///
/// **Sharing.** Add keeps a header of the picture: the pixels stay shared with the caller's matrix. Whoever changes
/// pixels in place changes them for every shape that shows them, and equal ones that come later are not joined to them.
/// Filing costs one look at the picture's bytes at most; pixels that lie where a known picture's lie are not looked at.
///
/// **Threads.** One store may serve documents on several threads: each operation locks it. What Get lends stays in place
/// until an operation for that same shape, or Clear.
class SHAPEMODEL_EXPORT ImageMgr
{
public:
    ImageMgr();
    ImageMgr(const ImageMgr&) = delete;
    ImageMgr& operator=(const ImageMgr&) = delete;
    ~ImageMgr();

    /// Files image for shape. The shape joins the first entry with an equal picture that lies before the one it is in
    /// now, else it gets an entry of its own behind all others; the entry it was in loses it either way. A picture from
    /// this very store is welcome. Empty pictures are never shared. Nothing happens for a null shape.
    void Add(cv::Mat& image, CShapeImage* shape);

    /// Takes the shape out of its entry; an entry without shapes goes, with its picture. False when it is in none.
    bool Remove(CShapeImage* shape);

    /// The shape's picture, null when it has none. Owned by the store and lent, for reading only, until the next Add or
    /// Remove for this shape, or Clear: never write into it, for its pixels may be those of other shapes and of other
    /// stores too.
    cv::Mat* Get(CShapeImage* shape);

    /// Destroys all entries, the last one first.
    void Clear();

private:
    struct Guarded;
    std::unique_ptr<Guarded> m_store;
};
