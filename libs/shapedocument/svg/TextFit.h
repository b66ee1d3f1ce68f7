/// Painted outlines of texts as text shapes.
#pragma once

#include <QPainterPath>
#include <QRgb>
#include <QStringList>

#include <memory>
#include <vector>

class CShapeText;

namespace shapedocument::drawing {

using FittedTexts = std::vector<std::unique_ptr<CShapeText>>;

/// The text as painted: the outline (mm, closed) agrees within 0.05 mm with its own. One shape where that does, else
/// one for each word where all of these do. The font is one of families, upright or italic, bold or not; size, angle,
/// place and the spacing of its letters follow from the outline. None where no such text does: text shapes lay letters
/// out by their ink and cannot follow every renderer.
FittedTexts FitTexts(const QString& words, const QStringList& families, const QPainterPath& outline, QRgb color);

} // namespace shapedocument::drawing
