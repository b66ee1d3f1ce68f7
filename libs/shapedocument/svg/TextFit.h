/// Painted outlines of texts as text shapes.
#pragma once

#include <QPainterPath>
#include <QRgb>
#include <QStringList>

#include <memory>

class CShapeText;

namespace shapedocument::drawing {

/// A text that turns out as painted: outline (mm, closed) agrees within 0.05 mm with its own. The font is one of
/// families, upright or italic, bold or not; size, angle, place and the spacing of its letters follow from the outline.
/// Null where no such text does: text shapes lay letters out by their ink and cannot follow every renderer.
std::unique_ptr<CShapeText> FittedText(const QString& words, const QStringList& families, const QPainterPath& outline,
                                       QRgb color);

} // namespace shapedocument::drawing
