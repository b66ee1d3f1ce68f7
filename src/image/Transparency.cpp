#include "image/Transparency.h"

#include "image/FileNumbers.h"
#include "image/PngChunks.h"
#include "image/TiffDirectory.h"

#include <QByteArray>
#include <QByteArrayView>

namespace shapes {

namespace {

constexpr qsizetype kDepth = 24; ///< in a PNG's header chunk, which always comes first
constexpr qsizetype kColourType = 25;
constexpr char kGrey = 0, kGreyAlpha = 4;

FileNumbers Numbers(const QByteArray& file, bool isBigEndian)
{
    return {{reinterpret_cast<const unsigned char*>(file.constData()), static_cast<size_t>(file.size())}, isBigEndian};
}

bool IsPng(const QByteArray& file)
{
    return file.startsWith("\x89PNG\r\n\x1A\n") && file.size() > kColourType;
}

/// Offset of the content of a PNG's transparency chunk; 0 when there is none before the pixels.
qsizetype PngTransparency(const QByteArray& file)
{
    const FileNumbers numbers = Numbers(file, true);
    for (qsizetype chunk = kFirstPngChunk; chunk + 8 <= file.size();) {
        const QByteArrayView name = QByteArrayView(file).sliced(chunk + 4, 4);
        if (name == "tRNS")
            return chunk + 8;
        if (name == "IDAT")
            break;
        chunk += kPngChunkFrame + static_cast<qsizetype>(numbers.Get<uint32_t>(static_cast<uint64_t>(chunk)));
    }
    return 0;
}

bool TiffMayHaveAlpha(const QByteArray& file)
{
    const TiffDirectory directory({reinterpret_cast<const unsigned char*>(file.constData()), size_t(file.size())});
    return directory.Number(TIFF_SAMPLES, 1) >= 4;
}

/// By the flags of the extended header or of the lossless picture; a lossy picture alone has none.
bool WebpMayHaveAlpha(const QByteArray& file)
{
    constexpr uint8_t kInExtended = 0x10;
    constexpr uint32_t kInLossless = 1U << 28;
    const FileNumbers numbers = Numbers(file, false);
    const QByteArrayView kind = QByteArrayView(file).sliced(12, 4);
    if (kind == "VP8 ")
        return false;
    return kind == "VP8L" ? (numbers.Get<uint32_t>(21) & kInLossless) != 0
                          : (numbers.Get<uint8_t>(20) & kInExtended) != 0;
}

} // namespace

bool MayHaveAlpha(const QByteArray& file)
{
    if (file.startsWith("\xFF\xD8\xFF")) // JPEG
        return false;
    if (IsPng(file))
        return file[kColourType] >= kGreyAlpha || (file[kColourType] != kGrey && PngTransparency(file) != 0);
    if (file.startsWith("II") || file.startsWith("MM"))
        return TiffMayHaveAlpha(file);
    return !file.startsWith("RIFF") || file.size() < 16 || WebpMayHaveAlpha(file);
}

std::optional<ClearGrey> ClearGreyOf(const QByteArray& file)
{
    if (!IsPng(file) || file[kColourType] != kGrey)
        return {};
    const qsizetype place = PngTransparency(file);
    const auto depth = static_cast<unsigned char>(file[kDepth]);
    if (place == 0 || depth == 0 || depth > 16)
        return {};
    const unsigned mask = (1U << depth) - 1; // bits above the depth do not count
    return ClearGrey{Numbers(file, true).Get<uint16_t>(static_cast<uint64_t>(place)) & mask, depth};
}

} // namespace shapes
