/// Finds the fonts with which a drawing's texts are painted.
#pragma once

#include "svg/DrawingReport.h"

#include <QSet>

namespace shapedocument::drawing {

/// The installed families with which texts that ask for these lists are painted; an empty list stands for texts that
/// ask for no family.
QStringList FamiliesInUse(const QStringList& familyLists);

/// Reports each list of families whose first one is not installed. Generic families ("serif") always count as
/// installed.
void AddReplacedFonts(const QSet<QString>& familyLists, DrawingReport& report);

} // namespace shapedocument::drawing
