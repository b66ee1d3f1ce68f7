/// What shapes are asked, and how they are changed.
#include "CallPlayer.h"

namespace fuzz {

namespace {

constexpr std::array<PlayedCall, 31> kShapeCalls{
    [](Player& player) {
        int32_t type = 0;
        player.Check(sm_shape_type(player.Handle(Kind::Shape), player.Room(type)));
    },
    [](Player& player) {
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Make(Kind::Document, [&](sm_handle* made) { return sm_shape_document(shape, made); });
    },
    [](Player& player) {
        size_t index = 0;
        player.Check(sm_shape_index(player.Handle(Kind::Shape), player.Room(index)));
    },
    [](Player& player) {
        sm_rect rect{};
        player.Check(sm_shape_rect(player.Handle(Kind::Shape), player.Room(rect)));
    },
    [](Player& player) {
        uint32_t color = 0;
        player.Check(sm_shape_color(player.Handle(Kind::Shape), player.Room(color)));
    },
    [](Player& player) {
        player.Check(sm_shape_set_color(player.Handle(Kind::Shape), static_cast<uint32_t>(player.Integer())));
    },
    [](Player& player) {
        uint32_t state = 0;
        player.Check(sm_shape_state(player.Handle(Kind::Shape), player.Room(state)));
    },
    [](Player& player) { player.Check(sm_shape_set_state(player.Handle(Kind::Shape), player.Byte() % 9)); },
    [](Player& player) {
        Longer<sm_leads> leads;
        player.Check(sm_shape_leads(player.Handle(Kind::Shape), player.Result(leads)));
    },
    [](Player& player) {
        Longer<sm_leads> room;
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_shape_set_leads(shape, player.Options(sm_leads_defaults, room, &sm_leads::as_open,
                                                              &sm_leads::in_length, &sm_leads::out_length)));
    },
    [](Player& player) {
        std::array<double, 8> xy{};
        std::array<uint8_t, 4> types{};
        size_t count = 0;
        const sm_shape shape = player.Handle(Kind::Shape);
        const size_t capacity = player.Byte() % (types.size() + 1);
        player.Check(sm_shape_points(shape, player.Room(xy[0]), player.Room(types[0]), capacity, player.Room(count)));
    },
    [](Player& player) { // lent memory is read
        const double* xy = nullptr;
        const uint8_t* types = nullptr;
        size_t count = 0;
        const sm_status status = sm_shape_borrow_points(player.Handle(Kind::Shape), player.Room(xy), &types, &count);
        player.Check(status);
        volatile double last = 0;
        for (size_t i = 0; status == SM_OK && i < count; ++i)
            last = xy[2 * i] + xy[2 * i + 1] + types[i];
        static_cast<void>(last);
    },
    [](Player& player) {
        sm_handle xy = 0, starts = 0;
        const sm_status status = sm_shape_lines(player.Handle(Kind::Shape), player.Progress(), player.Context(),
                                                player.Room(xy), player.Room(starts));
        player.Check(status);
        player.Keep(status, xy, Kind::Buffer);
        player.Keep(status, starts, Kind::Buffer);
    },
    [](Player& player) {
        std::array<char, 8> text{};
        size_t length = 0;
        const sm_shape shape = player.Handle(Kind::Shape);
        const size_t capacity = player.Byte() % (text.size() + 1);
        player.Check(sm_shape_text(shape, player.Room(text[0]), capacity, player.Room(length)));
    },
    [](Player& player) {
        Longer<sm_text_options> result;
        player.Check(sm_shape_text_options(player.Handle(Kind::Shape), player.Result(result)));
    },
    [](Player& player) {
        int32_t kind = 0;
        player.Check(sm_code_image_kind(player.Handle(Kind::Shape), player.Room(kind)));
    },
    [](Player& player) {
        Longer<sm_pixels> info;
        const sm_shape shape = player.Handle(Kind::Shape);
        const int32_t which = player.Choice(2);
        player.Make(Kind::Buffer,
                    [&](sm_handle* made) { return sm_shape_pixels(shape, which, player.Result(info), made); });
    },
    [](Player& player) {
        size_t count = 0;
        player.Check(sm_shape_member_count(player.Handle(Kind::Shape), player.Room(count)));
    },
    [](Player& player) {
        const sm_shape shape = player.Handle(Kind::Shape);
        const size_t index = player.Size();
        player.Make(Kind::Shape, [&](sm_handle* made) { return sm_shape_member(shape, index, made); });
    },
    [](Player& player) {
        size_t count = 0;
        player.Check(sm_array_cell_count(player.Handle(Kind::Shape), player.Room(count)));
    },
    [](Player& player) {
        Longer<sm_cell> cell;
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_array_cell(shape, player.Size(), player.Result(cell)));
    },
    [](Player& player) {
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_array_delete_cell(shape, player.Size()));
    },
    [](Player& player) { player.Check(sm_shape_remove(player.Handle(Kind::Shape))); },
    [](Player& player) {
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_shape_move(shape, player.Number(), player.Number()));
    },
    [](Player& player) {
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_shape_resize(shape, player.Rect()));
    },
    [](Player& player) {
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_shape_turn(shape, player.Number(), player.Number(), player.Number()));
    },
    [](Player& player) {
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_shape_mirror_x(shape, player.Number()));
    },
    [](Player& player) {
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_shape_mirror_y(shape, player.Number()));
    },
    [](Player& player) {
        Longer<sm_fit_result> result;
        player.Check(
            sm_shape_fit(player.Handle(Kind::Shape), player.Progress(), player.Context(), player.Result(result)));
    },
    [](Player& player) {
        sm_handle handle = player.Byte() % 2 ? player.Byte() * 0x300000001ULL : 0;
        sm_release_at(player.Byte() % 8 ? &handle : nullptr);
    },
    [](Player& player) { sm_release(player.Byte() % 2 ? player.Byte() * 0x300000001ULL : 0); },
};

} // namespace

std::span<const PlayedCall> ShapeCalls()
{
    return kShapeCalls;
}

} // namespace fuzz
