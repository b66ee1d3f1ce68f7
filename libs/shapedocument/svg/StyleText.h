/// What style declarations, in attributes or in rules, say that concerns reading a drawing.
#pragma once

#include <QString>
#include <QStringList>

namespace shapedocument::drawing {

/// The text with each opacity of a group that lets anything show through made full.
QString WithFullOpacity(const QString& declarations);

/// The value of the property opacity as it is to be painted: 1, or 0 as it was.
QString FullOpacity(const QString& value);

/// The ids that url(#id) in text refers to.
QStringList ReferencesIn(const QString& text);

/// The values that property is given.
QStringList ValuesOf(const QString& property, const QString& declarations);

/// The lists of font families, from font-family and font.
QStringList FamiliesIn(const QString& declarations);

} // namespace shapedocument::drawing
