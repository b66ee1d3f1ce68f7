/// A job's report as lines of text and as JSON.
#pragma once

#include "shapedocument_export.h"
#include <QJsonObject>
#include <QStringList>

namespace shapedocument {

enum class FindingKind;
struct Findings;
struct JobReport;

/// Lines for a person: the job's lengths and time, then a line for each kind of finding with the first few places.
/// Cost: O(findings listed).
SHAPEDOCUMENT_EXPORT QStringList ReportLines(const JobReport& report);

/// The line of one kind of finding. Cost: O(1).
SHAPEDOCUMENT_EXPORT QString FindingLine(FindingKind kind, const Findings& findings);

/// The report for programs. Lengths are mm, areas mm², times seconds; "findings" has an object for each kind, with
/// "count", "complete", "spoils", "total" (of the sizes, for doubled lines), and "first", whose entries have "x" and
/// "y" (mm, y down), "size" and "text" where there are any. Cost: O(findings listed).
SHAPEDOCUMENT_EXPORT QJsonObject ReportJson(const JobReport& report);

} // namespace shapedocument
