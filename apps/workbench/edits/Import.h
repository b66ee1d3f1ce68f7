/// Imports files into the drawing: SVG drawings, pictures, texts, other documents.
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
/// Inserts the shapes of each file as one undo command, their corner at the place (mm) if given. Files that cannot be
/// read or are of unknown kinds are reported with the reason, and change nothing.
/// @return number of files imported
int ImportFiles(WorkDocument& document, const QStringList& files, std::optional<QPointF> place = std::nullopt);
