#include "image/ZeroedPixels.h"

#include <cstdlib>
#include <memory>
#include <new>

namespace shapes {

namespace {

/// Allocates zeroed memory; the system provides large blocks page by page, as they are written. Only for continuous
/// two-dimensional 8-bit matrices.
class ZeroedAllocator : public cv::MatAllocator
{
public:
    cv::UMatData* allocate(int, const int* sizes, int, void*, size_t* step, cv::AccessFlag,
                           cv::UMatUsageFlags) const override
    {
        step[0] = static_cast<size_t>(sizes[1]);
        step[1] = 1;
        auto picture = std::make_unique<cv::UMatData>(this);
        picture->size = static_cast<size_t>(sizes[0]) * step[0];
        picture->data = picture->origdata = static_cast<uchar*>(std::calloc(picture->size, 1));
        if (!picture->data)
            throw std::bad_alloc();
        return picture.release();
    }
    bool allocate(cv::UMatData* picture, cv::AccessFlag, cv::UMatUsageFlags) const override { return picture; }
    void deallocate(cv::UMatData* picture) const override
    {
        std::free(picture->origdata);
        picture->origdata = nullptr;
        delete picture;
    }
};

} // namespace

cv::Mat ZeroedGrey(int rows, int columns)
{
    static auto* const allocator = new ZeroedAllocator; // never destroyed: hosts may destroy stores at exit
    cv::Mat picture;
    picture.allocator = allocator;
    picture.create(rows, columns, CV_8U);
    picture.allocator = nullptr; // Copies of this matrix use the usual allocator.
    return picture;
}

} // namespace shapes
