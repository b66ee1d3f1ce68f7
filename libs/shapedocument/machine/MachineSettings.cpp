#include "machine/MachineSettings.h"

#include "document/Failure.h"
#include "document/InputFile.h"

#include <QFile>
#include <QMap>
#include <QStringList>

#include <algorithm>
#include <array>

namespace shapedocument {

namespace {

constexpr double kLeast = 0.001, kMost = 1e6;
constexpr qint64 kMostBytes = 65536;
constexpr qsizetype kMostShown = 40; ///< characters of a line in a message

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

/// Line by line; a library for such files would not say in which line something is wrong.
class SettingsReader
{
public:
    explicit SettingsReader(const QString& file) : m_file(file) {}

    void Take(const QString& whole)
    {
        ++m_number;
        const QString line = whole.left(std::min(Position(whole, u';'), Position(whole, u'#'))).trimmed();
        if (line == "[machine]")
            m_isInSection = true;
        else if (line.startsWith(u'['))
            Refuse(Shown(line) + " is no section of a machine, which has [machine] alone");
        else if (!line.isEmpty())
            TakeSetting(line);
    }

    const MachineSettings& Settings() const { return m_settings; }

private:
    static qsizetype Position(const QString& line, QChar letter)
    {
        const qsizetype at = line.indexOf(letter);
        return at < 0 ? line.size() : at;
    }

    static QString Shown(const QString& text) { return text.size() > kMostShown ? text.left(kMostShown) + "…" : text; }

    void TakeSetting(const QString& line)
    {
        if (!line.contains(u'='))
            Refuse(QString("\"%1\" is no setting as feed = 1200").arg(Shown(line)));
        const QString name = line.section(u'=', 0, 0).trimmed(), value = line.section(u'=', 1).trimmed();
        const auto* const setting =
            std::find_if(kSettings.begin(), kSettings.end(), [&](const Setting& known) { return name == known.name; });
        if (setting == kSettings.end())
            Refuse(QString("\"%1\" is none of %2").arg(Shown(name), AllNames()));
        if (!m_isInSection)
            Refuse(name + " stands before [machine]");
        if (m_lines.contains(name))
            Refuse(QString("%1 has been set in line %2 already").arg(name).arg(m_lines[name]));
        m_lines[name] = m_number;
        bool isNumber = false;
        const double number = value.toDouble(&isNumber);
        if (!isNumber || !(number >= kLeast && number <= kMost))
            Refuse(QString("%1 is \"%2\", no number from %3 to %4")
                       .arg(name, Shown(value))
                       .arg(kLeast)
                       .arg(kMost, 0, 'f', 0));
        setting->set(m_settings, number);
    }

    [[noreturn]] void Refuse(const QString& reason) const
    {
        throw Failure{m_file, QString("line %1: %2").arg(m_number).arg(reason)};
    }

    QString m_file;
    int m_number = 0;
    bool m_isInSection = false;
    QMap<QString, int> m_lines; ///< in which a name was set
    MachineSettings m_settings;
};

} // namespace

MachineSettings ReadMachineSettings(const QString& file)
{
    if (file == kStandardStream)
        throw Failure{InputName(file), "settings of a machine are read from a file"};
    const auto device = OpenInput(file);
    if (device->size() > kMostBytes)
        throw Failure{file, QString("is larger than %1 bytes: no settings of a machine").arg(kMostBytes)};
    const QString text = QString::fromUtf8(device->readAll()); // takes a byte order mark away
    SettingsReader reader(file);
    for (const QString& line : text.split(u'\n'))
        reader.Take(line);
    return reader.Settings();
}

} // namespace shapedocument
