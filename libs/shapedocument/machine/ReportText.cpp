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

/// What a finding's size measures, behind its number.
const char* UnitOf(FindingKind kind)
{
    return kind == FindingKind::CoarsePicture ? "pixels per mm" : "mm";
}

QString Told(FindingKind kind, const Finding& finding)
{
    QString told = finding.text;
    if (finding.place)
        told += QString("%1, %2").arg(Number(finding.place->x(), 2), Number(finding.place->y(), 2));
    if (finding.size > 0)
        told += QString(" (%1 %2)").arg(Number(finding.size, 3), QLatin1String(UnitOf(kind)));
    return told.trimmed();
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
    if (!places.isEmpty())
        line += ": " + places.join("; ") + (findings.first.size() > kPlacesInLine ? "; …" : "");
    return line;
}

QJsonObject FindingJson(const Finding& finding)
{
    QJsonObject json;
    if (finding.place) {
        json["x"] = finding.place->x();
        json["y"] = finding.place->y();
    }
    if (finding.size > 0)
        json["size"] = finding.size;
    if (!finding.text.isEmpty())
        json["text"] = finding.text;
    return json;
}

QJsonObject FindingsJson(FindingKind kind, const Findings& findings)
{
    QJsonArray first;
    for (const Finding& finding : findings.first)
        first.append(FindingJson(finding));
    return {{"count", static_cast<qint64>(findings.count)},
            {"complete", findings.isComplete},
            {"spoils", WordsOf(kind).spoils},
            {"first", first}};
}

} // namespace

QStringList ReportLines(const JobReport& report)
{
    QStringList lines{
        QString("%1 %2, %3 mm to cut, %4 mm of travel")
            .arg(report.paths)
            .arg(report.paths == 1 ? "path" : "paths", Number(report.cutLength, 1), Number(report.travelLength, 1))};
    if (report.engravedArea > 0)
        lines << QString("%1 mm² to engrave").arg(Number(report.engravedArea, 1));
    lines << QString("about %1").arg(Duration(report.seconds));
    for (size_t i = 0; i < report.findings.size(); ++i)
        if (report.findings[i].count > 0 || !report.findings[i].isComplete)
            lines << FindingLine(static_cast<FindingKind>(i), report.findings[i]);
    return lines;
}

QJsonObject ReportJson(const JobReport& report)
{
    QJsonObject findings;
    for (size_t i = 0; i < report.findings.size(); ++i) {
        const auto kind = static_cast<FindingKind>(i);
        findings[WordsOf(kind).name] = FindingsJson(kind, report.findings[i]);
    }
    return {{"paths", static_cast<qint64>(report.paths)},
            {"cutLength", report.cutLength},
            {"travelLength", report.travelLength},
            {"engravedArea", report.engravedArea},
            {"seconds", report.seconds},
            {"spoils", report.Spoils()},
            {"findings", findings}};
}

} // namespace shapedocument
