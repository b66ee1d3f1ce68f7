/// The stores in which the library keeps the pixels of a document's pictures.
#pragma once

#include "image/ImageMgr.h"
#include "image/ShapeImage.h"

/// In use by the library while it lives. Documents must be gone before.
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

private:
    ImageMgr m_working;
    ImageMgr m_original;
    ImageMgr m_cache;
};
