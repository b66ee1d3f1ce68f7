/// Outlines edited point by point.
#pragma once

class CShape;
class QPainterPath;
class QString;
class WorkDocument;

/// The outline's points become those of the path (mm); an area stays one. One undo command. @return false where the
/// shape is no vector of the drawing, or has this path already
bool ReplaceOutline(WorkDocument& document, const QString& name, CShape* shape, const QPainterPath& path);
