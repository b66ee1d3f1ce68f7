#include "machine/PathPasses.h"

#include <algorithm>

namespace shapedocument {

namespace {

ColorSetting SettingOf(const ColorSettings& colors, unsigned int color)
{
    const auto found = colors.find(color & 0xFFFFFFU);
    return found == colors.end() ? ColorSetting() : found->second;
}

int PassesOf(const ColorSetting& setting, std::optional<int> passes)
{
    return passes ? setting.passes.value_or(*passes) : 1;
}

/// The orders that there may be, and how many passes each takes at most.
std::map<int, int> PassesOfOrders(const ColorSettings& colors, std::optional<int> passes)
{
    std::map<int, int> orders{{ColorSetting::kLastOrder, passes.value_or(1)}};
    for (const auto& [color, setting] : colors) {
        int& most = orders[setting.order];
        most = std::max(most, PassesOf(setting, passes));
    }
    return orders;
}

} // namespace

void ForEachPass(const MachineWork& work, std::optional<int> passes,
                 const std::function<void(const PathPass& pass, JobReader& points)>& take)
{
    for (const auto& [order, most] : PassesOfOrders(work.colors, passes)) {
        for (int pass = 0; pass < most; ++pass) {
            JobReader reader(work.job);
            while (const auto path = reader.NextPath()) {
                const ColorSetting setting = SettingOf(work.colors, path->color);
                if (setting.order == order && PassesOf(setting, passes) > pass)
                    take({*path, setting, pass}, reader);
            }
        }
    }
}

} // namespace shapedocument
