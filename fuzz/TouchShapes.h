/// Uses the shapes of a document as a design application would.
#pragma once

class CShapeList;

namespace fuzz {

/// Queries every shape at any depth, and moves, turns, mirrors, resizes, tidies and saves copies of the first ones.
/// The list itself stays as it was read.
void TouchShapes(CShapeList& list);

/// Aborts if a document that was saved and read does not give the same bytes again.
void CheckSecondGeneration(CShapeList& list);

} // namespace fuzz
