#include "machine/ColorSettings.h"

#include "document/Failure.h"
#include "document/InputFile.h"
#include "machine/GcodeOptions.h"
#include "machine/IniFile.h"

#include <QRegularExpression>

namespace shapedocument {

namespace {

/// Takes entries of one file.
class ColorReader
{
public:
    explicit ColorReader(const QString& file) : m_file(file) {}

    void Take(const IniEntry& entry)
    {
        m_entry = &entry;
        ColorSetting& setting = colors[Color()];
        if (entry.key == "feed")
            setting.feed = Number(kLeastFeed, kMostFeed);
        else if (entry.key == "power")
            setting.power = Number(0, kMostPower);
        else if (entry.key == "passes")
            setting.passes = Whole(1, kMostPasses);
        else if (entry.key == "order")
            setting.order = Whole(-kMostPasses, kMostPasses);
        else
            Refuse(QString("\"%1\" is none of feed, power, passes and order").arg(entry.key));
    }

    ColorSettings colors;

private:
    unsigned int Color() const
    {
        static const QRegularExpression kColor("^#[0-9a-fA-F]{6}$");
        if (!kColor.match(m_entry->section).hasMatch())
            Refuse(QString("[%1] is no colour as [#ff0000]").arg(m_entry->section));
        return m_entry->section.mid(1).toUInt(nullptr, 16);
    }

    double Number(double least, double most) const
    {
        bool isNumber = false;
        const double number = m_entry->value.toDouble(&isNumber);
        if (!isNumber || !(number >= least && number <= most))
            RefuseValue(QString("number from %1 to %2").arg(least).arg(most));
        return number;
    }

    int Whole(int least, int most) const
    {
        bool isNumber = false;
        const int number = m_entry->value.toInt(&isNumber);
        if (!isNumber || number < least || number > most)
            RefuseValue(QString("whole number from %1 to %2").arg(least).arg(most));
        return number;
    }

    [[noreturn]] void RefuseValue(const QString& wanted) const
    {
        Refuse(QString("%1 \"%2\" is no %3").arg(m_entry->key, m_entry->value, wanted));
    }

    [[noreturn]] void Refuse(const QString& reason) const
    {
        throw Failure{m_file, QString("line %1: %2").arg(m_entry->line).arg(reason)};
    }

    const QString& m_file;
    const IniEntry* m_entry = nullptr; ///< that is being taken
};

} // namespace

ColorSettings ReadColorSettings(const QString& file)
{
    if (file == kStandardStream)
        throw Failure{InputName(file), "colours are read from a file"};
    ColorReader reader(file);
    for (const IniEntry& entry : ReadIni(file))
        reader.Take(entry);
    return std::move(reader.colors);
}

ColorSetting SettingOf(const ColorSettings& colors, unsigned int color)
{
    const auto found = colors.find(color & 0xFFFFFFU);
    return found == colors.end() ? ColorSetting() : found->second;
}

} // namespace shapedocument
