/// Helpers for edits of shapes.
#pragma once

#include "Home.h"
#include "Refusal.h"

#include <QRectF>

namespace capi {

/// The entry of a list. Throws Refusal (SM_OUT_OF_RANGE).
CShape& EntryAt(CShapeList& list, size_t index);

/// The rectangle around the shape, edits included (mm).
QRectF RectOf(CShape& shape);

/// Throws Refusal where the shape's geometry may not be edited: an array's cells are laid out for its members as they
/// are.
void ExpectEditable(const ShapeUse& use);

/// Updates outlines after an edit: that of a picture, and those of the groups that hold the shape.
void FinishEdit(const ShapeUse& use);

/// Clears the mark of a member of a group.
void LeaveGroup(CShape& member);

/// Throws Refusal where a rectangle (mm) that an edit would give a shape goes beyond kFarthest.
void ExpectWithinReach(const QRectF& rect);

} // namespace capi
