/// Which fonts the texts of a drawing are painted with.
#pragma once

#include "svg/DrawingReport.h"

#include <QSet>

namespace shapedocument::drawing {

/// Reports each list of families whose first one is not installed. Generic families ("serif") are whatever stands in.
void AddReplacedFonts(const QSet<QString>& familyLists, DrawingReport& report);

} // namespace shapedocument::drawing
