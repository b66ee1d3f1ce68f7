#include "machine/PathPasses.h"

#include <algorithm>
#include <span>

namespace shapedocument {

namespace {

int PassesOf(const ColorSetting& setting, std::optional<int> passes)
{
    return passes ? setting.passes.value_or(*passes) : 1;
}

/// Paths of one order and block that stand side by side in the job.
struct Stretch
{
    int order;
    uint32_t block;
    qint64 place; ///< of the first path
    size_t paths;
    int passes; ///< the largest number of any path

    std::pair<int, uint32_t> Group() const { return {order, block}; }
};

/// The stretches sorted by order; those of one order stay as they are in the job.
std::vector<Stretch> StretchesOf(const MachineWork& work, std::optional<int> passes)
{
    std::vector<Stretch> stretches;
    JobReader reader(work.job);
    while (const auto path = reader.NextPath()) {
        const ColorSetting setting = SettingOf(work.colors, path->color);
        if (stretches.empty() || stretches.back().Group() != std::pair(setting.order, path->block))
            stretches.push_back({setting.order, path->block, reader.Place(), 0, 1});
        ++stretches.back().paths;
        stretches.back().passes = std::max(stretches.back().passes, PassesOf(setting, passes));
    }
    std::ranges::stable_sort(stretches, {}, &Stretch::order);
    return stretches;
}

} // namespace

void ForEachPass(const MachineWork& work, std::optional<int> passes,
                 const std::function<void(const PathPass& pass, JobReader& points)>& take)
{
    constexpr size_t kOften = 64;
    const std::vector<Stretch> stretches = StretchesOf(work, passes);
    JobReader reader(work.job);
    size_t followed = 0;
    const auto follow = [&](const PathPass& pass) {
        if (work.pathProgress && followed++ % kOften == 0)
            work.pathProgress(std::min(followed, work.job.PathCount()), work.job.PathCount());
        take(pass, reader);
    };
    for (auto begin = stretches.begin(), end = begin; begin != stretches.end(); begin = end) {
        end = std::find_if(begin, stretches.end(), [&](const Stretch& s) { return s.Group() != begin->Group(); });
        const std::span<const Stretch> group(begin, end);
        const int most = std::ranges::max(group, {}, &Stretch::passes).passes;
        for (int pass = 0; pass < most; ++pass)
            for (const Stretch& stretch : group) {
                reader.GoTo(stretch.place, stretch.paths);
                while (const auto path = reader.NextPath())
                    if (const ColorSetting setting = SettingOf(work.colors, path->color);
                        PassesOf(setting, passes) > pass)
                        follow({*path, setting, pass});
            }
    }
}

} // namespace shapedocument
