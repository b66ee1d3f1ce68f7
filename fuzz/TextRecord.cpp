/// The record of a text in every version; the text is laid out, queried and transformed.
#include "Target.h"
#include "TouchShapes.h"

#include "list/ShapeListOwner.h"
#include "text/ShapeText.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::Bytes input(data, size);
    const int version = fuzz::ReadVersion(input);
    fuzz::MemoryFile file(input);
    auto* text = new CShapeText;
    text->Read(&file.File(), version);
    const ShapeListOwner list = NewShapeList();
    list->AddTail(text);
    fuzz::TouchShapes(*list);
    fuzz::CheckSecondGeneration(*list);
    return 0;
}
