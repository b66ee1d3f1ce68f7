#include "image/ImageMgr.h"

#include <algorithm>
#include <cstring>

namespace {

/// Sizes, type and the steps that belong to the pixels' layout.
bool SameLayout(const cv::Mat& a, const cv::Mat& b)
{
    if (a.empty() || b.empty() || a.dims != b.dims || a.size != b.size || a.type() != b.type())
        return false;
    const int steps = std::min(a.channels(), a.dims);
    return std::equal(a.step.p, a.step.p + steps, b.step.p);
}

/// Row by row, so that a picture that is a part of a larger one is compared within its own columns.
bool SameBytes(const cv::Mat& a, const cv::Mat& b)
{
    if (a.data == b.data)
        return true;
    if (a.isContinuous() && b.isContinuous())
        return std::memcmp(a.data, b.data, a.total() * a.elemSize()) == 0;
    if (a.dims > 2)
        return false;
    const size_t rowBytes = a.cols * a.elemSize();
    for (int row = 0; row < a.rows; ++row) {
        if (std::memcmp(a.ptr(row), b.ptr(row), rowBytes) != 0)
            return false;
    }
    return true;
}

} // namespace

ImageMgr::ImageMgr() = default;

ImageMgr::~ImageMgr()
{
    Clear();
}

void ImageMgr::Add(cv::Mat& image, CShapeImage* shape)
{
    if (!shape)
        return;
    const cv::Mat added = image; // the argument may lie in the entry that goes
    const auto known = m_positions.find(shape);
    const Position old = known == m_positions.end() ? m_entries.end() : known->second;
    Position target = std::find_if(m_entries.begin(), old, [&added](const Entry& entry) {
        return SameLayout(entry.image, added) && SameBytes(entry.image, added);
    });
    // Where the walk ends at the shape's own entry, equal or not, it moves on to a fresh one.
    if (target == old)
        target = m_entries.insert(m_entries.end(), Entry{added, 0});
    ++target->users;
    m_positions.insert_or_assign(shape, target);
    if (old != m_entries.end())
        Leave(old);
}

bool ImageMgr::Remove(CShapeImage* shape)
{
    const auto known = m_positions.find(shape);
    if (known == m_positions.end())
        return false;
    const Position position = known->second;
    m_positions.erase(known);
    Leave(position);
    return true;
}

cv::Mat* ImageMgr::Get(CShapeImage* shape)
{
    const auto known = m_positions.find(shape);
    return known == m_positions.end() ? nullptr : &known->second->image;
}

void ImageMgr::Clear()
{
    m_positions.clear();
    while (!m_entries.empty())
        m_entries.pop_back();
}

void ImageMgr::Leave(Position position)
{
    if (--position->users == 0)
        m_entries.erase(position);
}
