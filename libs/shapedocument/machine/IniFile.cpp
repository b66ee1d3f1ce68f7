#include "machine/IniFile.h"

#include "document/Failure.h"
#include "document/InputFile.h"

#include <QFile>
#include <QRegularExpression>

#include <map>
#include <utility>

namespace shapedocument {

namespace {

constexpr qint64 kMostBytes = qint64{1} << 20;
constexpr qsizetype kMostShown = 40; // characters
constexpr int kShownDigits = 10;

QString TextOf(const QString& file)
{
    if (file == kStandardStream)
        throw Failure{InputName(file), "settings are read from a file"};
    const QByteArray bytes = OpenInput(file)->read(kMostBytes + 1);
    if (bytes.size() > kMostBytes)
        throw Failure{file, "is too large for a file of settings"};
    return QString::fromUtf8(bytes); // leaves a byte order mark out
}

/// Collects the entries of the lines it is given.
class IniReader
{
public:
    explicit IniReader(const QString& file) : m_file(file) {}

    void ReadLine(const QString& text)
    {
        ++m_line;
        const QString line = text.section(';', 0, 0).trimmed();
        const qsizetype equals = line.indexOf('=');
        if (line.isEmpty() || line.startsWith('#'))
            return;
        if (line.startsWith('[') && line.endsWith(']'))
            BeginSection(line.mid(1, line.size() - 2).trimmed());
        else if (equals > 0)
            AddEntry(line.left(equals).trimmed(), line.mid(equals + 1).trimmed());
        else
            Refuse("is neither a section nor a key with its value");
    }

    std::vector<IniEntry> entries;

private:
    void BeginSection(const QString& name)
    {
        m_section = name;
        ExpectOnce({name.toLower(), {}}, Shown('[' + name + ']'));
        entries.push_back({m_section, {}, {}, m_line});
    }

    void AddEntry(const QString& key, const QString& value)
    {
        if (m_section.isNull())
            Refuse(QString("has \"%1\" in no section").arg(Shown(key)));
        ExpectOnce({m_section.toLower(), key.toLower()}, QString("\"%1\" of [%2]").arg(Shown(key), Shown(m_section)));
        entries.push_back({m_section, key, value, m_line});
    }

    void ExpectOnce(const std::pair<QString, QString>& name, const QString& what)
    {
        if (const auto [known, fresh] = m_lines.try_emplace(name, m_line); !fresh)
            Refuse(QString("has %1 again, which stands on line %2").arg(what).arg(known->second));
    }

    [[noreturn]] void Refuse(const QString& reason) const
    {
        throw Failure{m_file, QString("line %1 ").arg(m_line) + reason};
    }

    const QString& m_file;
    QString m_section;
    int m_line = 0;
    std::map<std::pair<QString, QString>, int> m_lines; ///< of sections, which have no key, and of keys
};

[[noreturn]] void RefuseValue(const IniEntry& entry, const QString& file, const QString& wanted)
{
    Refuse(entry, file, QString("%1 \"%2\" is no %3").arg(entry.key, Shown(entry.value), wanted));
}

} // namespace

std::vector<IniEntry> ReadIni(const QString& file)
{
    static const QRegularExpression kLineEnd("\r\n|\n|\r");
    IniReader reader(file);
    for (const QString& line : TextOf(file).split(kLineEnd))
        reader.ReadLine(line);
    return std::move(reader.entries);
}

double NumberOf(const IniEntry& entry, const QString& file, double least, double most)
{
    bool isNumber = false;
    const double number = entry.value.toDouble(&isNumber);
    if (!isNumber || !(number >= least && number <= most))
        RefuseValue(entry, file, QString("number from %1 to %2").arg(least).arg(most, 0, 'g', kShownDigits));
    return number;
}

int WholeNumberOf(const IniEntry& entry, const QString& file, int least, int most)
{
    bool isNumber = false;
    const int number = entry.value.toInt(&isNumber);
    if (!isNumber || number < least || number > most)
        RefuseValue(entry, file, QString("whole number from %1 to %2").arg(least).arg(most));
    return number;
}

void Refuse(const IniEntry& entry, const QString& file, const QString& reason)
{
    throw Failure{file, QString("line %1: ").arg(entry.line) + reason};
}

QString Shown(const QString& text)
{
    return text.size() > kMostShown ? text.left(kMostShown) + "…" : text;
}

} // namespace shapedocument
