/// Pictures and code images.
#include "Application.h"
#include "Arguments.h"
#include "Buffer.h"
#include "Edits.h"
#include "Entry.h"
#include "Progress.h"
#include "Structs.h"
#include "document/InputFile.h"
#include "document/PicturePixels.h"
#include "picture/PictureInput.h"

#include "image/CodeShapeImage.h"

#include <QFile>

#include <opencv2/core.hpp>

#include <algorithm>
#include <span>

using namespace capi;
using namespace shapedocument;

namespace {

constexpr size_t kLongestSide = 65'535;
constexpr size_t kMostPixelsGiven = size_t{1} << 30;

/// The width rounded up to a multiple of 4: other pictures would be shown with extra white columns.
constexpr size_t WideEnough(size_t width)
{
    return (width + 3) / 4 * 4;
}

/// Stretches a row by repeating the nearest column, as is done with pictures of files.
void Widen(std::span<const uint8_t> row, std::span<uint8_t> wide)
{
    if (row.size() == wide.size())
        std::copy(row.begin(), row.end(), wide.begin());
    else
        for (size_t x = 0; x < wide.size(); ++x)
            wide[x] = row[x * row.size() / wide.size()];
}

/// A copy of the caller's pixels. Throws Refusal.
cv::Mat PixelsOf(const uint8_t* pixels, size_t width, size_t height, size_t stride)
{
    ExpectGiven(pixels, "pixels");
    Expect(width > 0 && height > 0 && width <= kLongestSide && height <= kLongestSide &&
               width <= kMostPixelsGiven / height,
           SM_BAD_ARGUMENT, "a picture has 1 to 65,535 columns and rows, and 1 GiB of pixels at most");
    Expect(stride >= width && stride <= static_cast<size_t>(PTRDIFF_MAX) / height, SM_BAD_ARGUMENT,
           "the stride is shorter than a row, or cannot be");
    cv::Mat taken(static_cast<int>(height), static_cast<int>(WideEnough(width)), CV_8UC1);
    for (size_t y = 0; y < height; ++y)
        Widen({pixels + y * stride, width}, {taken.ptr(static_cast<int>(y)), static_cast<size_t>(taken.cols)});
    if (static_cast<size_t>(taken.cols) != width)
        Warn(QString("%1 columns of pixels become %2").arg(width).arg(taken.cols));
    return taken;
}

void Show(CShapeImage& image, cv::Mat pixels, const QRectF& rect)
{
    image.SetImage(pixels, false);
    image.SetOrgRect(rect, true);
    image.RemoveImageCache();
    image.UpdatePainterPath();
}

template <class Image>
std::unique_ptr<Image> NewImage(const cv::Mat& pixels, const QRectF& rect)
{
    ExpectApplication();
    auto image = std::make_unique<Image>();
    Show(*image, pixels, rect);
    return image;
}

/// Lends the pixels without copying them.
sm_buffer LentPixels(const cv::Mat& pixels)
{
    const auto owner = std::make_shared<const cv::Mat>(pixels);
    const size_t size = pixels.step * static_cast<size_t>(pixels.rows - 1) + static_cast<size_t>(pixels.cols);
    auto buffer = std::make_shared<Buffer>(owner, owner->data, size);
    const TableLock table;
    return table->Give(std::move(buffer));
}

} // namespace

sm_status sm_image_options_defaults(sm_image_options* options, size_t size)
{
    return Enter([=] { Fill(options, size, sm_image_options{}); });
}

sm_status sm_image_open(const char* file, const sm_image_options* options, sm_shape* image)
{
    return Enter([=] {
        Clear(image, "image");
        const sm_image_options taken = WithDefaults(options, sm_image_options{});
        const QString name = FileOf(file);
        Progress told(taken);
        ExpectApplication();
        OpenInput(name); // throws with a reason that tells whether the file exists
        auto picture = std::make_unique<CShapeImage>();
        if (OpenPicture(*picture, name, {taken.large != 0, {}, told.OfWork()}) > 0)
            Warn(name + ": the picture may be damaged: its decoder complained, or its file ends early");
        *image = Detached(std::move(picture));
    });
}

sm_status sm_image_new(const uint8_t* pixels, size_t width, size_t height, size_t stride, sm_rect rect, sm_shape* image)
{
    return Enter([=] {
        Clear(image, "image");
        const cv::Mat taken = PixelsOf(pixels, width, height, stride);
        *image = Detached(NewImage<CShapeImage>(taken, RectOf(rect)));
    });
}

sm_status sm_code_image_new(const uint8_t* pixels, size_t width, size_t height, size_t stride, sm_rect rect,
                            const char* text, int32_t kind, sm_shape* image)
{
    return Enter([=] {
        Clear(image, "image");
        constexpr size_t kLongestCode = 65'535; // bytes; no code can hold as many
        const QString encoded = TextOf(text, "the text", kLongestCode);
        ExpectBetween(kind, 0, 1, "kind");
        const cv::Mat taken = PixelsOf(pixels, width, height, stride);
        std::unique_ptr<CCodeShapeImage> code = NewImage<CCodeShapeImage>(taken, RectOf(rect));
        code->SetCodeText(encoded);
        code->SetCodeType(kind != 0);
        *image = Detached(std::move(code));
    });
}

sm_status sm_code_image_kind(sm_shape image, int32_t* kind)
{
    return Enter([=] {
        Clear(kind, "kind");
        *kind = ShapeUse(image).As<CCodeShapeImage>().GetCodeType() ? 1 : 0;
    });
}

sm_status sm_shape_pixels(sm_shape image, int32_t which, sm_pixels* info, sm_buffer* pixels)
{
    return Enter([=] {
        Clear(pixels, "pixels");
        ExpectAnswerable(info);
        ExpectBetween(which, SM_PIXELS_SHOWN, SM_PIXELS_UNEDITED, "which");
        const ShapeUse use(image);
        auto& picture = use.As<CShapeImage>();
        const cv::Mat shown = ExpectMemory(picture, picture.GetImage(which == SM_PIXELS_UNEDITED));
        Expect(!shown.empty() && shown.type() == CV_8UC1, SM_REFUSED, "the picture has no pixels");
        *pixels = LentPixels(shown);
        Answer(info, sm_pixels{0, static_cast<uint32_t>(shown.cols), static_cast<uint32_t>(shown.rows), shown.step});
    });
}

sm_status sm_shape_set_pixels(sm_shape image, const uint8_t* pixels, size_t width, size_t height, size_t stride)
{
    return Enter([=] {
        const cv::Mat taken = PixelsOf(pixels, width, height, stride);
        const ShapeUse use(image);
        auto& changed = use.As<CShapeImage>();
        ExpectEditable(use);
        Show(changed, taken, capi::RectOf(changed));
        FinishEdit(use);
    });
}
