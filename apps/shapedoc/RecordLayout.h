/// The layout of a document's records as data: for every kind of shape the fields in their order, the document versions
/// that carry them and the values that they may have.
#pragma once

#include <cstdint>
#include <limits>
#include <span>

/// What the bytes of a field hold. All numbers are little-endian.
enum class Content
{
    Whole,   ///< int32
    Byte,    ///< uint8
    Bits,    ///< uint32 whose bits all lie in allowed.high
    Color,   ///< uint32, every value
    Single,  ///< 32-bit float
    Double,  ///< 64-bit float
    Unread,  ///< as many bytes as allowed.high says; nobody looks at them
    Text,    ///< int32 length, allowed.low to allowed.high, then as many bytes, none of them zero
    Picture, ///< int32 width, height, bits (8) and row length, then the rows
    Rows,    ///< int32 count, then as many rows
    Members  ///< a list: uint32 count, then as many shapes
};

/// Both ends belong to it.
struct Limits
{
    int64_t low = std::numeric_limits<int32_t>::min();
    int64_t high = std::numeric_limits<int32_t>::max();

    bool Holds(int64_t value) const { return low <= value && value <= high; }
};

struct RowLayout;

struct Field
{
    const char* name;
    Content content;
    Limits allowed = {}; ///< values (floats: every finite one), or lengths of a text
    Limits likely = {};  ///< values that documents really have; tells records from other bytes
    int since = 0;       ///< first document version that carries the field
    const RowLayout* rows = nullptr;
    double instead = 0; ///< value that does the least harm in place of one that cannot be
};

/// Fields of fixed width that are repeated.
struct RowLayout
{
    const char* name;
    int64_t bytes; ///< of one row
    std::span<const Field> fields;
};

/// One kind of shape: a tag and the record, which begins with kCommonFields.
struct RecordLayout
{
    uint32_t tag;
    const char* name;
    std::span<const Field> parts[3]; ///< behind the common fields, in this order
};

constexpr int kFirstVersion = 0;
constexpr int kLatestVersion = 14;
constexpr int64_t kHeadBytes = 44;        ///< of the common fields without the points, the count of points included
constexpr int64_t kLeastShapeBytes = 52;  ///< tag, common fields without points, and the shortest that follows
constexpr int64_t kPointCountOffset = 40; ///< in the common fields
constexpr int kDeepestGroup = 256;        ///< levels of groups below the document's own list; more is not read

extern const std::span<const Field> kCommonFields;
extern const RowLayout kPointRow;
extern const RowLayout kCellRow;

/// Null for an unknown tag.
const RecordLayout* LayoutOf(uint32_t tag);
