#include "image/SharedPictures.h"

#include "image/PixelBytes.h"

#include <utility>

namespace shapes {

namespace {

/// Up to this number of pictures with the same samples are compared with a new one byte by byte. Among more, the new
/// one is looked up by the hash of all its bytes.
constexpr std::ptrdiff_t kComparedWhole = 2;

bool Equal(const cv::Mat& a, const cv::Mat& b)
{
    return SameLayout(a, b) && SameBytes(a, b);
}

} // namespace

SharedPictures::Buffer::Buffer(const cv::Mat& image)
    : data(image.data), step(image.step[0]), rows(image.rows), columns(image.cols), type(image.type())
{}

SharedPictures::~SharedPictures()
{
    Clear();
}

void SharedPictures::Add(cv::Mat image, const CShapeImage* user)
{
    const auto known = m_positions.find(user);
    const Position old = known == m_positions.end() ? m_entries.end() : known->second;
    const Found found = EqualsOf(image);
    // When the search ends at the user's present entry, equal or not, the user gets a new one.
    Position target = found.equals == m_bySamples.end() ? old : FirstOf(found, image, old);
    if (target == old)
        target = Append(std::move(image), found.equals);
    ++target->users;
    m_positions.insert_or_assign(user, target);
    if (old != m_entries.end())
        Leave(old);
}

/// The group of pictures equal to image, a new one if there is none; end() for an empty image, which is never shared.
SharedPictures::Found SharedPictures::EqualsOf(const cv::Mat& image)
{
    if (image.empty())
        return {m_bySamples.end()};
    const auto [from, to] = m_byBuffer.equal_range(Buffer(image));
    for (auto known = from; known != to; ++known)
        if (SameLayout(known->second->image, image))
            return {known->second->equals};
    const size_t samples = SampledHash(image);
    if (const auto equals = EqualsBySamples(image, samples); equals != m_bySamples.end())
        return {equals, true};
    return {m_bySamples.emplace(samples, Equals())};
}

SharedPictures::BySamples::iterator SharedPictures::EqualsBySamples(const cv::Mat& image, size_t samples)
{
    const auto [from, to] = m_bySamples.equal_range(samples);
    const bool byHash = std::distance(from, to) > kComparedWhole;
    const size_t hash = byHash ? FullHash(image) : 0;
    for (auto candidate = from; candidate != to; ++candidate) {
        Equals& equals = candidate->second;
        const cv::Mat& picture = equals.entries.begin()->second->image;
        if (byHash && !equals.fullHash)
            equals.fullHash = FullHash(picture);
        if ((!byHash || equals.fullHash == hash) && Equal(picture, image))
            return candidate;
    }
    return m_bySamples.end();
}

/// The first entry before end that holds image; end when there is none. What was just compared is not read again.
SharedPictures::Position SharedPictures::FirstOf(const Found& found, const cv::Mat& image, Position end)
{
    const uint64_t limit = end == m_entries.end() ? m_nextNumber : end->number;
    bool compared = found.compared;
    for (const auto& [number, position] : found.equals->second.entries) {
        if (number >= limit)
            break;
        // No byte is read when they share their pixels.
        if (std::exchange(compared, false) || Equal(position->image, image))
            return position;
    }
    return end;
}

SharedPictures::Position SharedPictures::Append(cv::Mat image, BySamples::iterator equals)
{
    const Position position = m_entries.insert(m_entries.end(), Entry{std::move(image), 0, m_nextNumber++, equals});
    if (equals == m_bySamples.end())
        return position;
    position->buffer = m_byBuffer.emplace(Buffer(position->image), position);
    equals->second.entries.emplace(position->number, position);
    return position;
}

bool SharedPictures::Remove(const CShapeImage* user)
{
    const auto known = m_positions.find(user);
    if (known == m_positions.end())
        return false;
    const Position position = known->second;
    m_positions.erase(known);
    Leave(position);
    return true;
}

cv::Mat* SharedPictures::Get(const CShapeImage* user)
{
    const auto known = m_positions.find(user);
    return known == m_positions.end() ? nullptr : &known->second->image;
}

void SharedPictures::Clear()
{
    m_positions.clear();
    m_byBuffer.clear();
    m_bySamples.clear();
    while (!m_entries.empty())
        m_entries.pop_back();
}

void SharedPictures::Leave(Position position)
{
    if (--position->users > 0)
        return;
    if (position->equals != m_bySamples.end()) {
        Equals& equals = position->equals->second;
        m_byBuffer.erase(position->buffer);
        equals.entries.erase(position->number);
        if (equals.entries.empty())
            m_bySamples.erase(position->equals);
    }
    m_entries.erase(position);
}

} // namespace shapes
