#include "image/JpegResolution.h"

#include "image/FileNumbers.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>
#include <cstring>
#include <optional>

namespace shapes {

namespace {

using Bytes = std::span<const unsigned char>;

constexpr size_t kSmallestFile = 32;
constexpr size_t kSegment = 6; ///< where the content of the first segment begins
constexpr unsigned char kApp0 = 0xE0;
constexpr unsigned char kApp1 = 0xE1;

constexpr float kDefaultDpi = 96.0F;
constexpr double kCentimetresPerInch = 2.54;

constexpr size_t kTiffHeader = 6;      ///< in the Exif segment, behind its signature
constexpr size_t kFirstDirectory = 8;  ///< in the TIFF header; its own offset field is not read
constexpr size_t kDirectoryEntry = 12; ///< bytes
constexpr unsigned kTagXResolution = 282;
constexpr unsigned kTagYResolution = 283;

bool StartsWith(Bytes bytes, const char* text, size_t length)
{
    return bytes.size() >= length && std::memcmp(bytes.data(), text, length) == 0;
}

/// The numeric formats of TIFF, with their size in bytes.
enum Format : unsigned
{
    BYTE = 1,
    ASCII,
    USHORT,
    ULONG,
    URATIONAL,
    SBYTE,
    UNDEFINED,
    SSHORT,
    SLONG,
    SRATIONAL,
    FLOAT,
    DOUBLE
};
constexpr std::array<size_t, 13> kFormatSize{0, 1, 1, 2, 4, 8, 1, 1, 2, 4, 8, 4, 8};

double ValueAt(const FileNumbers& tiff, size_t offset, unsigned format)
{
    switch (format) {
    case BYTE:
        return tiff.Get<uint8_t>(offset);
    case USHORT:
        return tiff.Get<uint16_t>(offset);
    case ULONG:
        return tiff.Get<uint32_t>(offset);
    case URATIONAL: // both kinds are read as signed
    case SRATIONAL: {
        const auto denominator = tiff.GetSigned<int32_t>(offset + 4);
        return denominator == 0 ? 0.0 : static_cast<double>(tiff.GetSigned<int32_t>(offset)) / denominator;
    }
    case SBYTE:
        return tiff.GetSigned<int8_t>(offset);
    case SSHORT:
        return tiff.GetSigned<int16_t>(offset);
    case SLONG:
        return tiff.GetSigned<int32_t>(offset);
    case FLOAT:
        return std::bit_cast<float>(tiff.Get<uint32_t>(offset));
    case DOUBLE:
        return std::bit_cast<double>(tiff.Get<uint64_t>(offset));
    default:
        return 0.0;
    }
}

float PositiveOrZero(double value)
{
    const auto narrowed = static_cast<float>(value);
    return std::isfinite(narrowed) && narrowed > 0 ? narrowed : 0.0F;
}

bool Refuse(JpegResolution& resolution, const char* error)
{
    resolution.error = error;
    return false;
}

bool ReadDirectory(const FileNumbers& tiff, JpegResolution& resolution)
{
    constexpr const char* kIllegalSize = "Illegally sized directory";
    if (tiff.Size() < kFirstDirectory + 2)
        return Refuse(resolution, kIllegalSize);
    const size_t count = tiff.Get<uint16_t>(kFirstDirectory);
    const size_t entries = kFirstDirectory + 2;
    if (entries + count * kDirectoryEntry > tiff.Size())
        return Refuse(resolution, kIllegalSize);

    for (size_t entry = entries; entry < entries + count * kDirectoryEntry; entry += kDirectoryEntry) {
        const unsigned tag = tiff.Get<uint16_t>(entry);
        const unsigned format = tiff.Get<uint16_t>(entry + 2);
        if (format < BYTE || format > DOUBLE)
            return Refuse(resolution, "Illegal format code in EXIF dir");
        const uint64_t components = tiff.Get<uint32_t>(entry + 4);
        const uint64_t byteCount = components * kFormatSize[format];
        uint64_t offset = entry + 8;
        if (byteCount > 4) {
            offset = tiff.Get<uint32_t>(entry + 8);
            if (offset + byteCount > tiff.Size())
                return Refuse(resolution, "Illegal pointer offset value in EXIF.");
        }
        if (tag != kTagXResolution && tag != kTagYResolution)
            continue;
        const double value = components == 0 ? 0.0 : ValueAt(tiff, offset, format);
        (tag == kTagXResolution ? resolution.x : resolution.y) = PositiveOrZero(value);
    }
    return true;
}

/// @param segment bytes behind the marker's length field, as many as the length field says (where the file has them)
bool ReadExif(Bytes segment, JpegResolution& resolution)
{
    if (!StartsWith(segment, "Exif\0\0", kTiffHeader))
        return Refuse(resolution, "Incorrect Exif header");
    const Bytes tiff = segment.subspan(kTiffHeader);
    const bool bigEndian = StartsWith(tiff, "MM", 2);
    if (!bigEndian && !StartsWith(tiff, "II", 2))
        return Refuse(resolution, "Invalid Exif alignment marker.");
    const FileNumbers numbers(tiff, bigEndian);
    if (numbers.Size() < 4 || numbers.Get<uint16_t>(2) != 42)
        return Refuse(resolution, "Invalid Exif start (1)");
    return ReadDirectory(numbers, resolution);
}

bool ReadJfif(Bytes file, JpegResolution& resolution)
{
    if (!StartsWith(file.subspan(kSegment), "JFIF", 5))
        return false;
    const FileNumbers numbers(file, true);
    const unsigned unit = file[13];
    const unsigned x = numbers.Get<uint16_t>(14);
    const unsigned y = numbers.Get<uint16_t>(16);
    if (unit == 0 || x == 1 || y == 1) { // an aspect ratio, not a density
        resolution.x = resolution.y = kDefaultDpi;
        return false;
    }
    if (unit == 1 || unit == 2) {
        const double perInch = unit == 1 ? 1.0 : kCentimetresPerInch;
        resolution.x = static_cast<float>(x * perInch);
        resolution.y = static_cast<float>(y * perInch);
    }
    return true;
}

} // namespace

bool ReadJpegResolution(Bytes file, JpegResolution& resolution)
{
    if (file.size() < kSmallestFile)
        return false;
    if (file[3] == kApp0)
        return ReadJfif(file, resolution);
    if (file[3] != kApp1)
        return false;
    const Bytes content = file.subspan(kSegment);
    if (!StartsWith(content, "Exif", 4))
        return true; // another application's segment: the values of an earlier header stay
    const size_t length = FileNumbers(file, true).Get<uint16_t>(4);
    return ReadExif(content.first(std::min(length, content.size())), resolution);
}

} // namespace shapes
