/// Saves the intact shapes of a damaged list stream: everything before the damage, and what can be found behind it.
#pragma once

#include "check/StreamCheck.h"

#include <QByteArray>

#include <memory>
#include <vector>

namespace shapedocument {

/// A part of a file.
struct ByteRange
{
    int64_t begin = 0; ///< offset of its first byte
    int64_t end = 0;   ///< offset behind its last byte

    /// Bytes.
    int64_t Size() const { return end - begin; }
};

struct SavedShape;

/// The result. Refers to the bytes that were searched.
struct SHAPEDOCUMENT_EXPORT Salvage
{
    Salvage();
    Salvage(Salvage&&) noexcept; ///< moves everything
    ~Salvage();

    std::vector<std::unique_ptr<SavedShape>> shapes; ///< what SavedStream writes, in this order
    int64_t keptBefore = 0;                          ///< shapes that end before the first fault, members included
    int64_t recovered = 0;                           ///< shapes kept behind it
    int64_t openGroups = 0;            ///< groups and arrays among the recovered ones that have lost members or cells
    std::vector<int64_t> mended;       ///< offsets of impossible values, which were replaced by harmless ones
    std::vector<int64_t> mendedShapes; ///< numbers of these shapes among the saved ones, from 1, members counted
    std::vector<ByteRange> skipped;    ///< bytes that belong to no kept shape
    bool gaveUp = false;               ///< the search ended at its limit; the rest was skipped

    /// Whether nothing can be saved.
    bool Empty() const { return shapes.empty(); }
    /// Shapes that are saved, members included.
    int64_t Count() const { return keptBefore + recovered; }
    /// Bytes of all skipped parts. Cost: O(parts).
    int64_t SkippedBytes() const;
};

/// The shapes that can be saved from the stream that begins at offset and goes to the end of the bytes.
///
/// A shape with a few impossible values is kept with harmless ones in their place (for a point, those of the point
/// before) when the bytes behind show that its record ends where it should. Behind damage a record counts as found if
/// its tag is known, its values are likely and it draws something; records directly behind a found one need only be
/// valid. Behind damage in a group, found shapes become members of that group up to its count, if they are marked as
/// grouped or none of its members is. An array without cells becomes a group. Linear in the bytes.
SHAPEDOCUMENT_EXPORT Salvage SalvageStream(Bytes bytes, int64_t offset, int version, const ByteWatch& watch = {});

/// The list stream of the saved shapes, in the version that they were walked with. Cost: O(bytes).
SHAPEDOCUMENT_EXPORT QByteArray SavedStream(Bytes bytes, const Salvage& salvage);

/// The version to repair a stream with, the first that applies: the one asked for (negative: none); the header's if the
/// stream is clean in it; the latest in which it is clean; the header's; the one that saves the most bytes.
/// Cost: O(bytes) for each layout that is tried.
SHAPEDOCUMENT_EXPORT int RepairVersion(Bytes bytes, const StreamStart& start, int asked, const ByteWatch& watch = {});

} // namespace shapedocument
