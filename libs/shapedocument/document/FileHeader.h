/// The header of document files, in front of the list stream: the 8 letters "SHAPEDOC" and the version of the stream,
/// an int32, little-endian.
///
/// To open a document: ReadHeader, then CShapeList::Read with the version that it returns. To save one: WriteHeader,
/// then CShapeList::Save. Hosts that keep the version elsewhere may leave the header out (a bare stream).
#pragma once

#include "check/StreamCheck.h"
#include "shapedocument_export.h"

#include "record/DocumentVersion.h"

#include <optional>

class QIODevice;
class QString;

namespace shapedocument {

/// @return the version in the header, not checked; nothing if the bytes do not begin with a whole header
/// Cost: O(1).
SHAPEDOCUMENT_EXPORT std::optional<int> RecogniseHeader(Bytes file);

/// Reads the header at the device's position and leaves the device behind it. Cost: O(1).
/// @param device open for reading
/// @param name of the file, for messages
/// @return the version, 0 to SHAPE_DOCUMENT_VERSION
/// @throw Failure if there is no header, only a part of one, or an unknown version
SHAPEDOCUMENT_EXPORT int ReadHeader(QIODevice& device, const QString& name);

/// Writes the header of the present version, which CShapeList::Save writes. Cost: O(1).
/// @return whether all of it was written
SHAPEDOCUMENT_EXPORT bool WriteHeader(QIODevice& device);

} // namespace shapedocument
