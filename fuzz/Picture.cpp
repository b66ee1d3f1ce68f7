/// A picture file opened as image shape: header, resolution, decoding, edits, and the record of what came of it.
#include "Target.h"
#include "TouchShapes.h"

#include "image/ShapeImage.h"
#include "list/ShapeList.h"

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::MemoryFile file({data, size});
    QByteArray name = file.Name();
    auto* image = new CShapeImage;
    image->OpenImage(name.data());
    CShapeList* list = CShapeList::New();
    list->AddTail(image);
    fuzz::TouchShapes(*list);
    list->DeleteAll();
    CShapeList::Release(list);
    return 0;
}
