/// A picture file opened as image shape: header, resolution, decoding, edits, and the record of the result.
#include "Target.h"
#include "TouchShapes.h"

#include "image/PictureHeader.h"
#include "image/ShapeImage.h"
#include "list/ShapeListOwner.h"

namespace {

/// A few bytes may be a valid picture of 768 MiB; such runs only take time.
bool IsLarge(std::span<const uint8_t> file)
{
    constexpr uint64_t kPixels = 16'000'000;
    const auto header = shapes::ReadPictureHeader(file);
    return header && header->height != 0 && header->width > kPixels / header->height;
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    if (IsLarge({data, size}))
        return 0;
    fuzz::MemoryFile file({data, size});
    QByteArray name = file.Name();
    auto* image = new CShapeImage;
    image->OpenImage(name.data());
    const ShapeListOwner list = NewShapeList();
    list->AddTail(image);
    fuzz::TouchShapes(*list);
    return 0;
}
