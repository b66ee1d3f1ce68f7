/// Documents that commands work on.
#pragma once

#include "document/DocumentFile.h"

/// Reads a document and warns of what it asks for and this machine cannot give. Throws Failure. version, when asked for,
/// receives the version that the stream was read with.
shapedocument::Document OpenDocument(const QString& file, const shapedocument::StreamFormat& format,
                                     int* version = nullptr);

/// Writes a document. Throws Failure.
void SaveDocument(const shapedocument::Target& target, CShapeList& document, const shapedocument::StreamFormat& format);

/// Shapes with all their members.
size_t CountShapes(CShapeList& document);
