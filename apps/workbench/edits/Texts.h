/// Texts as shapes.
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

/// Puts as much of the text into the parameters as their buffer takes, whole letters only. @return whether all fitted
bool FillText(SText& parameters, const QString& text);

/// Names the font's family. @return whether all of the name fitted
bool NameFont(SText& parameters, const QString& family);

/// The shape as a text; null for all others.
CShapeText* TextOf(CShape* shape);

/// Changes the parameters of each selected text, which keeps its centre, as one undo command. @return whether there was
/// a text
bool ChangeTexts(WorkDocument& document, const QString& name, const std::function<void(SText&)>& edit);
/// Gives the selected texts other words. What is longer than a text holds is cut off, and told.
bool ChangeWords(WorkDocument& document, const QString& words);

/// A text whose upper left corner is there (mm).
ShapeOwner NewText(const QString& text, QPointF corner, unsigned int color);
