/// Shapes that are made: outlines, texts, pictures, copies, groups, arrays.
#include "CallPlayer.h"

#include <cstring>

namespace fuzz {

namespace {

constexpr std::array<uint8_t, 16> kPixels{0, 9, 200, 255, 3, 128, 7, 7, 7, 9, 9, 9, 90, 80, 70, 60};
constexpr int kCopyPrice = 10; // each copy may double what there is
constexpr int kArrayPrice = 25;

struct Outline
{
    std::array<double, 12> xy{};
    std::array<uint8_t, 6> types{};
    bool typed;
    size_t count;

    explicit Outline(Player& player)
    {
        for (double& number : xy)
            number = player.Byte() % 16 ? double(player.Byte()) : player.Number();
        for (uint8_t& type : types)
            type = static_cast<uint8_t>(player.Byte() % 8 == 7 ? player.Byte() % 5 : 0);
        typed = player.Byte() % 2 != 0;
        count = player.Byte() % 7;
    }
    const uint8_t* Types() const { return typed ? types.data() : nullptr; }
};

/// Of kPixels at most, or impossible.
struct Picture
{
    const uint8_t* pixels;
    size_t width, height, stride;

    explicit Picture(Player& player)
        : pixels(player.Byte() % 32 == 31 ? nullptr : kPixels.data()), width(player.Size()), height(player.Size()),
          stride(player.Byte() % 8 == 7 ? SIZE_MAX : player.Byte() % 5)
    {}
};

struct Shapes
{
    std::array<sm_shape, 3> handles;
    size_t count;

    explicit Shapes(Player& player)
        : handles{player.Handle(Kind::Shape), player.Handle(Kind::Shape), player.Handle(Kind::Shape)},
          count(player.Byte() % 4)
    {}
};

const sm_text_options* TextOptions(Player& player, Longer<sm_text_options>& room)
{
    const sm_text_options* options =
        player.Options(sm_text_options_defaults, room, &sm_text_options::bold, &sm_text_options::italic,
                       &sm_text_options::vertical, &sm_text_options::align, &sm_text_options::size,
                       &sm_text_options::char_spacing, &sm_text_options::line_spacing);
    if (options && options->struct_size >= sizeof *options && player.Byte() % 8 == 0)
        std::memset(room.given.family, static_cast<int>(player.Byte()), sizeof room.given.family); // without a zero
    return options;
}

constexpr std::array<PlayedCall, 14> kMakingCalls{
    [](Player& player) {
        const Outline outline(player);
        player.Make(Kind::Shape, [&](sm_handle* made) {
            return sm_vector_new(outline.xy.data(), outline.Types(), outline.count, made);
        });
    },
    [](Player& player) {
        const Outline outline(player);
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_shape_set_points(shape, outline.xy.data(), outline.Types(), outline.count));
    },
    [](Player& player) {
        const sm_rect rect = player.Rect();
        player.Make(Kind::Shape, [&](sm_handle* made) { return sm_vector_new_rectangle(rect, made); });
    },
    [](Player& player) {
        const sm_rect rect = player.Rect();
        player.Make(Kind::Shape, [&](sm_handle* made) { return sm_vector_new_ellipse(rect, made); });
    },
    [](Player& player) {
        Longer<sm_text_options> room;
        const sm_text_options* options = TextOptions(player, room);
        const char* text = player.Text();
        player.Make(Kind::Shape, [&](sm_handle* made) { return sm_text_new(text, options, made); });
    },
    [](Player& player) {
        Longer<sm_text_options> room;
        const sm_shape shape = player.Handle(Kind::Shape);
        const sm_text_options* options = TextOptions(player, room);
        player.Check(sm_shape_set_text(shape, player.Text(), options));
    },
    [](Player& player) {
        Longer<sm_image_options> room;
        const sm_image_options* options = player.ToldOptions(sm_image_options_defaults, room, &sm_image_options::large);
        const char* file = player.File();
        player.Make(Kind::Shape, [&](sm_handle* made) { return sm_image_open(file, options, made); });
    },
    [](Player& player) {
        const Picture picture(player);
        const sm_rect rect = player.Rect();
        player.Make(Kind::Shape, [&](sm_handle* made) {
            return sm_image_new(picture.pixels, picture.width, picture.height, picture.stride, rect, made);
        });
    },
    [](Player& player) {
        const Picture picture(player);
        const sm_rect rect = player.Rect();
        const int32_t kind = player.Choice(2);
        const char* text = player.Text();
        player.Make(Kind::Shape, [&](sm_handle* made) {
            return sm_code_image_new(picture.pixels, picture.width, picture.height, picture.stride, rect, text, kind,
                                     made);
        });
    },
    [](Player& player) {
        const Picture picture(player);
        const sm_shape shape = player.Handle(Kind::Shape);
        player.Check(sm_shape_set_pixels(shape, picture.pixels, picture.width, picture.height, picture.stride));
    },
    [](Player& player) {
        const sm_shape shape = player.Handle(Kind::Shape);
        const sm_progress progress = player.Progress();
        if (player.Spend(kCopyPrice))
            player.Make(Kind::Shape,
                        [&](sm_handle* made) { return sm_shape_clone(shape, progress, player.Context(), made); });
    },
    [](Player& player) {
        const Shapes shapes(player);
        player.Make(Kind::Shape,
                    [&](sm_handle* made) { return sm_group_new(shapes.handles.data(), shapes.count, made); });
    },
    [](Player& player) { player.Check(sm_group_dissolve(player.Handle(Kind::Shape))); },
    [](Player& player) {
        Longer<sm_array_options> room;
        const Shapes shapes(player);
        const sm_array_options* options =
            player.Options(sm_array_options_defaults, room, &sm_array_options::column_gap, &sm_array_options::row_gap,
                           &sm_array_options::row_shift, &sm_array_options::column_shift);
        constexpr std::array kCounts{1, 2, 3, 0, -1, INT32_MAX};
        room.given.rows = kCounts[player.Byte() % kCounts.size()];
        room.given.columns = kCounts[player.Byte() % kCounts.size()];
        if (player.Spend(kArrayPrice))
            player.Make(Kind::Shape, [&](sm_handle* made) {
                return sm_array_new(shapes.handles.data(), shapes.count, options, made);
            });
    },
};

} // namespace

std::span<const PlayedCall> MakingCalls()
{
    return kMakingCalls;
}

} // namespace fuzz
