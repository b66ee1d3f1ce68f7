/// Bringing files into the drawing: SVG drawings, pictures, texts, other documents.
#pragma once

#include <QPointF>
#include <QString>
#include <QStringList>

#include <optional>

class WorkDocument;

/// Endings of the files that can be imported, for file dialogs ("*.svg *.png …").
QString ImportFilter();
/// Whether the file's ending is that of a document.
bool IsDocumentFile(const QString& file);
/// Whether the file's ending is that of a drawing, picture or text.
bool IsForeignFile(const QString& file);
/// Inserts the shapes of each file as one undo command, the drawing's corner at the place (mm) when one is given. Files
/// that cannot be read, and those of unknown kinds, are named with the reason, and leave the drawing as it is.
/// @return how many files came in
int ImportFiles(WorkDocument& document, const QStringList& files, std::optional<QPointF> place = std::nullopt);
