#include "machine/ColorSettings.h"

#include "document/Failure.h"
#include "document/InputFile.h"
#include "machine/GcodeOptions.h"

#include <QFile>
#include <QRegularExpression>
#include <QSettings>

namespace shapedocument {

namespace {

unsigned int ColorOf(const QString& section, const QString& file)
{
    static const QRegularExpression kColor("^#[0-9a-fA-F]{6}$");
    if (!kColor.match(section).hasMatch())
        throw Failure{file, QString("[%1] is no colour as [#ff0000]").arg(section)};
    return section.mid(1).toUInt(nullptr, 16);
}

/// One key of a section, and what it may be.
class Entry
{
public:
    Entry(const QSettings& settings, const QString& key, const QString& file)
        : m_text(settings.value(key).toString()), m_key(key), m_file(file)
    {}

    double Number(double least, double most) const
    {
        bool isNumber = false;
        const double number = m_text.toDouble(&isNumber);
        if (!isNumber || !(number >= least && number <= most))
            Refuse(QString("number from %1 to %2").arg(least).arg(most));
        return number;
    }

    int Whole(int least, int most) const
    {
        bool isNumber = false;
        const int number = m_text.toInt(&isNumber);
        if (!isNumber || number < least || number > most)
            Refuse(QString("whole number from %1 to %2").arg(least).arg(most));
        return number;
    }

private:
    [[noreturn]] void Refuse(const QString& wanted) const
    {
        throw Failure{m_file, QString("%1: \"%2\" is no %3").arg(m_key, m_text, wanted)};
    }

    QString m_text;
    QString m_key;
    QString m_file;
};

void Take(const QString& name, const Entry& entry, ColorSetting& setting, const QString& file)
{
    if (name == "feed")
        setting.feed = entry.Number(kLeastFeed, kMostFeed);
    else if (name == "power")
        setting.power = entry.Number(0, kMostPower);
    else if (name == "passes")
        setting.passes = entry.Whole(1, kMostPasses);
    else if (name == "order")
        setting.order = entry.Whole(-kMostPasses, kMostPasses);
    else
        throw Failure{file, QString("\"%1\" is none of feed, power, passes and order").arg(name)};
}

} // namespace

ColorSettings ReadColorSettings(const QString& file)
{
    if (file == kStandardStream)
        throw Failure{InputName(file), "colours are read from a file"};
    OpenInput(file); // says why it cannot be read
    QSettings settings(file, QSettings::IniFormat);
    const QStringList keys = settings.allKeys(); // reads the file
    if (settings.status() != QSettings::NoError)
        throw Failure{file, "holds a line that is neither a section nor a key with its value"};
    ColorSettings colors;
    for (const QString& key : keys) {
        const QString section = key.section('/', 0, 0);
        if (!key.contains('/'))
            throw Failure{file, QString("\"%1\" stands in no section as [#ff0000]").arg(key)};
        Take(key.section('/', 1), Entry(settings, key, file), colors[ColorOf(section, file)], file);
    }
    return colors;
}

} // namespace shapedocument
