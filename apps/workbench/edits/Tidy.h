/// Locking, hiding, closing, fitting curves and cleaning up; each as one undo command.
#pragma once

class WorkDocument;

/// Locks the selected shapes: they are shown but no longer hit, selected or edited.
bool LockSelection(WorkDocument& document);
bool UnlockAll(WorkDocument& document);
bool HideSelection(WorkDocument& document);
bool ShowAll(WorkDocument& document);
/// Closes the outlines of selected vectors; with fill they are marked as areas, which machines can engrave.
bool CloseSelection(WorkDocument& document, bool fill);
/// Takes the mark of areas from selected vectors.
bool UnfillSelection(WorkDocument& document);
/// Refits selected outlines of fine straight pieces through the curve-fitting plug-in; tells the points saved.
bool FitCurves(WorkDocument& document);
/// Removes shapes whose data cannot be used, from groups too; tells how many.
bool CleanUp(WorkDocument& document);
