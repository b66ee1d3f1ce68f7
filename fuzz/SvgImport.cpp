/// An SVG drawing as `shapedoc import` reads it.
#include "Target.h"

#include "shape/Shape.h"
#include "svg/DrawingImport.h"

#include <cmath>
#include <cstdlib>

using namespace shapedocument;

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const bool odd = size % 2 == 1; // inputs of odd length try the other options
    const DrawingImport drawing = ImportDrawing(bytes, {}, {.visible = odd, .textAsText = odd});
    for (const auto& shape : drawing.shapes)
        if (!std::isfinite(shape->GetRect(false).width()))
            std::abort();
    return 0;
}
