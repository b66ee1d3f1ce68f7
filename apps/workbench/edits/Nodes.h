/// Replaces outlines that are edited point by point.
#pragma once

class CShape;
class QPainterPath;
class QString;
class WorkDocument;

/// Replaces the outline by the path (mm), as one undo command; a filled outline stays filled. @return false where the
/// shape is not a vector of the drawing, or has this path already
bool ReplaceOutline(WorkDocument& document, const QString& name, CShape* shape, const QPainterPath& path);
