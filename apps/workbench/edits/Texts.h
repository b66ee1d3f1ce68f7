/// Texts as shapes.
#pragma once

#include "document/OwnedShape.h"

#include <QPointF>
#include <QString>

struct SText;

constexpr double kNewTextSize = 10; ///< mm, of the font of new texts

/// Puts as much of the text into the parameters as their buffer takes, whole letters only. @return whether all fitted
bool FillText(SText& parameters, const QString& text);

/// A text whose upper left corner is there (mm).
OwnedShape NewText(const QString& text, QPointF corner, unsigned int color);
