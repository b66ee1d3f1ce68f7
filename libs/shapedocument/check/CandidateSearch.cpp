#include "check/CandidateSearch.h"

#include "record/RecordFormat.h"
#include "shape/ShapeTypes.h"

#include <algorithm>
#include <cmath>
#include <cstring>

namespace shapedocument {

using shapes::kCountBytes;
using shapes::kHeadBytes;
using shapes::kTagBytes;

namespace {

constexpr int64_t kStatusAt = shapes::OffsetOf(shapes::kCommonFields, "status");
constexpr int64_t kColorAt = shapes::OffsetOf(shapes::kCommonFields, "color");
constexpr int64_t kLeadInAt = shapes::OffsetOf(shapes::kCommonFields, "lead-in");
constexpr int64_t kLeadInLengthAt = shapes::OffsetOf(shapes::kCommonFields, "lead-in length");
constexpr int64_t kLeadOutAt = shapes::OffsetOf(shapes::kCommonFields, "lead-out");
constexpr int64_t kLeadOutLengthAt = shapes::OffsetOf(shapes::kCommonFields, "lead-out length");
constexpr int64_t kPointCountAt = shapes::OffsetOf(shapes::kCommonFields, "points");
constexpr int64_t kPointTypeAt = shapes::OffsetOf(shapes::kPointFields, "type");
constexpr int64_t kCellXAt = shapes::OffsetOf(shapes::kCellFields, "x");
constexpr int64_t kCellYAt = shapes::OffsetOf(shapes::kCellFields, "y");
constexpr int64_t kCellValidAt = shapes::OffsetOf(shapes::kCellFields, "valid");
constexpr int64_t kCellSelectedAt = shapes::OffsetOf(shapes::kCellFields, "selected");

constexpr int64_t kPictureCorners = 5;
constexpr int64_t kPointsToCompare = 64;
constexpr uint32_t kOpaque = 0xFF;
constexpr double kLeastLength = 1e-60;
constexpr double kLargestLength = 1e6;

template <class Number>
Number At(Bytes bytes, int64_t offset)
{
    Number value;
    std::memcpy(&value, bytes.data() + offset, sizeof value);
    return value;
}

bool HasRoom(Bytes bytes, int64_t offset, int64_t count)
{
    return offset >= 0 && count <= static_cast<int64_t>(bytes.size()) - offset;
}

bool LikelyColor(uint32_t color)
{
    return color >> 24 == 0 || color >> 24 == kOpaque;
}

/// Zero, or neither tiny nor huge: integers misread as floating-point numbers are tiny.
bool LikelyLength(double length)
{
    return length == 0 || (std::abs(length) > kLeastLength && std::abs(length) < kLargestLength);
}

/// The common fields at offset, up to the points.
bool LikelyCommon(Bytes bytes, int64_t offset)
{
    const auto flag = [&](int64_t place) { return At<uint32_t>(bytes, offset + place) <= 1; };
    const int64_t points = At<uint32_t>(bytes, offset + kPointCountAt);
    return At<uint32_t>(bytes, offset + kStatusAt) <= shapes::format::kStatusBits.high &&
           LikelyColor(At<uint32_t>(bytes, offset + kColorAt)) && flag(kLeadInAt) && flag(kLeadOutAt) &&
           LikelyLength(At<double>(bytes, offset + kLeadInLengthAt)) &&
           LikelyLength(At<double>(bytes, offset + kLeadOutLengthAt)) &&
           HasRoom(bytes, offset + kHeadBytes, points * shapes::kPointRowBytes);
}

bool LikelyHead(Bytes bytes, int64_t offset)
{
    return HasRoom(bytes, offset, kTagBytes + kHeadBytes) && shapes::FormatOf(At<uint32_t>(bytes, offset)) &&
           LikelyCommon(bytes, offset + kTagBytes);
}

/// Whether the first points coincide: such a shape draws nothing worth saving.
bool PointsAllAlike(Bytes bytes, int64_t first, int64_t count)
{
    for (int64_t i = 1; i < std::min(count, kPointsToCompare); ++i)
        if (std::memcmp(bytes.data() + first, bytes.data() + first + i * shapes::kPointRowBytes, kPointTypeAt) != 0)
            return false;
    return true;
}

/// Whether the fields of a text shape begin at offset.
bool HoldsText(Bytes bytes, int64_t offset, int version)
{
    const int64_t length = offset + shapes::LeastBytes(shapes::kVectorFields, version);
    return HasRoom(bytes, length, kCountBytes) && At<uint32_t>(bytes, length) > 0;
}

bool HoldsShapes(Bytes bytes, int64_t membersOffset)
{
    return HasRoom(bytes, membersOffset, kCountBytes) && At<uint32_t>(bytes, membersOffset) > 0 &&
           LikelyHead(bytes, membersOffset + kCountBytes);
}

} // namespace

bool LooksLikeShape(Bytes bytes, int64_t offset, int version)
{
    // Most offsets end here: all tags are small numbers.
    if (!HasRoom(bytes, offset, kTagBytes) || At<uint32_t>(bytes, offset) > ESHAPE_CODEIMAGE ||
        !LikelyHead(bytes, offset))
        return false;
    const int64_t head = offset + kTagBytes;
    const int64_t points = At<uint32_t>(bytes, head + kPointCountAt);
    const int64_t behindPoints = head + kHeadBytes + points * shapes::kPointRowBytes;
    switch (At<uint32_t>(bytes, offset)) {
    case ESHAPE_VECTOR:
        return points > 1 && !PointsAllAlike(bytes, head + kHeadBytes, points);
    case ESHAPE_TEXT:
        return HoldsText(bytes, behindPoints, version);
    case ESHAPE_GROUP:
    case ESHAPE_ARRAY:
        return HoldsShapes(bytes, behindPoints);
    default:
        return points == kPictureCorners;
    }
}

bool LooksLikeNextShape(Bytes bytes, int64_t offset)
{
    if (offset == static_cast<int64_t>(bytes.size()))
        return true;
    // Zeros look like the start of a picture, except that every picture has corners.
    return LikelyHead(bytes, offset) && (At<uint32_t>(bytes, offset) != ESHAPE_IMAGE ||
                                         At<uint32_t>(bytes, offset + kTagBytes + kPointCountAt) == kPictureCorners);
}

bool LooksLikeCells(Bytes bytes, int64_t offset)
{
    const int64_t row = offset + kCountBytes;
    return HasRoom(bytes, offset, kCountBytes + shapes::kCellRowBytes) && At<int32_t>(bytes, offset) > 0 &&
           At<int32_t>(bytes, row) == 0 && LikelyLength(At<double>(bytes, row + kCellXAt)) &&
           LikelyLength(At<double>(bytes, row + kCellYAt)) && At<uint8_t>(bytes, row + kCellValidAt) <= 1 &&
           At<uint8_t>(bytes, row + kCellSelectedAt) <= 1;
}

} // namespace shapedocument
