#include "image/PixelBytes.h"

#include <QHashFunctions>

#include <algorithm>
#include <cstring>

namespace shapes {

namespace {

constexpr int kSampledRows = 16;
constexpr size_t kSampledBytes = 16; ///< of each of those rows

/// Visits up to samples indices below all, evenly spaced, the last one included.
template <class Count, class Visit>
void ForEachSample(Count all, Count samples, Visit visit)
{
    const Count taken = std::min(all, samples);
    for (Count i = 1; i <= taken; ++i)
        visit(i * all / taken - 1);
}

} // namespace

bool SameLayout(const cv::Mat& a, const cv::Mat& b)
{
    if (a.empty() || b.empty() || a.dims != b.dims || a.size != b.size || a.type() != b.type())
        return false;
    const int steps = std::min(a.channels(), a.dims);
    return std::equal(a.step.p, a.step.p + steps, b.step.p);
}

bool SameBytes(const cv::Mat& a, const cv::Mat& b)
{
    if (a.data == b.data)
        return true;
    if (a.isContinuous() && b.isContinuous())
        return std::memcmp(a.data, b.data, a.total() * a.elemSize()) == 0;
    if (a.dims > 2)
        return false;
    const size_t rowBytes = RowBytes(a);
    for (int row = 0; row < a.rows; ++row) {
        if (std::memcmp(a.ptr(row), b.ptr(row), rowBytes) != 0)
            return false;
    }
    return true;
}

size_t SampledHash(const cv::Mat& image)
{
    size_t hash = qHashMulti(0, image.rows, image.cols, image.type());
    if (image.dims > 2)
        return hash;
    const size_t rowBytes = RowBytes(image);
    ForEachSample<qint64>(image.rows, kSampledRows, [&](qint64 row) {
        const unsigned char* bytes = image.ptr(static_cast<int>(row));
        ForEachSample(rowBytes, kSampledBytes, [&](size_t at) { hash = hash * 31 + bytes[at]; });
    });
    return hash;
}

size_t FullHash(const cv::Mat& image)
{
    if (image.isContinuous())
        return qHashBits(image.data, image.total() * image.elemSize());
    size_t hash = 0;
    for (int row = 0; image.dims == 2 && row < image.rows; ++row)
        hash = qHashBits(image.ptr(row), RowBytes(image), hash);
    return hash;
}

} // namespace shapes
