/// Saves the intact shapes of a damaged list stream: everything before the damage, and what can be found behind it.
#pragma once

#include "RecordWalk.h"

#include <QByteArray>

#include <memory>
#include <vector>

/// Offsets in the file; end is behind the last byte.
struct ByteRange
{
    int64_t begin = 0;
    int64_t end = 0;

    int64_t Size() const { return end - begin; }
};

/// A shape that is kept: as it stands in the file, or a group or array with those of its members that are left.
struct SavedShape
{
    uint32_t tag = 0;
    ByteRange record; ///< the tag included; ends with the common fields when the shape is not whole
    bool whole = false;
    bool lost = false;                                ///< not whole: a member or cells are gone
    bool lifted = false;                              ///< found behind damage that took the group it may have been in
    int64_t shapes = 1;                               ///< of a whole one: with its members
    int height = 0;                                   ///< levels of groups in it, itself included
    int64_t membersOffset = 0;                        ///< of the member count; 0: has none
    int64_t missing = 0;                              ///< not whole: members that may still come behind the damage
    ByteRange cells;                                  ///< not whole: the rows that are left
    int64_t cellsOffset = 0;                          ///< of the cell count, while the record is walked
    std::vector<Mend> mends;                          ///< of a whole one
    std::vector<std::unique_ptr<SavedShape>> members; ///< of shapes that are not whole
};

struct Salvage
{
    std::vector<std::unique_ptr<SavedShape>> shapes;
    int64_t keptBefore = 0;            ///< shapes that end before the first fault, members included
    int64_t recovered = 0;             ///< shapes kept beyond those
    int64_t openGroups = 0;            ///< groups and arrays among the recovered that have lost members or cells
    std::vector<int64_t> mended;       ///< offsets of values that could not be and were replaced by harmless ones
    std::vector<int64_t> mendedShapes; ///< where these shapes stand among the saved, from 1, members counted
    std::vector<ByteRange> skipped;
    bool gaveUp = false; ///< the search would have taken too long; the rest was skipped

    bool Empty() const { return shapes.empty(); }
    int64_t Count() const { return keptBefore + recovered; }
    int64_t SkippedBytes() const;
};

/// The shapes that can be saved from the stream that begins at offset and goes to the end of the bytes.
///
/// A shape with a few values that cannot be is kept with harmless ones in their place (a point's are those of the point
/// before) when what follows shows that its record ends where it should.
/// Behind damage a record counts as found when its tag is known, its values are likely and it draws something; records
/// that follow one that was found need only be possible. What is found behind damage in a group goes on as its member
/// while the group's count leaves room and it is marked as grouped, or none of the group's members is; an array without
/// cells becomes a
/// group. Takes time in proportion to the bytes.
Salvage SalvageStream(Bytes bytes, int64_t offset, int version);

/// The list stream of the saved shapes, in the version that they were walked with.
QByteArray SavedStream(Bytes bytes, const Salvage& salvage);
