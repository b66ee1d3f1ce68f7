/// Pictures by the shapes that use them; equal pictures are stored once.
#pragma once

#include <opencv2/core/mat.hpp>

#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <optional>
#include <tuple>
#include <unordered_map>

class CShapeImage;

namespace shapes {

/// The entries behind ImageMgr, which documents the operations. Not thread-safe.
///
/// **Cost.** A picture that shares its pixels with a known one is equal to it; no byte is read. Of any other, a few
/// hundred bytes are sampled. All bytes are read only when another picture has the same samples: once to compare them,
/// or, when many pictures have the same samples, once to hash them. Adding is therefore linear in the bytes, whatever
/// the pictures.
///
/// Pixels must not change while they are stored: a picture that did is not found by its new bytes, but it is never
/// taken for another one either.
class SharedPictures
{
public:
    SharedPictures() = default;
    SharedPictures(const SharedPictures&) = delete;
    SharedPictures& operator=(const SharedPictures&) = delete;
    ~SharedPictures();

    void Add(cv::Mat image, const CShapeImage* user);
    bool Remove(const CShapeImage* user);
    cv::Mat* Get(const CShapeImage* user);
    void Clear();

private:
    struct Entry;
    using Position = std::list<Entry>::iterator;

    /// Address and layout of pixels.
    struct Buffer
    {
        const unsigned char* data;
        size_t step;
        int rows, columns, type;
        explicit Buffer(const cv::Mat& image);
        bool operator<(const Buffer& other) const
        {
            return std::tie(data, step, rows, columns, type) <
                   std::tie(other.data, other.step, other.rows, other.columns, other.type);
        }
    };
    /// Entries with equal pictures, by their numbers. A user who holds the first and adds the picture again gets
    /// another.
    struct Equals
    {
        std::map<uint64_t, Position> entries;
        std::optional<size_t> fullHash = {}; ///< computed when first needed
    };
    using BySamples = std::multimap<size_t, Equals>;
    using ByBuffer = std::multimap<Buffer, Position>;

    struct Entry
    {
        cv::Mat image;
        size_t users = 0;
        uint64_t number = 0;             ///< grows along the list
        BySamples::iterator equals = {}; ///< end() of an empty picture
        ByBuffer::iterator buffer = {};  ///< unless the picture is empty
    };

    /// A group of equal pictures, and whether its first entry has just been compared with the picture that is added.
    struct Found
    {
        BySamples::iterator equals;
        bool compared = false;
    };

    Found EqualsOf(const cv::Mat& image);
    BySamples::iterator EqualsBySamples(const cv::Mat& image, size_t samples);
    Position FirstOf(const Found& found, const cv::Mat& image, Position end);
    Position Append(cv::Mat image, BySamples::iterator equals);
    void Leave(Position position);

    std::list<Entry> m_entries;
    uint64_t m_nextNumber = 0;
    BySamples m_bySamples;
    ByBuffer m_byBuffer;
    std::unordered_map<const CShapeImage*, Position> m_positions; ///< each user is in one entry at most
};

} // namespace shapes
