/// The texts of a job's findings, in the user's language and unit.
#pragma once

#include "machine/JobReport.h"

#include <QString>

/// A heading for a kind of finding.
QString TitleOf(shapedocument::FindingKind kind);
/// The text of a finding, with its size and its place.
QString FindingText(shapedocument::FindingKind kind, const shapedocument::Finding& finding);
/// The translation of the library's words for shapes without lines ("hidden text"); unknown words stay as they are.
QString LeftOutText(const QString& words);
