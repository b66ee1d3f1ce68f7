/// Which fonts the texts of a drawing are painted with.
#pragma once

#include "svg/DrawingReport.h"

#include <QSet>

namespace shapedocument::drawing {

/// The installed families that texts are painted with which ask for these lists of families; an empty list: for none.
QStringList FamiliesInUse(const QStringList& familyLists);

/// Reports each list of families whose first one is not installed. Generic families ("serif") are whatever stands in.
void AddReplacedFonts(const QSet<QString>& familyLists, DrawingReport& report);

} // namespace shapedocument::drawing
