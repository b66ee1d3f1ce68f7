/// Makes and changes text shapes.
#pragma once

#include "list/ShapeOwner.h"

#include <QPointF>
#include <QString>

#include <functional>

class CShape;
class CShapeText;
class WorkDocument;
struct SText;

constexpr double kNewTextSize = 10; ///< mm, of the font of new texts

/// Copies as many whole characters of the text into the parameters as fit their buffer. @return whether all fitted
bool FillText(SText& parameters, const QString& text);

/// Sets the font's family. @return whether all of the name fitted
bool NameFont(SText& parameters, const QString& family);

/// The shape as a text; null for all others.
CShapeText* TextOf(CShape* shape);

/// Changes the parameters of each selected text, which keeps its centre, as one undo command. @return whether there was
/// a text
bool ChangeTexts(WorkDocument& document, const QString& name, const std::function<void(SText&)>& edit);
/// Sets the words of the selected texts. Text beyond the limit is cut off, which is shown to the user.
bool ChangeWords(WorkDocument& document, const QString& words);

/// A black text with its upper left corner at corner (mm).
ShapeOwner NewText(const QString& text, QPointF corner);
