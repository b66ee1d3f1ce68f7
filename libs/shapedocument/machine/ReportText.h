/// A job's report in words and as data.
#pragma once

#include "shapedocument_export.h"
#include <QJsonObject>
#include <QStringList>

namespace shapedocument {

struct JobReport;

/// Lines for a person: what the job is, then a line for each kind of finding with the first few places.
SHAPEDOCUMENT_EXPORT QStringList ReportLines(const JobReport& report);

/// The same for programs. Lengths are mm, areas mm², times seconds; "findings" has an object for each kind, with
/// "count", "complete", "spoils" and "first", whose entries have "x" and "y" (mm, y down), "size" and "text" where
/// there are any.
SHAPEDOCUMENT_EXPORT QJsonObject ReportJson(const JobReport& report);

} // namespace shapedocument
