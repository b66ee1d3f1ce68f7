/// Collects the intact shapes of a damaged stream, before the damage and behind it.
#pragma once

#include "check/RecordWalk.h"
#include "check/StreamRepair.h"

namespace shapedocument {

/// A shape to keep: whole, as the file has it, or a group or array with its remaining members.
struct SavedShape
{
    uint32_t tag = 0;
    ByteRange record; ///< the tag included; ends with the common fields when the shape is not whole
    bool whole = false;
    bool lost = false;         ///< not whole: a member or cells are gone
    bool lifted = false;       ///< found behind damage that destroyed the group it may have been in
    int64_t shapes = 1;        ///< shapes in a whole one, members included
    int height = 0;            ///< levels of groups in it, itself included
    int64_t membersOffset = 0; ///< offset of the member count; 0: not a group
    int64_t missing = 0;       ///< not whole: members that may still come behind the damage
    ByteRange cells;           ///< not whole: the rows of cells that are left
    int64_t cellsOffset = 0;   ///< offset of the cell count, while the record is walked
    std::vector<Mend> mends;   ///< values replaced in a whole one
    std::vector<std::unique_ptr<SavedShape>> members; ///< of shapes that are not whole
};

class SalvageWalk : public WalkListener
{
public:
    /// Borrows the watch.
    SalvageWalk(Bytes bytes, int version, const ByteWatch& watch) : m_bytes(bytes), m_version(version), m_watch(watch)
    {}

    Salvage Run(int64_t offset);

    void ShapeBegins(int64_t offset, uint32_t tag) override;
    void FieldBegins(const Field& field, int64_t offset) override;
    void ShapeEnds(int64_t end) override;

private:
    int64_t Size() const { return static_cast<int64_t>(m_bytes.size()); }
    int64_t NextCandidate(int64_t at) const;
    int64_t WalkOn(int64_t at);
    int64_t BreakOff(int64_t faultOffset);
    std::unique_ptr<SavedShape> Mended();
    bool MayEndAt(int64_t end) const;
    void LeaveOpen(bool complete);
    int64_t GiveUpCandidate(int64_t at, int64_t faultOffset);
    int64_t KeepCells(SavedShape& array);
    SavedShape* OpenArray() const;
    int64_t CellsEnd(int64_t at);
    bool StackHoldsWhole() const;
    void Accept(std::unique_ptr<SavedShape> shape);
    bool IsGrouped(const SavedShape& shape) const;
    bool BelongsTo(const SavedShape& group, const SavedShape& shape) const;

    Bytes m_bytes;
    int m_version;
    const ByteWatch& m_watch;
    Salvage m_salvage;
    std::vector<std::unique_ptr<SavedShape>> m_stack; ///< shapes being walked, each a member of the one before
    std::vector<SavedShape*> m_open; ///< interrupted groups that may continue, each a member of the one before
    int64_t m_whole = 0;
    int64_t m_fruitlessBytes = 0;
    bool m_atShapeStart = false; ///< the search continues right behind a mended shape, where the next one starts
    bool m_behind = false;       ///< the first fault has been found
};

} // namespace shapedocument
