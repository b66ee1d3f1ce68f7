/// Jobs, what is written of them, and pictures.
#include "CallPlayer.h"

namespace fuzz {

namespace {

const sm_gcode_options* GcodeOptions(Player& player, Longer<sm_gcode_options>& room)
{
    return player.Options(sm_gcode_options_defaults, room, &sm_gcode_options::dialect,
                          &sm_gcode_options::constant_power, &sm_gcode_options::y_down, &sm_gcode_options::passes,
                          &sm_gcode_options::air, &sm_gcode_options::has_height, &sm_gcode_options::height,
                          &sm_gcode_options::feed, &sm_gcode_options::power, &sm_gcode_options::pass_depth,
                          &sm_gcode_options::engrave_feed, &sm_gcode_options::least_power,
                          &sm_gcode_options::most_power, &sm_gcode_options::overscan);
}

void NewJob(Player& player)
{
    Longer<sm_job_options> room;
    std::array<sm_color_setting, 2> colors{};
    for (sm_color_setting& color : colors) {
        player.Check(sm_color_setting_defaults(&color, sizeof color));
        color.color = static_cast<uint32_t>(player.Integer());
        color.feed = player.Byte() % 8 ? 900 : player.Number();
        color.power = player.Byte() % 8 ? 100 : player.Number();
        color.passes = player.Choice(3);
    }
    const sm_document document = player.Handle(Kind::Document);
    const sm_job_options* options = player.Options(
        sm_job_options_defaults, room, &sm_job_options::order, &sm_job_options::mix_colors, &sm_job_options::leads,
        &sm_job_options::frames, &sm_job_options::arcs, &sm_job_options::keep_doubles, &sm_job_options::engrave,
        &sm_job_options::one_way, &sm_job_options::grey_step, &sm_job_options::dither, &sm_job_options::join,
        &sm_job_options::lines_per_mm);
    if (options && options->struct_size >= sizeof *options && player.Byte() % 4 == 0) {
        room.given.colors = colors.data();
        room.given.color_count = player.Byte() % 8 == 7 ? SIZE_MAX : player.Byte() % 3;
    }
    const sm_progress progress = player.Progress();
    player.Make(Kind::Job,
                [&](sm_handle* made) { return sm_job_new(document, options, progress, player.Context(), made); });
}

void Report(Player& player)
{
    Longer<sm_gcode_options> gcodeRoom;
    Longer<sm_report_options> room;
    const sm_job job = player.Handle(Kind::Job);
    const sm_gcode_options* gcode = GcodeOptions(player, gcodeRoom);
    const sm_report_options* options = player.Options(
        sm_report_options_defaults, room, &sm_report_options::has_bed, &sm_report_options::strict_bed,
        &sm_report_options::rapid, &sm_report_options::acceleration, &sm_report_options::junction_deviation,
        &sm_report_options::beam, &sm_report_options::widest_gap);
    room.given.bed = player.Rect();
    const sm_progress progress = player.Progress();
    player.Make(Kind::Buffer,
                [&](sm_handle* made) { return sm_job_report(job, gcode, options, progress, player.Context(), made); });
}

template <bool ToBytes>
void WriteJob(Player& player)
{
    Longer<sm_gcode_options> room;
    const sm_job job = player.Handle(Kind::Job);
    const sm_gcode_options* options = GcodeOptions(player, room);
    const sm_progress progress = player.Progress();
    const int32_t format = player.Choice(3);
    if (ToBytes)
        player.Make(Kind::Buffer, [&](sm_handle* made) {
            return sm_job_write_bytes(job, format, options, progress, player.Context(), made);
        });
    else
        player.Check(sm_job_write(job, format, player.File(), options, progress, player.Context()));
}

void Draw(Player& player)
{
    Longer<sm_render_options> room;
    const auto kind = static_cast<Kind>(player.Byte() % 5);
    const sm_handle handle = player.Handle(kind);
    const sm_render_options* options =
        player.ToldOptions(sm_render_options_defaults, room, &sm_render_options::format, &sm_render_options::points);
    constexpr std::array kWidths{16, 100, 400, 0, 20'001, -5};
    room.given.width = kWidths[player.Byte() % kWidths.size()];
    player.Make(Kind::Buffer, [&](sm_handle* made) { return sm_render(handle, options, made); });
}

constexpr std::array<PlayedCall, 8> kJobCalls{
    NewJob,
    NewJob, // without which the others have nothing to do
    [](Player& player) {
        Longer<sm_job_info> info;
        player.Check(sm_job_describe(player.Handle(Kind::Job), player.Result(info)));
    },
    Report,
    WriteJob<false>,
    WriteJob<true>,
    Draw,
    [](Player& player) {
        const sm_buffer buffer = player.Handle(Kind::Buffer);
        player.Check(sm_buffer_save(buffer, player.File()));
    },
};

} // namespace

std::span<const PlayedCall> JobCalls()
{
    return kJobCalls;
}

} // namespace fuzz
