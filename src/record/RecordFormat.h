/// The format of documents as data: for every kind of shape the fields of its record in their order, the document
/// versions that carry them and the values that they may have. Code that examines records without creating shapes uses
/// this table; a test compares the classes' own reading and writing with it.
#pragma once

#include "record/DocumentVersion.h"

#include <array>
#include <cstdint>
#include <limits>
#include <span>
#include <string_view>

namespace shapes {

/// What the bytes of a field hold. All numbers are little-endian.
enum class Content
{
    Int32,   ///< a signed whole number
    Byte,    ///< uint8
    Bits,    ///< uint32 whose bits all lie in range.high
    Color,   ///< uint32, every value
    Float,   ///< 32-bit float
    Double,  ///< 64-bit float
    Unused,  ///< as many bytes as range.high says; readers skip them
    Text,    ///< int32 length, within range, then as many bytes, none of them zero: UTF-8, a file name in the local
             ///< encoding
    Picture, ///< int32 width, height, bits (8) and row length, then the rows
    Rows,    ///< int32 count, within range, then as many rows
    Members  ///< a list: uint32 count, then as many shapes
};

/// A range that includes both ends.
struct Limits
{
    int64_t low = std::numeric_limits<int32_t>::min();
    int64_t high = std::numeric_limits<int32_t>::max();

    constexpr bool Holds(int64_t value) const { return low <= value && value <= high; }
};

struct RowFormat;

struct Field
{
    std::string_view name;
    Content type;
    int since = 0;                   ///< first document version that carries the field
    Limits range = {};               ///< possible values (floats: every finite one), or lengths of a text
    Limits likely = {};              ///< values that documents really have; tells records from other bytes
    double fallback = 0;             ///< the value that does the least harm in place of an impossible one
    const RowFormat* rows = nullptr; ///< of Content::Rows
};

/// Fields of fixed width that are repeated.
struct RowFormat
{
    std::string_view name;
    std::span<const Field> fields;
};

/// One kind of shape: a tag, the common fields, then the parts in their order.
struct RecordFormat
{
    uint32_t tag;
    std::string_view name;
    std::array<std::span<const Field>, 2> parts;
};

inline constexpr int kFirstVersion = 0;
inline constexpr int kLatestVersion = SHAPE_DOCUMENT_VERSION;

/// First versions that carry a field.
inline constexpr int kTextAngleSince = 1;
inline constexpr int kTextCentreSince = 2;
inline constexpr int kTextMirrorsSince = 3;
inline constexpr int kTextScalesSince = 4;
inline constexpr int kTextAlignmentSince = 5;
inline constexpr int kExtractContourSince = 7;
inline constexpr int kTextLineSpacingSince = 8;
inline constexpr int kTextReservedSince = 11;
inline constexpr int kOriginalPictureSince = 13;

/// Up to these versions a list's reader turns shapes into outlines, one vector shape per sub-path.
inline constexpr int kLastVersionOfOutlinedTexts = 1;
inline constexpr int kLastVersionOfSplitVectors = 2;

inline constexpr int64_t kTagBytes = 4;
inline constexpr int64_t kCountBytes = 4;   ///< of rows, and of a list's shapes
inline constexpr int32_t kBitsPerPixel = 8; ///< of stored pictures
/// Levels of groups below the document's own list; documents with more are not read.
inline constexpr int kDeepestGroup = 256;
inline constexpr int64_t kMostTextBytes = 16383;
inline constexpr int64_t kMostFamilyBytes = 63;
inline constexpr int64_t kMostFileNameBytes = 259;

namespace format {

inline constexpr Limits kFlag{0, 1};
inline constexpr Limits kStatusBits{0, 15};
/// CShape::SetGroup(false) may borrow from the higher bits, which makes the word negative as int32.
inline constexpr Limits kStatus{-16, kStatusBits.high};
inline constexpr Limits kSmall{-1, 16};                       ///< numbers that only the host interprets
inline constexpr Limits kLikelyPlaces{-1'000'000, 1'000'000}; ///< mm: no machine reaches a kilometre
inline constexpr Limits kCount{0, std::numeric_limits<int32_t>::max()};

} // namespace format

inline constexpr Field kPointFields[] = {
    {.name = "x", .type = Content::Float, .likely = format::kLikelyPlaces},
    {.name = "y", .type = Content::Float, .likely = format::kLikelyPlaces},
    {.name = "type", .type = Content::Byte, .range = {0, 3}, .likely = {0, 3}},
};
inline constexpr RowFormat kPointRow{"point", kPointFields};

inline constexpr Field kCellFields[] = {
    {.name = "number", .type = Content::Int32},
    {.name = "x", .type = Content::Double, .likely = format::kLikelyPlaces},
    {.name = "y", .type = Content::Double, .likely = format::kLikelyPlaces},
    {.name = "valid", .type = Content::Byte, .range = format::kFlag, .likely = format::kFlag},
    {.name = "selected", .type = Content::Byte, .range = format::kFlag, .likely = format::kFlag},
};
inline constexpr RowFormat kCellRow{"cell", kCellFields};

inline constexpr Field kCommonFields[] = {
    {.name = "status", .type = Content::Bits, .range = format::kStatus, .likely = format::kStatusBits},
    {.name = "color", .type = Content::Color},
    {.name = "guide line mode", .type = Content::Int32, .likely = format::kSmall},
    {.name = "lead-in", .type = Content::Int32, .likely = format::kFlag},
    {.name = "lead-in length", .type = Content::Double, .likely = format::kLikelyPlaces},
    {.name = "lead-out", .type = Content::Int32, .likely = format::kFlag},
    {.name = "padding", .type = Content::Unused, .range = {4, 4}},
    {.name = "lead-out length", .type = Content::Double, .likely = format::kLikelyPlaces},
    {.name = "points", .type = Content::Rows, .range = format::kCount, .likely = format::kCount, .rows = &kPointRow},
};

inline constexpr Field kVectorFields[] = {
    {.name = "vector type", .type = Content::Int32, .range = {0, 6}, .likely = {0, 6}, .fallback = 6},
    {.name = "extract contour",
     .type = Content::Byte,
     .since = kExtractContourSince,
     .range = format::kFlag,
     .likely = format::kFlag,
     .fallback = 1},
};

inline constexpr Field kTextFields[] = {
    {.name = "text", .type = Content::Text, .range = {0, kMostTextBytes}},
    {.name = "family", .type = Content::Text, .range = {0, kMostFamilyBytes}},
    {.name = "bold", .type = Content::Byte, .range = format::kFlag, .likely = format::kFlag, .fallback = 1},
    {.name = "italic", .type = Content::Byte, .range = format::kFlag, .likely = format::kFlag, .fallback = 1},
    {.name = "vertical", .type = Content::Byte, .range = format::kFlag, .likely = format::kFlag, .fallback = 1},
    {.name = "size", .type = Content::Double, .fallback = 20},
    {.name = "angle", .type = Content::Double, .since = kTextAngleSince},
    {.name = "centre x", .type = Content::Double, .since = kTextCentreSince, .likely = format::kLikelyPlaces},
    {.name = "centre y", .type = Content::Double, .since = kTextCentreSince, .likely = format::kLikelyPlaces},
    {.name = "mirror x",
     .type = Content::Byte,
     .since = kTextMirrorsSince,
     .range = format::kFlag,
     .likely = format::kFlag,
     .fallback = 1},
    {.name = "mirror y",
     .type = Content::Byte,
     .since = kTextMirrorsSince,
     .range = format::kFlag,
     .likely = format::kFlag,
     .fallback = 1},
    {.name = "scale x", .type = Content::Double, .since = kTextScalesSince, .fallback = 1},
    {.name = "scale y", .type = Content::Double, .since = kTextScalesSince, .fallback = 1},
    {.name = "alignment", .type = Content::Int32, .since = kTextAlignmentSince, .range = {0, 3}, .likely = {0, 3}},
    {.name = "character spacing", .type = Content::Double, .since = kTextAlignmentSince},
    {.name = "line spacing", .type = Content::Double, .since = kTextLineSpacingSince},
    {.name = "reserved", .type = Content::Int32, .since = kTextReservedSince},
};

inline constexpr Field kImageFields[] = {
    {.name = "file format", .type = Content::Int32, .likely = format::kSmall},
    {.name = "file name", .type = Content::Text, .range = {0, kMostFileNameBytes}},
    {.name = "display picture", .type = Content::Picture},
    {.name = "reserved", .type = Content::Unused, .range = {8, 8}},
    {.name = "original picture", .type = Content::Picture, .since = kOriginalPictureSince},
    {.name = "process value 0", .type = Content::Int32, .since = kOriginalPictureSince},
    {.name = "process value 1", .type = Content::Int32, .since = kOriginalPictureSince},
    {.name = "process value 2", .type = Content::Int32, .since = kOriginalPictureSince},
    {.name = "process value 3", .type = Content::Int32, .since = kOriginalPictureSince},
    {.name = "process value 4", .type = Content::Int32, .since = kOriginalPictureSince},
    {.name = "process value 5", .type = Content::Int32, .since = kOriginalPictureSince},
    {.name = "process factor", .type = Content::Double, .since = kOriginalPictureSince, .fallback = 1},
    {.name = "process flag",
     .type = Content::Int32,
     .since = kOriginalPictureSince,
     .range = format::kFlag,
     .likely = format::kFlag,
     .fallback = 1},
    {.name = "processed",
     .type = Content::Int32,
     .since = kOriginalPictureSince,
     .range = format::kFlag,
     .likely = format::kFlag,
     .fallback = 1},
};

inline constexpr Field kCodeFields[] = {
    {.name = "code type", .type = Content::Byte, .range = format::kFlag, .likely = format::kFlag, .fallback = 1},
    {.name = "code text", .type = Content::Text, .range = format::kCount},
};

inline constexpr Field kMemberFields[] = {{.name = "members", .type = Content::Members}};
inline constexpr Field kCellListFields[] = {
    {.name = "cells", .type = Content::Rows, .range = format::kCount, .likely = format::kCount, .rows = &kCellRow},
};

inline constexpr RecordFormat kRecordFormats[] = {
    {.tag = 0, .name = "image", .parts = {kImageFields}},
    {.tag = 1, .name = "vector", .parts = {kVectorFields}},
    {.tag = 2, .name = "text", .parts = {kVectorFields, kTextFields}},
    {.tag = 3, .name = "group", .parts = {kMemberFields}},
    {.tag = 4, .name = "array", .parts = {kMemberFields, kCellListFields}},
    {.tag = 16, .name = "code image", .parts = {kImageFields, kCodeFields}},
};

/// Null for an unknown tag.
constexpr const RecordFormat* FormatOf(uint32_t tag)
{
    for (const RecordFormat& format : kRecordFormats)
        if (format.tag == tag)
            return &format;
    return nullptr;
}

/// Size of a field in bytes; the smallest possible one where it varies.
constexpr int64_t LeastBytes(const Field& field)
{
    switch (field.type) {
    case Content::Byte:
        return 1;
    case Content::Double:
        return 8;
    case Content::Unused:
        return field.range.high;
    case Content::Picture:
        return 16;
    default:
        return 4;
    }
}

/// Smallest size of the fields that a version carries, in bytes.
constexpr int64_t LeastBytes(std::span<const Field> fields, int version)
{
    int64_t bytes = 0;
    for (const Field& field : fields)
        bytes += version >= field.since ? LeastBytes(field) : 0;
    return bytes;
}

constexpr int64_t RowBytes(const RowFormat& row)
{
    return LeastBytes(row.fields, kLatestVersion);
}

inline constexpr int64_t kPointRowBytes = RowBytes(kPointRow), kCellRowBytes = RowBytes(kCellRow);

/// Offset of the named field, which must stand behind fields of fixed width only. An unknown name does not compile.
consteval int64_t OffsetOf(std::span<const Field> fields, std::string_view name)
{
    int64_t offset = 0;
    for (const Field& field : fields) {
        if (field.name == name)
            return offset;
        offset += LeastBytes(field);
    }
    throw "no field has this name";
}

/// Bytes of the common fields up to and including the count of points.
inline constexpr int64_t kHeadBytes = LeastBytes(kCommonFields, kLatestVersion);
/// Bytes of the shortest possible entry of a list: tag, common fields without points, a vector's fields of version 0.
inline constexpr int64_t kLeastShapeBytes = kTagBytes + kHeadBytes + LeastBytes(kVectorFields, kFirstVersion);

/// Whether the layout of some record changed with this version.
constexpr bool ChangesLayout(int version)
{
    for (const RecordFormat& format : kRecordFormats)
        for (const std::span<const Field> part : format.parts)
            for (const Field& field : part)
                if (field.since == version && version != kFirstVersion)
                    return true;
    return false;
}

/// The earliest version whose records are laid out as this version's are.
constexpr int FirstVersionLike(int version)
{
    while (version > kFirstVersion && !ChangesLayout(version))
        --version;
    return version;
}

} // namespace shapes
