/// Document files: 8 bytes "SHAPEDOC", an int32 version, then the list stream; or the bare list stream.
#pragma once

#include "OutputFile.h"

#include "list/ShapeListOwner.h"

#include <QString>

#include <memory>

class QFile;

using Document = ShapeListOwner;

/// Whether documents carry the file header, and the version with which a stream without one is read.
struct StreamFormat
{
    bool bare = false;
    int version = SHAPE_DOCUMENT_VERSION;
};

Document NewDocument();

/// A file or the standard input ("-"). Throws Failure. version, when asked for, receives the version that the stream was
/// read with.
Document ReadDocument(const QString& file, const StreamFormat& format, int* version = nullptr);

/// What is left in a file that is open for reading. name is for messages.
Document ReadDocument(QFile& file, const QString& name, const StreamFormat& format, int* version = nullptr);

/// What stands before the list stream.
void WriteHeader(QFile& file);

/// Writes the present layout whatever version a bare stream was read with. Throws Failure.
void WriteDocument(const Target& target, CShapeList& document, const StreamFormat& format);
