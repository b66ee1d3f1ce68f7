/// The library, handles, documents, their files, drawings.
#include "CallPlayer.h"

#include <cstdio>
#include <cstdlib>
#include <string>

namespace fuzz {

namespace {

const sm_document_options* StreamOptions(Player& player, Longer<sm_document_options>& room)
{
    return player.ToldOptions(sm_document_options_defaults, room, &sm_document_options::bare,
                              &sm_document_options::version, &sm_document_options::force);
}

const sm_drawing_options* DrawingOptions(Player& player, Longer<sm_drawing_options>& room)
{
    return player.ToldOptions(sm_drawing_options_defaults, room, &sm_drawing_options::flatten,
                              &sm_drawing_options::solid, &sm_drawing_options::visible, &sm_drawing_options::crop,
                              &sm_drawing_options::fills, &sm_drawing_options::text_as_text);
}

/// A buffer's bytes, sometimes without the last; all are read.
std::string BytesOf(Player& player)
{
    const uint8_t* data = nullptr;
    size_t size = 0;
    const sm_status status = sm_buffer_view(player.Handle(Kind::Buffer), player.Room(data), &size);
    player.Check(status);
    if (status != SM_OK || !data)
        return {};
    std::string bytes(reinterpret_cast<const char*>(data), size);
    if (player.Byte() % 8 == 7 && !bytes.empty())
        bytes.pop_back();
    return bytes;
}

constexpr char kDrawing[] = "<svg xmlns='http://www.w3.org/2000/svg' width='99' height='99'>"
                            "<path d='M1 1L50 9 20 70z'/><circle r='9'/><text y='40'>ab</text></svg>";

constexpr std::array<PlayedCall, 19> kDocumentCalls{
    [](Player& player) {
        player.Check(sm_start());
        if (!*sm_version() || sm_document_format() < 1 || !*sm_status_text(player.Integer()))
            std::abort();
    },
    [](Player& player) {
        const sm_handle handle = player.Handle();
        if (sm_retain(handle) == SM_OK && sm_release(handle) != SM_OK)
            std::abort();
    },
    [](Player& player) { player.Make(Kind::Document, [](sm_handle* made) { return sm_document_new(made); }); },
    [](Player& player) {
        Longer<sm_document_options> room;
        const char* file = player.File();
        const sm_document_options* options = StreamOptions(player, room);
        player.Make(Kind::Document, [&](sm_handle* made) { return sm_document_open(file, options, made); });
    },
    [](Player& player) {
        Longer<sm_document_options> room;
        const std::string bytes = BytesOf(player);
        const sm_document_options* options = StreamOptions(player, room);
        player.Make(Kind::Document,
                    [&](sm_handle* made) { return sm_document_open_bytes(bytes.data(), bytes.size(), options, made); });
    },
    [](Player& player) {
        Longer<sm_document_options> room;
        const sm_document document = player.Handle(Kind::Document);
        const sm_document_options* options = StreamOptions(player, room);
        player.Check(sm_document_save(document, player.File(), options));
    },
    [](Player& player) {
        Longer<sm_document_options> room;
        const sm_document document = player.Handle(Kind::Document);
        const sm_document_options* options = StreamOptions(player, room);
        player.Make(Kind::Buffer, [&](sm_handle* made) { return sm_document_save_bytes(document, options, made); });
    },
    [](Player& player) {
        size_t count = 0;
        player.Check(sm_document_count(player.Handle(Kind::Document), player.Room(count)));
    },
    [](Player& player) {
        const sm_document document = player.Handle(Kind::Document);
        const size_t index = player.Size();
        player.Make(Kind::Shape, [&](sm_handle* made) { return sm_document_shape(document, index, made); });
    },
    [](Player& player) {
        sm_rect rect{};
        player.Check(sm_document_rect(player.Handle(Kind::Document), player.Room(rect)));
    },
    [](Player& player) {
        const sm_document document = player.Handle(Kind::Document);
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_document_add(document, shape, player.Byte() % 3 ? size_t(SM_END) : player.Size()));
    },
    [](Player& player) {
        Longer<sm_document_options> room;
        Longer<sm_check_result> result;
        const sm_document_options* options = StreamOptions(player, room);
        player.Check(sm_check(player.File(), options, player.Result(result)));
    },
    [](Player& player) {
        Longer<sm_document_options> room;
        Longer<sm_check_result> result;
        const std::string bytes = BytesOf(player);
        const sm_document_options* options = StreamOptions(player, room);
        player.Check(sm_check_bytes(bytes.data(), bytes.size(), options, player.Result(result)));
    },
    [](Player& player) {
        Longer<sm_document_options> room;
        Longer<sm_repair_result> result;
        const sm_document_options* options = StreamOptions(player, room);
        const char* given = player.File();
        const std::string source = given ? given : ""; // the next name takes its place
        player.Check(sm_repair(given ? source.c_str() : nullptr, player.File(), options, player.Result(result)));
    },
    [](Player& player) {
        Longer<sm_document_options> room;
        Longer<sm_repair_result> result;
        const std::string bytes = BytesOf(player);
        const sm_document_options* options = StreamOptions(player, room);
        player.Make(Kind::Buffer, [&](sm_handle* made) {
            return sm_repair_bytes(bytes.data(), bytes.size(), options, made, player.Result(result));
        });
    },
    [](Player& player) {
        Longer<sm_drawing_options> room;
        size_t count = 0;
        const sm_document document = player.Handle(Kind::Document);
        const sm_drawing_options* options = DrawingOptions(player, room);
        player.Check(sm_document_import_drawing(document, player.File(), options, player.Room(count)));
    },
    [](Player& player) {
        Longer<sm_drawing_options> room;
        size_t count = 0;
        const sm_document document = player.Handle(Kind::Document);
        const sm_drawing_options* options = DrawingOptions(player, room);
        const size_t size = sizeof kDrawing - player.Byte() % 2 - 1;
        player.Check(
            sm_document_import_drawing_bytes(document, kDrawing, size, player.File(), options, player.Room(count)));
    },
    [](Player& player) { // files that are no documents: pictures, reports, G-code, drawings
        const std::string bytes = player.Byte() % 4 ? BytesOf(player) : kDrawing;
        const char* name = player.File();
        std::FILE* file = name ? std::fopen(name, "wb") : nullptr;
        if (!file)
            return;
        std::fwrite(bytes.data(), 1, bytes.size(), file);
        std::fclose(file);
    },
    [](Player& player) {
        player.Check(sm_document_import_drawing_bytes(player.Handle(), nullptr, 0, nullptr, nullptr, nullptr));
    },
};

} // namespace

std::span<const PlayedCall> DocumentCalls()
{
    return kDocumentCalls;
}

} // namespace fuzz
