/// An SVG drawing as `shapedoc import` reads it.
#include "Target.h"

#include "SvgReader.h"
#include "document/Failure.h"

#include <cmath>
#include <cstdlib>

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    const fuzz::MemoryFile file({data, size});
    try {
        const SvgDrawing drawing = ReadSvg(QString::fromLatin1(file.Name()));
        for (const DrawnPath& drawn : drawing.paths)
            if (!std::isfinite(drawn.path.controlPointRect().width()))
                std::abort();
    } catch (const Failure&) { // how the program says what is wrong with a drawing
    }
    return 0;
}
