/// Crops and inverts pictures; each edit is one undo command.
#pragma once

#include <QMarginsF>

class CShape;
class CShapeImage;
class WorkDocument;

/// The shape as a picture; null for all others, code images too.
CShapeImage* PictureOf(CShape* shape);

// The functions below return false when no selected picture can be changed; the reason is shown.

/// Cuts these widths (mm) off the sides of each selected picture.
bool CropPictures(WorkDocument& document, const QMarginsF& sides);
/// Inverts the greys of the selected pictures.
bool InvertPictures(WorkDocument& document);
