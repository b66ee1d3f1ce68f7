#include "machine/MachineSettings.h"

#include "document/Failure.h"

#include <QFile>
#include <QSettings>

#include <array>
#include <cmath>

namespace shapedocument {

namespace {

struct Setting
{
    const char* name;
    double MachineSettings::*value;
};

constexpr std::array<Setting, 6> kSettings{{
    {"feed", &MachineSettings::feed},
    {"engraveFeed", &MachineSettings::engraveFeed},
    {"rapid", &MachineSettings::rapid},
    {"acceleration", &MachineSettings::acceleration},
    {"junctionDeviation", &MachineSettings::junctionDeviation},
    {"beam", &MachineSettings::beam},
}};

/// Faster or coarser than any machine.
constexpr double kMost = 1e6;

void Set(MachineSettings& settings, const QString& file, const QString& key, const QVariant& value)
{
    for (const Setting& setting : kSettings) {
        if (key != QStringLiteral("machine/") + QLatin1String(setting.name))
            continue;
        bool isNumber = false;
        const double number = value.toString().toDouble(&isNumber);
        if (!isNumber || !(number > 0) || number > kMost)
            throw Failure{file, QString("%1 is \"%2\", not a number above 0 and up to %3")
                                    .arg(key, value.toString())
                                    .arg(kMost, 0, 'f', 0)};
        settings.*setting.value = number;
        return;
    }
    throw Failure{file, QString("has \"%1\", which is no setting of a machine").arg(key)};
}

} // namespace

MachineSettings ReadMachineSettings(const QString& file)
{
    QFile device(file);
    if (!device.open(QIODevice::ReadOnly))
        throw Failure{file, QString("cannot be opened: %1").arg(device.errorString())};
    const QSettings lines(file, QSettings::IniFormat);
    if (lines.status() != QSettings::NoError)
        throw Failure{file, "is no file of settings"};
    MachineSettings settings;
    for (const QString& key : lines.allKeys())
        Set(settings, file, key, lines.value(key));
    return settings;
}

} // namespace shapedocument
