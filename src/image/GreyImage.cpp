#include "image/GreyImage.h"

#include "image/PictureHeader.h"

#include <QByteArray>
#include <QtEndian>

#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <exception>

namespace shapes {

namespace {

constexpr int kDecodeGrey = cv::IMREAD_GRAYSCALE | cv::IMREAD_IGNORE_ORIENTATION;
constexpr unsigned char kOpaque = 255;
constexpr int kStripRows = 16; ///< flattened and turned grey while they lie in the cache

// A header may claim this many pixels without further ado; beyond, no byte of the file may stand for more of them than
// the densest packing reaches: eight black or white pixels to a byte, deflated 1032 to 1.
constexpr uint64_t kAlwaysAllowedPixels = 64ULL * 1024 * 1024;
constexpr uint64_t kPixelsPerByte = 9000;

constexpr int PaddedWidth(int columns)
{
    return (columns + 3) & ~3;
}

cv::Mat WithPaddedWidth(const cv::Mat& image, int interpolation)
{
    if (image.empty() || image.cols == PaddedWidth(image.cols))
        return image;
    cv::Mat padded;
    cv::resize(image, padded, {PaddedWidth(image.cols), image.rows}, 0, 0, interpolation);
    return padded;
}

/// False also for kinds of files whose size cannot be told beforehand: their decoders make room for whatever they claim.
bool SizeIsCredible(const QByteArray& file)
{
    const auto* bytes = reinterpret_cast<const unsigned char*>(file.constData());
    const size_t count = static_cast<size_t>(file.size());
    const auto header = ReadPictureHeader({bytes, count});
    const uint64_t mostPixels = std::max(kAlwaysAllowedPixels, kPixelsPerByte * count);
    return header && (header->height == 0 || header->width <= mostPixels / header->height);
}

/// Whether a PNG decodes into four channels: by its colour type, or by a transparency chunk before the pixels.
bool PngMayHaveAlpha(const QByteArray& file)
{
    constexpr qsizetype kColourType = 25; // of the header chunk, which always comes first
    constexpr qsizetype kFirstChunk = 8;
    constexpr char kGrey = 0, kGreyAlpha = 4;
    if (file.size() <= kColourType || file[kColourType] >= kGreyAlpha)
        return true;
    if (file[kColourType] == kGrey)
        return false;
    for (qsizetype chunk = kFirstChunk; chunk + 8 <= file.size();) {
        const QByteArrayView name = QByteArrayView(file).sliced(chunk + 4, 4);
        if (name == "tRNS" || name == "IDAT")
            return name == "tRNS";
        chunk += 12 + static_cast<qsizetype>(qFromBigEndian<quint32>(file.constData() + chunk));
    }
    return true;
}

/// Only where this is false the decode with all channels can be saved.
bool MayHaveAlpha(const QByteArray& file)
{
    if (file.startsWith("\xFF\xD8\xFF")) // JPEG
        return false;
    return !file.startsWith("\x89PNG\r\n\x1A\n") || PngMayHaveAlpha(file);
}

cv::Mat ToEightBit(const cv::Mat& image)
{
    cv::Mat narrow;
    image.convertTo(narrow, CV_8U, image.depth() == CV_16U ? 1.0 / 257 : 1.0);
    return narrow;
}

cv::Mat Decode(const QByteArray& file)
{
    if (file.isEmpty() || file.size() > INT_MAX || !SizeIsCredible(file))
        return {};
    const cv::Mat bytes(1, static_cast<int>(file.size()), CV_8U, const_cast<char*>(file.constData()));
    if (MayHaveAlpha(file)) {
        cv::Mat image = cv::imdecode(bytes, cv::IMREAD_UNCHANGED);
        if (image.type() == CV_8UC1)
            return image;
        if (image.channels() == 4) {
            if (image.depth() != CV_8U)
                image = ToEightBit(image);
            RemoveAlpha(image);
            return image;
        }
    }
    // The decoder's own grey: that of a later colour conversion differs.
    return cv::imdecode(bytes, kDecodeGrey);
}

/// Colour on white for every alpha (first index) and colour value.
using FlattenTable = std::array<std::array<unsigned char, 256>, 256>;

const FlattenTable& OnWhite()
{
    static const FlattenTable table = [] {
        FlattenTable made;
        for (int alpha = 0; alpha < 256; ++alpha) {
            // Single precision throughout, then truncation: the sums in double differ for some pairs.
            const float a = static_cast<float>(alpha) / 255.0F;
            for (int colour = 0; colour < 256; ++colour)
                made[alpha][colour] = static_cast<unsigned char>(static_cast<float>(colour) * a + (1.0F - a) * 255.0F);
        }
        return made;
    }();
    return table;
}

/// Pixels of blue, green, red and alpha, which becomes opaque.
void FlattenRow(unsigned char* pixel, size_t count, const FlattenTable& onWhite)
{
    for (const unsigned char* end = pixel + 4 * count; pixel != end; pixel += 4) {
        if (pixel[3] == kOpaque)
            continue; // changes nothing
        const auto& colours = onWhite[pixel[3]];
        pixel[0] = colours[pixel[0]];
        pixel[1] = colours[pixel[1]];
        pixel[2] = colours[pixel[2]];
        pixel[3] = kOpaque;
    }
}

} // namespace

cv::Mat DecodeGrey(const QByteArray& file)
{
    try {
        return WithPaddedWidth(Decode(file), cv::INTER_NEAREST);
    } catch (const std::exception&) { // sizes that the decoder refuses, memory that is not there
        return {};
    }
}

bool RemoveAlpha(cv::Mat& image)
{
    if (image.type() != CV_8UC4 || image.dims > 2)
        return false;
    const FlattenTable& onWhite = OnWhite();
    cv::Mat grey(image.size(), CV_8UC1);
    for (int top = 0; top < image.rows; top += kStripRows) {
        const cv::Range rows(top, std::min(top + kStripRows, image.rows));
        for (int row = rows.start; row < rows.end; ++row)
            FlattenRow(image.ptr(row), static_cast<size_t>(image.cols), onWhite);
        cv::cvtColor(image.rowRange(rows), grey.rowRange(rows), cv::COLOR_BGR2GRAY);
    }
    image = grey;
    return true;
}

cv::Mat RecordImage(const cv::Mat& image)
{
    if (image.empty() || image.dims > 2)
        return {};
    try {
        cv::Mat grey = image.depth() == CV_8U ? image : ToEightBit(image);
        if (grey.channels() == 3 || grey.channels() == 4)
            cv::cvtColor(grey, grey, cv::COLOR_BGR2GRAY);
        else if (grey.channels() != 1)
            cv::extractChannel(grey, grey, 0);
        grey = WithPaddedWidth(grey, cv::INTER_LINEAR);
        return grey.isContinuous() ? grey : grey.clone();
    } catch (const std::exception&) {
        return {};
    }
}

} // namespace shapes
