/// Reads style declarations in attributes and rules.
#pragma once

#include <QString>
#include <QStringList>

namespace shapedocument::drawing {

/// The text with each property opacity above 0 set to 1.
QString WithFullOpacity(const QString& declarations);

/// The value of the property opacity for painting: 1, or unchanged if it is 0.
QString FullOpacity(const QString& value);

/// The ids that url(#id) in text refers to.
QStringList ReferencesIn(const QString& text);

/// All values of a property.
QStringList ValuesOf(const QString& property, const QString& declarations);

/// The lists of font families, from font-family and font.
QStringList FamiliesIn(const QString& declarations);

} // namespace shapedocument::drawing
