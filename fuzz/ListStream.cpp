/// The document stream in every version: what can be read is used and saved as a design application would.
#include "Target.h"
#include "TouchShapes.h"

#include "list/ShapeListOwner.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::Bytes input(data, size);
    const int version = fuzz::ReadVersion(input);
    fuzz::MemoryFile file(input);
    const ShapeListOwner list = NewShapeList();
    if (list->Read(&file.File(), version) == 0) {
        fuzz::CheckSecondGeneration(*list);
        fuzz::TouchShapes(*list);
    }
    return 0;
}
