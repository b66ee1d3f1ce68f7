/// Writes what can be saved of a damaged document as a new one.
#pragma once

#include "check/StreamRepair.h"
#include "document/OutputFile.h"
#include "document/WorkProgress.h"
#include "shapedocument_export.h"

#include <QByteArray>
#include <QStringList>

#include <optional>

namespace shapedocument {

/// A watch over bytes that reports to progress, which is borrowed, under that step; empty if progress is empty. It
/// throws Stopped. Cost: O(1).
SHAPEDOCUMENT_EXPORT ByteWatch WatchOf(const WorkProgress& progress, WorkStep step, Bytes bytes);

/// What was found in damaged bytes. Refers to these bytes, which the caller owns.
struct FoundShapes
{
    int version = 0;            ///< with which the stream is read
    std::optional<Fault> fault; ///< the first one
    Salvage salvage;            ///< what can be saved
};

/// Searches the bytes of a file; nothing where there is a fault and nothing can be saved. version: as RepairVersion
/// takes it. Throws Stopped where progress returns false, as the next two do. Cost: as RepairVersion and SalvageStream.
SHAPEDOCUMENT_EXPORT std::optional<FoundShapes> FindShapes(Bytes bytes, std::optional<int> version,
                                                           const WorkProgress& progress = {});

/// What was found and what is lost, one line each: the version and the first fault; the shapes kept; groups that have
/// lost members, replaced values, where there are any; the bytes left out. At most ten places of each kind are named.
/// Cost: O(replaced values + gaps).
SHAPEDOCUMENT_EXPORT QStringList RepairLines(const FoundShapes& found);

/// Writes the found shapes as a document of the present version, in which CheckStream finds no fault. Throws Failure.
/// Returns warnings, as ReadDocument does. Cost: O(bytes), and one wait for the disk.
SHAPEDOCUMENT_EXPORT QStringList WriteRepaired(const Target& target, Bytes bytes, const FoundShapes& found,
                                               const WorkProgress& progress = {});

/// The bytes that WriteRepaired writes. name is for messages. Throws Failure. Cost: O(bytes).
SHAPEDOCUMENT_EXPORT QByteArray RepairedBytes(Bytes bytes, const FoundShapes& found, const QString& name,
                                              QStringList& warnings, const WorkProgress& progress = {});

} // namespace shapedocument
