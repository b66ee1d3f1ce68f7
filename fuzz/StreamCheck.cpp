/// The strict walk and the repair: the library must read every stream that the walk calls clean to its end, and what
/// the repair saves must be clean.
#include "Target.h"

#include "check/StreamRepair.h"
#include "list/ShapeListOwner.h"
#include "record/DocumentVersion.h"

#include <cstdio>
#include <cstdlib>

using namespace shapedocument;

namespace {

void Expect(bool held, const char* what)
{
    if (held)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

bool LibraryReads(fuzz::Bytes stream, int version)
{
    fuzz::MemoryFile file(stream);
    const ShapeListOwner list = NewShapeList();
    const bool whole = list->Read(&file.File(), version) == 0 && file.File().atEnd();
    return whole;
}

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    fuzz::Bytes input(data, size);
    const int version = fuzz::ReadVersion(input);
    if (version < 0 || version > SHAPE_DOCUMENT_VERSION)
        return 0;
    if (!CheckStream(input, 0, version).fault)
        Expect(LibraryReads(input, version), "the library does not read a stream that was called clean");
    const Salvage salvage = SalvageStream(input, 0, version);
    if (salvage.Empty())
        return 0;
    const QByteArray saved = SavedStream(input, salvage);
    const Bytes bytes(reinterpret_cast<const unsigned char*>(saved.data()), static_cast<size_t>(saved.size()));
    Expect(!CheckStream(bytes, 0, version).fault, "what was saved is not clean");
    return 0;
}
