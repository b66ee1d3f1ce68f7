#include "machine/MachineSettings.h"

#include "machine/IniFile.h"

#include <QStringList>

#include <algorithm>
#include <array>

namespace shapedocument {

namespace {

struct Setting
{
    const char* name;
    void (*set)(MachineSettings& settings, double value);
};

constexpr std::array<Setting, 6> kSettings{{
    {"feed", [](MachineSettings& settings, double value) { settings.feed = value; }},
    {"engraveFeed", [](MachineSettings& settings, double value) { settings.engraveFeed = value; }},
    {"rapid", [](MachineSettings& settings, double value) { settings.rapid = value; }},
    {"acceleration", [](MachineSettings& settings, double value) { settings.acceleration = value; }},
    {"junctionDeviation", [](MachineSettings& settings, double value) { settings.junctionDeviation = value; }},
    {"beam", [](MachineSettings& settings, double value) { settings.beam = value; }},
}};

QString AllNames()
{
    QStringList names;
    for (const Setting& setting : kSettings)
        names << setting.name;
    return names.join(", ");
}

void Apply(MachineSettings& settings, const IniEntry& entry, const QString& file)
{
    if (entry.section != "machine")
        Refuse(entry, file,
               QString("[%1] is no section of a machine, which has [machine] alone").arg(Shown(entry.section)));
    if (entry.key.isEmpty())
        return;
    const auto* const setting =
        std::find_if(kSettings.begin(), kSettings.end(), [&](const Setting& known) { return entry.key == known.name; });
    if (setting == kSettings.end())
        Refuse(entry, file, QString("\"%1\" is none of %2").arg(Shown(entry.key), AllNames()));
    setting->set(settings, NumberOf(entry, file, kLeastSetting, kMostSetting));
}

} // namespace

MachineSettings ReadMachineSettings(const QString& file)
{
    MachineSettings settings;
    for (const IniEntry& entry : ReadIni(file))
        Apply(settings, entry, file);
    return settings;
}

} // namespace shapedocument
