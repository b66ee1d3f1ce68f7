/// Documents: opened, saved, what they hold.
#include "Application.h"
#include "Arguments.h"
#include "Buffer.h"
#include "Edits.h"
#include "Entry.h"
#include "StreamOptions.h"
#include "Structs.h"

using namespace capi;
using namespace shapedocument;

namespace capi {

namespace {

constexpr char kBytes[] = "bytes"; ///< their name in messages
constexpr int32_t kPresentVersion = -1;

sm_document Opened(OpenedDocument opened)
{
    const auto home = std::make_shared<Home>(false);
    home->list = std::move(opened.shapes);
    Warn(opened.warnings); // may throw, and a handle would be left
    return HandleOf(home);
}

} // namespace

sm_document_options DefaultStreamOptions()
{
    return {sizeof(sm_document_options), 0, kPresentVersion, 0};
}

std::optional<int> VersionOf(const sm_document_options* given)
{
    const int32_t version = Taken(given, DefaultStreamOptions()).version;
    ExpectBetween(version, kPresentVersion, SHAPE_DOCUMENT_VERSION, "version");
    return version == kPresentVersion ? std::nullopt : std::optional(version);
}

StreamFormat StreamFormatOf(const sm_document_options* given)
{
    const std::optional<int> version = VersionOf(given);
    return {Taken(given, DefaultStreamOptions()).bare != 0, version.value_or(SHAPE_DOCUMENT_VERSION)};
}

Target TargetOf(const char* file, const sm_document_options* options)
{
    return {FileOf(file), Taken(options, DefaultStreamOptions()).force != 0};
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
        const StreamFormat format = StreamFormatOf(options);
        const QString name = FileOf(file);
        ExpectApplication();
        *document = Opened(ReadDocument(name, format));
    });
}

sm_status sm_document_open_bytes(const void* data, size_t size, const sm_document_options* options,
                                 sm_document* document)
{
    return Enter([=] {
        Clear(document, "document");
        const StreamFormat format = StreamFormatOf(options);
        const Bytes bytes = BytesOf(data, size);
        ExpectApplication();
        *document = Opened(ReadDocument(bytes, kBytes, format));
    });
}

sm_status sm_document_save(sm_document document, const char* file, const sm_document_options* options)
{
    return Enter([=] {
        const StreamFormat format = StreamFormatOf(options);
        const Target target = TargetOf(file, options);
        const DocumentUse use(document);
        Writing([&] { WriteDocument(target, use.List(), format); });
    });
}

sm_status sm_document_save_bytes(sm_document document, const sm_document_options* options, sm_buffer* bytes)
{
    return Enter([=] {
        Clear(bytes, "bytes");
        const StreamFormat format = StreamFormatOf(options);
        const DocumentUse use(document);
        Making([&] { *bytes = Lent(DocumentBytes(use.List(), kBytes, format)); });
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
