#include "image/ImageMgr.h"

#include "image/SharedPictures.h"

#include <mutex>

struct ImageMgr::Guarded
{
    std::mutex mutex;
    shapes::SharedPictures pictures;
};

ImageMgr::ImageMgr() : m_store(std::make_unique<Guarded>()) {}

ImageMgr::~ImageMgr() = default;

void ImageMgr::Add(cv::Mat& image, CShapeImage* shape)
{
    const std::lock_guard lock(m_store->mutex);
    if (shape)
        m_store->pictures.Add(image, shape);
}

bool ImageMgr::Remove(CShapeImage* shape)
{
    const std::lock_guard lock(m_store->mutex);
    return m_store->pictures.Remove(shape);
}

cv::Mat* ImageMgr::Get(CShapeImage* shape)
{
    const std::lock_guard lock(m_store->mutex);
    return m_store->pictures.Get(shape);
}

void ImageMgr::Clear()
{
    const std::lock_guard lock(m_store->mutex);
    m_store->pictures.Clear();
}
