/// Cutting and inverting pictures; each as one undo command.
#pragma once

#include <QMarginsF>

class CShape;
class CShapeImage;
class WorkDocument;

/// The shape as a picture; null for all others, code images too.
CShapeImage* PictureOf(CShape* shape);

// False when no selected picture can be changed so; the reason is told.

/// Cuts so much off the sides of each selected picture (mm).
bool CropPictures(WorkDocument& document, const QMarginsF& sides);
/// Light becomes dark. The pictures stay where they lie.
bool InvertPictures(WorkDocument& document);
