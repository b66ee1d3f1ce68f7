/// The first directory of a TIFF file, of both the classic kind and the one with 64-bit offsets.
#pragma once

#include "image/FileNumbers.h"

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace shapes {

/// The tags in use.
enum TiffTag : unsigned
{
    TIFF_WIDTH = 256,
    TIFF_HEIGHT = 257,
    TIFF_ORIENTATION = 274,
    TIFF_SAMPLES = 277, ///< per pixel
    TIFF_PLANAR = 284,  ///< 2: each sample in a plane of its own
    TIFF_TILE_WIDTH = 322,
    TIFF_TILE_HEIGHT = 323
};

/// An entry of the directory.
struct TiffField
{
    unsigned tag = 0;
    unsigned type = 0;
    uint64_t entry = 0; ///< offset of the entry's first byte
    uint64_t value = 0; ///< offset of its value field
};

class TiffDirectory
{
public:
    /// file begins with the signature of one of the two kinds. No fields when their number is more than the file can
    /// hold.
    explicit TiffDirectory(std::span<const unsigned char> file);

    bool IsWide() const { return m_isWide; }
    bool IsBigEndian() const { return m_isBigEndian; }
    const std::vector<TiffField>& Fields() const { return m_fields; }

    /// A whole number; nothing for fields of other types.
    std::optional<uint64_t> Number(const TiffField& field) const;
    /// The number of the first field with the tag; fallback when there is none.
    uint64_t Number(TiffTag tag, uint64_t fallback) const;

private:
    bool m_isBigEndian;
    FileNumbers m_numbers;
    bool m_isWide;
    std::vector<TiffField> m_fields;
};

} // namespace shapes
