/// Copies shapes through the desktop's clipboard, as whole documents.
#pragma once

class WorkDocument;

/// Puts copies of the selected shapes on the clipboard.
bool CopySelection(WorkDocument& document);
/// Copies the selected shapes and removes them.
bool CutSelection(WorkDocument& document);
/// Inserts the shapes on the clipboard, slightly shifted.
bool Paste(WorkDocument& document);
/// Inserts copies of the selected shapes, slightly shifted.
bool DuplicateSelection(WorkDocument& document);
