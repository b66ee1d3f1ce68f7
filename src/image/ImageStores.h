/// The three stores in which the library keeps the pixels of pictures, for hosts that need no stores of their own.
#pragma once

#include "image/ImageMgr.h"
#include "image/ShapeImage.h"

/// Sets the slots of CShapeImage as long as it lives, and clears them at its end. One at a time in a process; documents
/// with pictures must be gone before it is.
class ImageStores
{
public:
    ImageStores()
    {
        CShapeImage::SetImageMgr(&m_working);
        CShapeImage::SetOrgImageMgr(&m_original);
        CShapeImage::SetCacheImageMgr(&m_cache);
    }
    ImageStores(const ImageStores&) = delete;
    ImageStores& operator=(const ImageStores&) = delete;
    ~ImageStores()
    {
        CShapeImage::SetImageMgr(nullptr);
        CShapeImage::SetOrgImageMgr(nullptr);
        CShapeImage::SetCacheImageMgr(nullptr);
    }

    ImageMgr& Working() { return m_working; }   ///< the pictures last given to the shapes
    ImageMgr& Original() { return m_original; } ///< as loaded
    ImageMgr& Cache() { return m_cache; }       ///< as last shown

private:
    ImageMgr m_working;
    ImageMgr m_original;
    ImageMgr m_cache;
};
