/// Version, errors, handles, buffers.
#include "Application.h"
#include "Arguments.h"
#include "Buffer.h"
#include "Entry.h"
#include "Home.h"
#include "Refusal.h"
#include "document/OutputFile.h"

#include "host/LibraryVersion.h"
#include "record/DocumentVersion.h"

#include <QFile>

#include <array>
#include <atomic>

using namespace capi;

const char* sm_version(void)
{
    return SHAPEMODEL_VERSION;
}

int32_t sm_document_format(void)
{
    return SHAPE_DOCUMENT_VERSION;
}

sm_status sm_start(void)
{
    return Enter([] { ExpectApplication(); });
}

const char* sm_last_error(void)
{
    return LastError();
}

const char* sm_last_warnings(void)
{
    return LastWarnings();
}

const char* sm_status_text(sm_status status)
{
    static constexpr std::array kTexts{"done",
                                       "an argument cannot be that",
                                       "no such handle",
                                       "of another kind",
                                       "no such index",
                                       "too little memory given",
                                       "no such file",
                                       "not allowed",
                                       "cannot be read",
                                       "cannot be written",
                                       "not enough memory",
                                       "stopped",
                                       "in use",
                                       "not possible with these shapes",
                                       "a part is missing",
                                       "a fault of the library"};
    return status >= 0 && static_cast<size_t>(status) < kTexts.size() ? kTexts[static_cast<size_t>(status)]
                                                                      : "an unknown status";
}

sm_status sm_retain(sm_handle handle)
{
    return EnterQuietly([=] {
        const TableLock table;
        Expect(table->Retain(handle), SM_BAD_HANDLE, "the handle stands for nothing");
    });
}

sm_status sm_release(sm_handle handle)
{
    return EnterQuietly([=] {
        if (handle != 0)
            GiveBack(handle);
    });
}

sm_status sm_release_at(sm_handle* handle)
{
    return EnterQuietly([=] {
        ExpectGiven(handle, "handle");
        if (const sm_handle held = std::atomic_ref(*handle).exchange(0); held != 0)
            GiveBack(held);
    });
}

uint64_t sm_handle_count(void)
{
    const TableLock table;
    return table->Count();
}

sm_status sm_buffer_view(sm_buffer buffer, const uint8_t** data, size_t* size)
{
    return Enter([=] {
        ExpectGiven(data, "data");
        ExpectGiven(size, "size");
        *data = nullptr;
        *size = 0;
        const auto bytes = std::static_pointer_cast<Buffer>(ObjectOf(buffer, Kind::Buffer))->Bytes();
        *data = bytes.data();
        *size = bytes.size();
    });
}

sm_status sm_buffer_save(sm_buffer buffer, const char* file)
{
    return Enter([=] {
        const shapedocument::Target target{FileOf(file)};
        const auto kept = std::static_pointer_cast<Buffer>(ObjectOf(buffer, Kind::Buffer));
        const std::span<const uint8_t> bytes = kept->Bytes();
        Writing([&] {
            shapedocument::WriteFile(target, [&](QFile& device) {
                device.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
            });
        });
    });
}
