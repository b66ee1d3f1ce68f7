/// The three stores in which the library keeps the pixels of pictures, for hosts that need no stores of their own.
#pragma once

#include "image/ImageMgr.h"
#include "image/ShapeImage.h"

/// Sets the store slots of CShapeImage on construction and clears them on destruction. At most one at a time in a
/// process; must outlive all documents with pictures.
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
