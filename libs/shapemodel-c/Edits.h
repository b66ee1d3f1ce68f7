/// What edits of shapes have in common.
#pragma once

#include "Home.h"
#include "Refusal.h"

#include <QRectF>

namespace capi {

/// The entry of a list. Throws Refusal (SM_OUT_OF_RANGE).
CShape& EntryAt(CShapeList& list, size_t index);

/// Around the shape, its edits included.
QRectF RectOf(CShape& shape);

/// Throws Refusal where the shape's geometry may not be edited: an array's cells are laid out for its members as they
/// are.
void ExpectEditable(const ShapeUse& use);

/// Brings outlines up to date with an edit: that of a picture, and those of the groups that hold the shape.
void FinishEdit(const ShapeUse& use);

/// The shape is no member of a group any more.
void LeaveGroup(CShape& member);

/// Throws Refusal where the rectangle, which an edit would give the shape, goes out of reach.
void ExpectWithinReach(const QRectF& rect);

} // namespace capi
