/// Documents: opening, saving, and their shapes.
#include "Application.h"
#include "Arguments.h"
#include "Buffer.h"
#include "Edits.h"
#include "Entry.h"
#include "Progress.h"
#include "StreamOptions.h"
#include "Structs.h"

using namespace capi;
using namespace shapedocument;

namespace capi {

namespace {

sm_document_options DefaultStreamOptions()
{
    sm_document_options options{};
    options.struct_size = sizeof options;
    options.version = SM_VERSION_UNSTATED;
    return options;
}

sm_document Opened(OpenedDocument opened)
{
    const auto home = std::make_shared<Home>(false);
    home->list = std::move(opened.shapes);
    Warn(opened.warnings); // before HandleOf: it may throw, and a handle would leak
    return HandleOf(home);
}

} // namespace

sm_document_options StreamOptionsOf(const sm_document_options* given)
{
    const sm_document_options options = WithDefaults(given, DefaultStreamOptions());
    ExpectBetween(options.version, SM_VERSION_UNSTATED, SHAPE_DOCUMENT_VERSION, "version");
    return options;
}

std::optional<int> VersionOf(const sm_document_options& options)
{
    return options.version == SM_VERSION_UNSTATED ? std::nullopt : std::optional(options.version);
}

StreamFormat StreamFormatOf(const sm_document_options& options)
{
    return {options.bare != 0, VersionOf(options).value_or(SHAPE_DOCUMENT_VERSION)};
}

Target TargetOf(const char* file, const sm_document_options& options)
{
    return {FileOf(file), options.force != 0};
}

} // namespace capi

sm_status sm_document_options_defaults(sm_document_options* options, size_t size)
{
    return Enter([=] { Fill(options, size, DefaultStreamOptions()); });
}

sm_status sm_document_new(sm_document* document)
{
    return Enter([=] {
        Clear(document, "document");
        ExpectApplication();
        *document = HandleOf(std::make_shared<Home>(false));
    });
}

sm_status sm_document_open(const char* file, const sm_document_options* options, sm_document* document)
{
    return Enter([=] {
        Clear(document, "document");
        const sm_document_options taken = StreamOptionsOf(options);
        const QString name = FileOf(file);
        ExpectApplication();
        Progress told(taken);
        *document = Opened(ReadDocument(name, StreamFormatOf(taken), told.OfWork()));
    });
}

sm_status sm_document_open_bytes(const void* data, size_t size, const sm_document_options* options,
                                 sm_document* document)
{
    return Enter([=] {
        Clear(document, "document");
        const sm_document_options taken = StreamOptionsOf(options);
        const Bytes bytes = BytesOf(data, size);
        ExpectApplication();
        Progress told(taken);
        *document = Opened(ReadDocument(bytes, kBytes, StreamFormatOf(taken), told.OfWork()));
    });
}

sm_status sm_document_save(sm_document document, const char* file, const sm_document_options* options)
{
    return Enter([=] {
        const sm_document_options taken = StreamOptionsOf(options);
        const Target target = TargetOf(file, taken);
        const DocumentUse use(document);
        Progress told(taken);
        Writing([&] { WriteDocument(target, use.List(), StreamFormatOf(taken), told.OfWork()); });
    });
}

sm_status sm_document_save_bytes(sm_document document, const sm_document_options* options, sm_buffer* bytes)
{
    return Enter([=] {
        Clear(bytes, "bytes");
        const sm_document_options taken = StreamOptionsOf(options);
        const DocumentUse use(document);
        Progress told(taken);
        Making([&] { *bytes = Lent(DocumentBytes(use.List(), kBytes, StreamFormatOf(taken), told.OfWork())); });
    });
}

sm_status sm_document_count(sm_document document, size_t* count)
{
    return Enter([=] {
        Clear(count, "count");
        *count = DocumentUse(document).List().GetCount();
    });
}

sm_status sm_document_shape(sm_document document, size_t index, sm_shape* shape)
{
    return Enter([=] {
        Clear(shape, "shape");
        const DocumentUse use(document);
        *shape = HandleOf(use.TheHome(), EntryAt(use.List(), index));
    });
}

sm_status sm_document_rect(sm_document document, sm_rect* rect)
{
    return Enter([=] {
        Clear(rect, "rect");
        const DocumentUse use(document);
        *rect = RectOf(use.List().GetRect(false));
    });
}
