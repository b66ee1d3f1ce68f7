/// What damage has left of a document, as a new one.
#pragma once

#include "check/StreamRepair.h"
#include "document/OutputFile.h"
#include "shapedocument_export.h"

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace shapedocument {

/// What was found in damaged bytes, to which it refers.
struct FoundShapes
{
    int version = 0;            ///< that the stream is read with
    std::optional<Fault> fault; ///< the first
    Salvage salvage;            ///< what can be saved
};

/// Searches the bytes of a file; nothing where there is a fault and nothing can be saved. version: as RepairVersion
/// takes it. Cost: as RepairVersion and SalvageStream.
SHAPEDOCUMENT_EXPORT std::optional<FoundShapes> FindShapes(Bytes bytes, std::optional<int> version);

/// What was found and what is lost, one line each: the version and the first fault; the shapes kept; groups that have
/// lost members, replaced values, where there are any; the bytes left out. At most ten places of each kind are named.
SHAPEDOCUMENT_EXPORT QStringList RepairLines(const FoundShapes& found);

/// Writes them as a document of the present version, in which CheckStream finds no fault. Throws Failure.
/// Answers warnings, as ReadDocument does. Cost: O(bytes), and one wait for the disk.
SHAPEDOCUMENT_EXPORT QStringList WriteRepaired(const Target& target, Bytes bytes, const FoundShapes& found);

/// The bytes of that document. name is for messages. Throws Failure. Cost: O(bytes).
SHAPEDOCUMENT_EXPORT QByteArray RepairedBytes(Bytes bytes, const FoundShapes& found, const QString& name,
                                              QStringList& warnings);

} // namespace shapedocument
