/// Locks, hides, closes, fits and cleans up shapes; each edit is one undo command.
#pragma once

class CShapeVector;
class WorkDocument;

/// Locks the selected shapes: they are shown but cannot be hit, selected or edited.
bool LockSelection(WorkDocument& document);
bool UnlockAll(WorkDocument& document);
bool HideSelection(WorkDocument& document);
bool ShowAll(WorkDocument& document);
/// Closes the outlines of selected vectors; with fill they are marked as areas, which machines can engrave.
bool CloseSelection(WorkDocument& document, bool fill);
/// Marks the outline as filled, whether its ends meet or not. @return false where it is filled already or its painter
/// path has fewer than three elements
bool FillOutline(CShapeVector& vector);
/// Removes the fill marker from selected vectors.
bool UnfillSelection(WorkDocument& document);
/// Refits selected outlines of fine straight pieces through the curve-fitting plug-in; shows the number of points
/// saved.
bool FitCurves(WorkDocument& document);
/// Removes shapes whose data cannot be used, also from groups; shows their number.
bool CleanUp(WorkDocument& document);
