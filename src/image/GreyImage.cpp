#include "image/GreyImage.h"

#include "image/DecoderGaps.h"
#include "image/PictureCodecs.h"
#include "image/PictureHeader.h"
#include "image/Transparency.h"

#include <QByteArray>

#include <opencv2/imgcodecs.hpp> // the modes of decoding
#include <opencv2/imgproc.hpp>

#include <algorithm>
#include <array>
#include <climits>
#include <cstdint>
#include <exception>
#include <span>

namespace shapes {

namespace {

constexpr int kDecodeGrey = cv::IMREAD_GRAYSCALE | cv::IMREAD_IGNORE_ORIENTATION;
constexpr unsigned char kOpaque = 255;
constexpr int kStripRows = 16; ///< flattened and converted to grey together, while they are in the processor's cache

/// Bytes of a grey picture. Real files come close: an A0 sheet at 600 dots per inch has 532 MiB, in a file of some
/// hundred kilobytes.
constexpr uint64_t kLargestPicture = 768ULL * 1024 * 1024;

/// Progressive JPEGs have some ten scans. Each may take as much time as a whole picture, but hardly any bytes of file.
constexpr size_t kMostScans = 100;

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

/// Whether the file can be decoded within bounds. False also for kinds of files whose size is not known beforehand:
/// their decoders allocate whatever the file claims.
bool IsBearable(const QByteArray& file)
{
    const std::span bytes(reinterpret_cast<const unsigned char*>(file.constData()), static_cast<size_t>(file.size()));
    const auto header = ReadPictureHeader(bytes);
    return header && (header->height == 0 || header->width <= kLargestPicture / header->height) &&
           CountJpegScans(bytes, kMostScans + 1) <= kMostScans;
}

cv::Mat ToEightBit(const cv::Mat& image)
{
    cv::Mat narrow;
    image.convertTo(narrow, CV_8U, image.depth() == CV_16U ? 1.0 / 257 : 1.0);
    return narrow;
}

/// Decodes to grey, with white in place of the transparent value.
cv::Mat DecodeWithClear(const cv::Mat& bytes, const ClearGrey& clear)
{
    constexpr unsigned kDeep = 16, kWhite = 255;
    cv::Mat grey = DecodePicture(bytes, kDecodeGrey);
    if (grey.empty())
        return grey;
    const unsigned spread = clear.value * kWhite / ((1U << clear.depth) - 1); // scaled to 8 bits, exact for up to 8
    if (clear.depth == kDeep)
        grey.setTo(kWhite, DecodePicture(bytes, cv::IMREAD_UNCHANGED) == clear.value);
    else
        grey.setTo(kWhite, grey == spread);
    return grey;
}

/// Colour on white for every alpha (first index) and colour value.
using FlattenTable = std::array<std::array<unsigned char, 256>, 256>;

const FlattenTable& OnWhite()
{
    static const FlattenTable table = [] {
        FlattenTable made;
        for (size_t alpha = 0; alpha < 256; ++alpha) {
            // Single precision throughout, then truncation: double precision gives other values for some pairs.
            const float a = static_cast<float>(alpha) / 255.0F;
            for (size_t colour = 0; colour < 256; ++colour)
                made[alpha][colour] = static_cast<unsigned char>(static_cast<float>(colour) * a + (1.0F - a) * 255.0F);
        }
        return made;
    }();
    return table;
}

/// Flattens pixels of blue, green, red and alpha onto white; alpha becomes opaque.
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

/// A picture of four channels, flattened onto white and converted to grey. One of 8 bits is flattened in place; deeper
/// ones are narrowed strip by strip, which saves a copy of the whole.
cv::Mat GreyOnWhite(cv::Mat& image)
{
    const FlattenTable& onWhite = OnWhite();
    cv::Mat grey(image.size(), CV_8UC1);
    for (int top = 0; top < image.rows; top += kStripRows) {
        const cv::Range rows(top, std::min(top + kStripRows, image.rows));
        const cv::Mat strip = image.rowRange(rows);
        cv::Mat narrow = image.depth() == CV_8U ? strip : ToEightBit(strip);
        for (int row = 0; row < narrow.rows; ++row)
            FlattenRow(narrow.ptr(row), static_cast<size_t>(narrow.cols), onWhite);
        cv::cvtColor(narrow, grey.rowRange(rows), cv::COLOR_BGR2GRAY);
    }
    return grey;
}

cv::Mat Decode(const QByteArray& given)
{
    if (given.isEmpty() || given.size() > INT_MAX || !IsBearable(given))
        return {};
    if (HasColourMasks(given)) {
        cv::Mat image = DecodeColourMasks(given);
        RemoveAlpha(image);
        return image;
    }
    const QByteArray file = WithoutOrientation(given);
    const cv::Mat bytes(1, static_cast<int>(file.size()), CV_8U, const_cast<char*>(file.constData()));
    if (const auto clear = ClearGreyOf(file))
        return DecodeWithClear(bytes, *clear);
    if (MayHaveAlpha(file)) {
        cv::Mat image = DecodePicture(bytes, cv::IMREAD_UNCHANGED);
        if (image.type() == CV_8UC1)
            return image;
        if (image.channels() == 4) {
            if (image.depth() != CV_8U && HasPlanes(file))
                return {};
            return GreyOnWhite(image);
        }
    }
    // The decoder's own grey: that of a later colour conversion differs.
    return DecodePicture(bytes, kDecodeGrey);
}

} // namespace

cv::Mat DecodeGrey(const QByteArray& file)
{
    try {
        return WithPaddedWidth(Decode(file), cv::INTER_NEAREST);
    } catch (const std::exception&) { // sizes that the decoder refuses, no memory
        return {};
    }
}

bool RemoveAlpha(cv::Mat& image)
{
    if (image.type() != CV_8UC4 || image.dims > 2)
        return false;
    image = GreyOnWhite(image);
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
