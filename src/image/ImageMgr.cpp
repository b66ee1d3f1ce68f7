#include "image/ImageMgr.h"

#include <QHashFunctions>

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

bool Equal(const cv::Mat& a, const cv::Mat& b)
{
    return SameLayout(a, b) && SameBytes(a, b);
}

/// Beyond so many pictures a new one is looked up by its bytes' hash: walking past thousands that differ takes longer
/// than reading it. Pictures that somebody has changed in place since they came are not found then.
constexpr size_t kEntriesToWalk = 1'000;

size_t HashOf(const cv::Mat& image)
{
    if (image.isContinuous())
        return qHashBits(image.data, image.total() * image.elemSize());
    size_t hash = 0;
    for (int row = 0; image.dims == 2 && row < image.rows; ++row)
        hash = qHashBits(image.ptr(row), image.cols * image.elemSize(), hash);
    return hash;
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
    cv::Mat added = image; // the argument may lie in the entry that goes
    const auto known = m_positions.find(shape);
    const Position old = known == m_positions.end() ? m_entries.end() : known->second;
    Position target = FirstEqual(added, old);
    // Where the walk ends at the shape's own entry, equal or not, it moves on to a fresh one.
    if (target == old) {
        target = m_entries.insert(m_entries.end(), Entry{std::move(added), 0, m_nextNumber++});
        if (m_isIndexed)
            Index(target);
    }
    ++target->users;
    m_positions.insert_or_assign(shape, target);
    if (old != m_entries.end())
        Leave(old);
}

/// The first entry before end whose picture equals image; end when there is none.
ImageMgr::Position ImageMgr::FirstEqual(const cv::Mat& image, Position end)
{
    if (image.empty())
        return end;
    if (m_entries.size() > kEntriesToWalk)
        return FirstEqualByHash(image, end);
    return std::find_if(m_entries.begin(), end, [&image](const Entry& entry) { return Equal(entry.image, image); });
}

ImageMgr::Position ImageMgr::FirstEqualByHash(const cv::Mat& image, Position end)
{
    if (!m_isIndexed)
        for (auto position = m_entries.begin(); position != m_entries.end(); ++position)
            Index(position);
    m_isIndexed = true;
    const uint64_t limit = end == m_entries.end() ? m_nextNumber : end->number;
    Position first = end;
    const auto [from, to] = m_index.equal_range(HashOf(image));
    for (auto candidate = from; candidate != to; ++candidate) {
        const Position position = candidate->second;
        const bool earlier = position->number < (first == end ? limit : first->number);
        if (earlier && Equal(position->image, image))
            first = position;
    }
    return first;
}

void ImageMgr::Index(Position position)
{
    position->isIndexed = !position->image.empty();
    if (position->isIndexed)
        position->indexed = m_index.emplace(HashOf(position->image), position);
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
    m_index.clear();
    m_isIndexed = false;
    while (!m_entries.empty())
        m_entries.pop_back();
}

void ImageMgr::Leave(Position position)
{
    if (--position->users > 0)
        return;
    if (position->isIndexed)
        m_index.erase(position->indexed);
    m_entries.erase(position);
}
