#include "machine/ReportText.h"

#include "machine/JobReport.h"

#include <QJsonArray>

#include <cmath>

namespace shapedocument {

namespace {

constexpr size_t kPlacesInLine = 3;

QString Number(double value, int decimals)
{
    QString text = QString::number(value, 'f', decimals);
    while (text.contains(u'.') && (text.endsWith(u'0') || text.endsWith(u'.')))
        text.chop(1);
    return text;
}

/// "1 h 02 min", "3 min 20 s", "12 s".
QString Duration(double seconds)
{
    const auto whole = static_cast<qint64>(std::ceil(seconds));
    if (whole >= 3600)
        return QString("%1 h %2 min").arg(whole / 3600).arg(whole % 3600 / 60, 2, 10, QChar(u'0'));
    if (whole >= 60)
        return QString("%1 min %2 s").arg(whole / 60).arg(whole % 60, 2, 10, QChar(u'0'));
    return QString("%1 s").arg(whole);
}

/// The unit of a finding's size.
const char* UnitOf(FindingKind kind)
{
    return kind == FindingKind::CoarsePicture ? "pixels per mm" : "mm";
}

QString Told(FindingKind kind, const Finding& finding)
{
    QString told = QString("%1, %2").arg(Number(finding.place.x(), 2), Number(finding.place.y(), 2));
    if (finding.size > 0)
        told += QString(" (%1 %2)").arg(Number(finding.size, 3), QLatin1String(UnitOf(kind)));
    return finding.text.isEmpty() ? told : told + ": " + finding.text;
}

/// The lines on length and time, with the share of engraving where there is any.
QStringList WorkLines(const JobReport& report)
{
    const GcodeTime& time = report.time;
    QStringList lines{
        QString("%1 %2, %3 mm to cut, %4 mm of travel")
            .arg(report.paths)
            .arg(report.paths == 1 ? "path" : "paths", Number(time.cutLength, 1), Number(time.travelLength, 1))};
    if (time.engravedRows > 0)
        lines << QString("%1 mm² to engrave in %2 rows, %3 mm of the travel")
                     .arg(Number(time.engravedArea, 1))
                     .arg(time.engravedRows)
                     .arg(Number(time.engraveTravelLength, 1));
    return lines;
}

QJsonObject FindingJson(const Finding& finding)
{
    QJsonObject json{{"x", finding.place.x()}, {"y", finding.place.y()}};
    if (finding.size > 0)
        json["size"] = finding.size;
    if (!finding.text.isEmpty())
        json["text"] = finding.text;
    return json;
}

QJsonObject FindingsJson(const Findings& findings, bool spoils)
{
    QJsonArray first;
    for (const Finding& finding : findings.first)
        first.append(FindingJson(finding));
    QJsonObject json{{"count", static_cast<qint64>(findings.count)},
                     {"complete", findings.isComplete},
                     {"spoils", spoils},
                     {"first", first}};
    if (findings.total)
        json["total"] = *findings.total;
    return json;
}

} // namespace

QStringList ReportLines(const JobReport& report)
{
    QStringList lines = WorkLines(report);
    lines << QString("about %1").arg(Duration(report.time.seconds));
    for (size_t i = 0; i < report.findings.size(); ++i)
        if (report.findings[i].count > 0 || !report.findings[i].isComplete)
            lines << FindingLine(static_cast<FindingKind>(i), report.findings[i]);
    return lines;
}

QString FindingLine(FindingKind kind, const Findings& findings)
{
    const FindingWords& words = WordsOf(kind);
    QStringList places;
    for (size_t i = 0; i < std::min(findings.first.size(), kPlacesInLine); ++i)
        places << Told(kind, findings.first[i]);
    QString line =
        QString("%1 %2").arg(findings.count).arg(QLatin1String(findings.count == 1 ? words.one : words.many));
    if (!findings.isComplete)
        line.prepend("at least ");
    if (findings.total)
        line += QString(" of %1 %2").arg(Number(*findings.total, 1), QLatin1String(UnitOf(kind)));
    if (!places.isEmpty())
        line += ": " + places.join("; ") + (findings.first.size() > kPlacesInLine ? "; …" : "");
    return line;
}

QJsonObject ReportJson(const JobReport& report)
{
    QJsonObject findings;
    for (size_t i = 0; i < report.findings.size(); ++i) {
        const auto kind = static_cast<FindingKind>(i);
        findings[WordsOf(kind).name] = FindingsJson(report.findings[i], report.Spoils(kind));
    }
    return {{"paths", static_cast<qint64>(report.paths)},
            {"cutLength", report.time.cutLength},
            {"travelLength", report.time.travelLength},
            {"engraveTravelLength", report.time.engraveTravelLength},
            {"engravedArea", report.time.engravedArea},
            {"engravedRows", static_cast<qint64>(report.time.engravedRows)},
            {"seconds", report.time.seconds},
            {"spoils", report.Spoils()},
            {"findings", findings}};
}

} // namespace shapedocument
