/// Copying shapes through the desktop's clipboard, as whole documents.
#pragma once

class WorkDocument;

/// Puts copies of the selected shapes on the clipboard.
bool CopySelection(WorkDocument& document);
/// The same, and removes them.
bool CutSelection(WorkDocument& document);
/// Inserts what the clipboard holds, a little aside.
bool Paste(WorkDocument& document);
/// Inserts copies of the selected shapes, a little aside.
bool DuplicateSelection(WorkDocument& document);
