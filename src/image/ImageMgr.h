/// ImageMgr, a store of pictures that shapes share.
#pragma once

#include "shapemodel_export.h"

#include <opencv2/core.hpp>

#include <memory>

class CShapeImage;

/// Keeps one picture per image shape, and one only for all shapes whose pictures are equal byte for byte, so that
/// copies on the design cost no pixel memory.
///
/// **Ownership.** The host creates the stores and sets them (CShapeImage::SetImageMgr, SetOrgImageMgr,
/// SetCacheImageMgr); it must set null before it destroys one. A store owns its pictures, not the shapes, whose
/// addresses are only keys. A shape removes itself from the stores when it is destroyed.
///
/// **Sharing.** Add keeps a header of the picture: the pixels stay shared with the caller's matrix. Writing into them
/// changes them for every shape that shows them, and equal pictures that are added later do not join them. Add reads
/// the picture's bytes at most once, and not at all when a known picture has the same pixels in memory.
///
/// **Threads.** Thread-safe: each operation locks the store. What Get lends stays valid until an operation for that
/// same shape, or Clear.
///
/// **Costs.** Look-ups go by hashes: O(1) however many pictures there are.
class SHAPEMODEL_EXPORT ImageMgr
{
public:
    ImageMgr();
    ImageMgr(const ImageMgr&) = delete;
    ImageMgr& operator=(const ImageMgr&) = delete;
    ~ImageMgr();

    /// Stores image for shape. The shape joins the first entry with an equal picture that stands before its present
    /// entry, else it gets an entry of its own behind all others; it leaves its present entry either way. image may be
    /// a picture of this store. Empty pictures are never shared. Nothing happens for a null shape.
    /// Cost: O(1) for a picture that shares the pixels of a known one, else O(bytes) at most.
    void Add(cv::Mat& image, CShapeImage* shape);

    /// Removes the shape from its entry; an entry without shapes is removed too. False when the shape has none.
    bool Remove(CShapeImage* shape);

    /// The shape's picture, null when it has none. Owned by the store and lent, for reading only, until the next Add or
    /// Remove for this shape, or Clear: other shapes and other stores may share its pixels.
    cv::Mat* Get(CShapeImage* shape);

    /// Destroys all entries, the last one first. Cost: O(pictures).
    void Clear();

private:
    struct Guarded;
    std::unique_ptr<Guarded> m_store;
};
