#include "image/PictureHeader.h"

#include "image/FileNumbers.h"
#include "image/PngChunks.h"
#include "image/TiffDirectory.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <limits>
#include <string_view>

namespace shapes {

namespace {

using Bytes = std::span<const unsigned char>;
using namespace std::string_view_literals;

bool Has(Bytes file, size_t offset, std::string_view text)
{
    return offset + text.size() <= file.size() &&
           std::equal(text.begin(), text.end(), file.begin() + static_cast<std::ptrdiff_t>(offset),
                      [](char a, unsigned char b) { return a == char(b); });
}

PictureHeader PngHeader(Bytes file)
{
    const FileNumbers numbers(file, true);
    return {"png", numbers.Get<uint32_t>(16), numbers.Get<uint32_t>(20)};
}

enum JpegMarker : unsigned char
{
    JPEG_TABLES = 0xC4,
    JPEG_RESERVED = 0xC8,
    JPEG_CODING = 0xCC,
    JPEG_RESTART = 0xD0, ///< the first of eight; start of image follows
    JPEG_END = 0xD9,
    JPEG_SCAN = 0xDA,
    JPEG_PREFIX = 0xFF
};

struct JpegSegment
{
    unsigned char marker = JPEG_END;
    size_t content = 0; ///< offset of its length field
};

/// The next segment with content, found as decoders do: skips everything before a marker, such as coded data (where the
/// prefix is followed by 0), restart markers and fill bytes. The end of image when there is none.
JpegSegment NextSegment(Bytes file, size_t& at)
{
    const FileNumbers numbers(file, true);
    while (at < file.size()) {
        at = static_cast<size_t>(std::find(file.begin() + static_cast<ptrdiff_t>(at), file.end(), JPEG_PREFIX) -
                                 file.begin());
        while (at < file.size() && file[at] == JPEG_PREFIX)
            ++at;
        const JpegSegment segment{numbers.Get<uint8_t>(at), at + 1};
        ++at;
        if (segment.marker == JPEG_END)
            break;
        if (segment.marker <= 0x01 || (segment.marker >= JPEG_RESTART && segment.marker < JPEG_END))
            continue;
        at += numbers.Get<uint16_t>(at);
        return segment;
    }
    return {};
}

std::optional<PictureHeader> JpegHeader(Bytes file)
{
    const FileNumbers numbers(file, true);
    size_t at = 2;
    for (;;) {
        const auto [marker, content] = NextSegment(file, at);
        if (marker == JPEG_SCAN || marker == JPEG_END)
            return {};
        const bool isFrame =
            (marker & 0xF0) == 0xC0 && marker != JPEG_TABLES && marker != JPEG_RESERVED && marker != JPEG_CODING;
        if (isFrame)
            return PictureHeader{"jpeg", numbers.Get<uint16_t>(content + 5), numbers.Get<uint16_t>(content + 3)};
    }
}

std::optional<PictureHeader> BmpHeader(Bytes file)
{
    constexpr uint32_t kOldHeader = 12, kLeastNewHeader = 36;
    const FileNumbers numbers(file, false);
    const auto headerBytes = numbers.Get<uint32_t>(14);
    if (headerBytes == kOldHeader)
        return PictureHeader{"bmp", numbers.Get<uint16_t>(18), numbers.Get<uint16_t>(20)};
    if (headerBytes < kLeastNewHeader)
        return {};
    const auto side = [&](size_t offset) { return std::abs(int64_t{numbers.GetSigned<int32_t>(offset)}); };
    return PictureHeader{"bmp", static_cast<uint64_t>(side(18)), static_cast<uint64_t>(side(22))};
}

/// The largest of all sizes counts: tiles may be larger than the picture, and tags may occur twice.
std::optional<PictureHeader> TiffHeader(Bytes file)
{
    const TiffDirectory directory(file);
    if (directory.Fields().empty())
        return {};
    PictureHeader header{"tiff"};
    for (const TiffField& field : directory.Fields()) {
        const bool isWidth = field.tag == TIFF_WIDTH || field.tag == TIFF_TILE_WIDTH;
        if (!isWidth && field.tag != TIFF_HEIGHT && field.tag != TIFF_TILE_HEIGHT)
            continue;
        const auto value = directory.Number(field);
        if (!value)
            return {};
        uint64_t& side = isWidth ? header.width : header.height;
        side = std::max(side, *value);
    }
    return header;
}

std::optional<PictureHeader> WebpHeader(Bytes file)
{
    constexpr uint32_t kFourteenBits = 0x3FFF, kTwentyFourBits = 0xFFFFFF;
    const FileNumbers numbers(file, false);
    if (Has(file, 12, "VP8 ")) // lossy: behind frame tag and start code
        return PictureHeader{"webp", numbers.Get<uint16_t>(26) & kFourteenBits,
                             numbers.Get<uint16_t>(28) & kFourteenBits};
    if (Has(file, 12, "VP8L")) { // lossless: behind a signature byte, each less one
        const auto both = numbers.Get<uint32_t>(21);
        return PictureHeader{"webp", (both & kFourteenBits) + 1, (both >> 14 & kFourteenBits) + 1};
    }
    if (Has(file, 12, "VP8X")) // the canvas, each less one
        return PictureHeader{"webp", (numbers.Get<uint32_t>(24) & kTwentyFourBits) + 1,
                             (numbers.Get<uint32_t>(26) >> 8) + 1};
    return {};
}

/// Two decimal numbers among white space and comments.
std::optional<PictureHeader> PortableMapHeader(Bytes file)
{
    uint64_t sides[2] = {0, 0};
    size_t at = 2;
    for (uint64_t& side : sides) {
        while (at < file.size() && (std::isspace(file[at]) || file[at] == '#')) {
            const bool isComment = file[at] == '#';
            while (isComment && at < file.size() && file[at] != '\n' && file[at] != '\r')
                ++at;
            ++at;
        }
        if (at >= file.size() || !std::isdigit(file[at]))
            return {};
        for (; at < file.size() && std::isdigit(file[at]); ++at)
            side = std::min<uint64_t>(side * 10 + (file[at] - '0'), std::numeric_limits<uint32_t>::max());
    }
    return PictureHeader{"ppm", sides[0], sides[1]};
}

bool HasJpegEnd(Bytes file)
{
    size_t at = 2;
    while (NextSegment(file, at).marker != JPEG_END)
        ;
    return at <= file.size() && file[at - 1] == JPEG_END && file[at - 2] == JPEG_PREFIX;
}

bool HasPngEnd(Bytes file)
{
    const FileNumbers numbers(file, true);
    for (size_t at = kFirstPngChunk; at + kPngChunkFrame <= file.size();
         at += static_cast<size_t>(kPngChunkFrame + numbers.Get<uint32_t>(at)))
        if (Has(file, at + 4, "IEND"))
            return true;
    return false;
}

/// Some programs write zeros behind the end.
bool HasGifEnd(Bytes file)
{
    const auto last = std::find_if(file.rbegin(), file.rend(), [](unsigned char byte) { return byte != 0; });
    return last != file.rend() && *last == ';';
}

} // namespace

std::optional<PictureHeader> ReadPictureHeader(Bytes file)
{
    if (Has(file, 0, "\x89PNG\r\n\x1A\n"))
        return PngHeader(file);
    if (Has(file, 0, "\xFF\xD8\xFF"))
        return JpegHeader(file);
    if (Has(file, 0, "BM"))
        return BmpHeader(file);
    if (Has(file, 0, "II*\0"sv) || Has(file, 0, "MM\0*"sv) || Has(file, 0, "II+\0"sv) || Has(file, 0, "MM\0+"sv))
        return TiffHeader(file);
    if (Has(file, 0, "RIFF") && Has(file, 8, "WEBP"))
        return WebpHeader(file);
    if (file.size() > 2 && file[0] == 'P' && file[1] >= '1' && file[1] <= '6' && std::isspace(file[2]))
        return PortableMapHeader(file);
    return {};
}

size_t CountJpegScans(Bytes file, size_t most)
{
    if (!Has(file, 0, "\xFF\xD8\xFF"))
        return 0;
    size_t scans = 0;
    for (size_t at = 2; scans < most;) {
        const unsigned char marker = NextSegment(file, at).marker;
        if (marker == JPEG_END)
            break;
        scans += marker == JPEG_SCAN;
    }
    return scans;
}

bool EndsEarly(Bytes file)
{
    if (Has(file, 0, "\xFF\xD8\xFF"))
        return !HasJpegEnd(file);
    if (Has(file, 0, "\x89PNG\r\n\x1A\n"))
        return !HasPngEnd(file);
    if (Has(file, 0, "BM"))
        return FileNumbers(file, false).Get<uint32_t>(2) > file.size();
    return Has(file, 0, "GIF8") && !HasGifEnd(file);
}

} // namespace shapes
