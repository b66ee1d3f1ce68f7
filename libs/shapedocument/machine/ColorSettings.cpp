#include "machine/ColorSettings.h"

#include "machine/GcodeOptions.h"
#include "machine/IniFile.h"

#include <QLocale>
#include <QRegularExpression>

namespace shapedocument {

namespace {

unsigned int ColorOf(const IniEntry& entry, const QString& file)
{
    static const QRegularExpression kColor("^#[0-9a-fA-F]{6}$");
    if (!kColor.match(entry.section).hasMatch())
        Refuse(entry, file, QString("[%1] is no colour as [#ff0000]").arg(Shown(entry.section)));
    return entry.section.mid(1).toUInt(nullptr, 16);
}

void Apply(ColorSetting& setting, const IniEntry& entry, const QString& file)
{
    if (entry.key == "feed")
        setting.feed = NumberOf(entry, file, kLeastFeed, kMostFeed);
    else if (entry.key == "power")
        setting.power = NumberOf(entry, file, 0, kMostPower);
    else if (entry.key == "passes")
        setting.passes = WholeNumberOf(entry, file, 1, kMostPasses);
    else if (entry.key == "order")
        setting.order = WholeNumberOf(entry, file, -kMostPasses, kMostPasses);
    else if (!entry.key.isEmpty())
        Refuse(entry, file, QString("\"%1\" is none of feed, power, passes and order").arg(Shown(entry.key)));
}

} // namespace

ColorSettings ReadColorSettings(const QString& file)
{
    ColorSettings colors;
    for (const IniEntry& entry : ReadIni(file))
        Apply(colors[ColorOf(entry, file)], entry, file);
    return colors;
}

QByteArray ColorSettingsText(const ColorSettings& colors)
{
    QByteArray text;
    const auto put = [&text](const char* key, const QByteArray& value) { text += key + (" = " + value) + '\n'; };
    const auto shortest = [](double value) { return QByteArray::number(value, 'g', QLocale::FloatingPointShortest); };
    for (const auto& [color, setting] : colors) {
        text += QString("[#%1]\n").arg(color & 0xFFFFFFU, 6, 16, QChar(u'0')).toLatin1();
        if (setting.feed)
            put("feed", shortest(*setting.feed));
        if (setting.power)
            put("power", shortest(*setting.power));
        if (setting.passes)
            put("passes", QByteArray::number(*setting.passes));
        if (setting.order != ColorSetting::kLastOrder)
            put("order", QByteArray::number(setting.order));
    }
    return text;
}

ColorSetting SettingOf(const ColorSettings& colors, unsigned int color)
{
    const auto found = colors.find(color & 0xFFFFFFU);
    return found == colors.end() ? ColorSetting() : found->second;
}

} // namespace shapedocument
