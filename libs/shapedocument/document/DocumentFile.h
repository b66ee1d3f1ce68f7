/// Document files: a header (FileHeader.h), then the list stream; or the bare list stream.
#pragma once

#include "document/OutputFile.h"
#include "shapedocument_export.h"

#include "list/ShapeListOwner.h"

#include <QString>
#include <QStringList>

class QFile;

namespace shapedocument {

/// A list that frees its shapes with itself.
using Document = ShapeListOwner;

/// Whether documents carry the file header, and the version with which a stream without one is read.
struct StreamFormat
{
    bool bare = false;                    ///< no header
    int version = SHAPE_DOCUMENT_VERSION; ///< of a stream without one
};

/// An empty document.
SHAPEDOCUMENT_EXPORT Document NewDocument();

/// A document as it was read.
struct OpenedDocument
{
    Document shapes;      ///< what it holds
    int version = 0;      ///< that the stream was read with
    QStringList warnings; ///< a line each: fonts that are replaced, letters that cannot be set as they should be
};

/// Reads a regular file or the standard input ("-"). Throws Failure.
SHAPEDOCUMENT_EXPORT OpenedDocument ReadDocument(const QString& file, const StreamFormat& format);

/// Reads what is left in a file that is open for reading. name is for messages. Throws Failure.
SHAPEDOCUMENT_EXPORT OpenedDocument ReadDocument(QFile& file, const QString& name, const StreamFormat& format);

/// Writes the present layout whatever version a bare stream was read with. Throws Failure.
SHAPEDOCUMENT_EXPORT void WriteDocument(const Target& target, CShapeList& document, const StreamFormat& format);

} // namespace shapedocument
