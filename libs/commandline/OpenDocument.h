/// Reading and writing the documents of commands.
#pragma once

#include "document/DocumentFile.h"

/// Reads a document and warns of missing fonts and letters. Throws Failure. version, if not null, receives the version
/// of the stream.
shapedocument::Document OpenDocument(const QString& file, const shapedocument::StreamFormat& format,
                                     int* version = nullptr);

/// Writes a document. Throws Failure.
void SaveDocument(const shapedocument::Target& target, CShapeList& document, const shapedocument::StreamFormat& format);
