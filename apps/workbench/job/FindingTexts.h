/// The words in which a job's findings are told, in the user's language and unit.
#pragma once

#include "machine/JobReport.h"

#include <QString>

/// A heading for a kind of finding.
QString TitleOf(shapedocument::FindingKind kind);
/// A finding with its number, and where it is.
QString TextOf(shapedocument::FindingKind kind, const shapedocument::Finding& finding);
/// What the library calls shapes that have no lines ("hidden text"); as it is where the library has a word that is not
/// known here.
QString LeftOutText(const QString& words);
