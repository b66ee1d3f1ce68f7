/// Locking, hiding, closing, fitting curves and cleaning up; each as one undo command.
#pragma once

class CShapeVector;
class WorkDocument;

/// Locks the selected shapes: they are shown but no longer hit, selected or edited.
bool LockSelection(WorkDocument& document);
bool UnlockAll(WorkDocument& document);
bool HideSelection(WorkDocument& document);
bool ShowAll(WorkDocument& document);
/// Closes the outlines of selected vectors; with fill they are marked as areas, which machines can engrave.
bool CloseSelection(WorkDocument& document, bool fill);
/// Marks the outline as an area, whether its ends meet or not; its points are those of its curves. @return false where
/// it is one already or has fewer than three points
bool FillOutline(CShapeVector& vector);
/// Takes the mark of areas from selected vectors.
bool UnfillSelection(WorkDocument& document);
/// Refits selected outlines of fine straight pieces through the curve-fitting plug-in; tells the points saved.
bool FitCurves(WorkDocument& document);
/// Removes shapes whose data cannot be used, from groups too; tells how many.
bool CleanUp(WorkDocument& document);
