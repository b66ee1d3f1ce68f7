/// Collects the intact shapes of a damaged stream as it goes over them: before the damage and behind it.
#pragma once

#include "StreamRepair.h"

class SalvageWalk : public WalkListener
{
public:
    SalvageWalk(Bytes bytes, int version) : m_bytes(bytes), m_version(version) {}

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
    int64_t InVain(int64_t at, int64_t faultOffset);
    int64_t KeepCells(SavedShape& array);
    SavedShape* OpenArray() const;
    int64_t CellsEnd(int64_t at);
    bool StackHoldsWhole() const;
    void Accept(std::unique_ptr<SavedShape> shape);
    bool IsGrouped(const SavedShape& shape) const;
    bool BelongsTo(const SavedShape& group, const SavedShape& shape) const;

    Bytes m_bytes;
    int m_version;
    Salvage m_salvage;
    std::vector<std::unique_ptr<SavedShape>> m_stack; ///< shapes being walked, each a member of the one before
    std::vector<SavedShape*> m_open; ///< interrupted groups that may go on, each a member of the one before
    int64_t m_whole = 0;
    int64_t m_vain = 0;
    bool m_inStep = false; ///< a shape has been mended: the next begins right behind it
    bool m_behind = false; ///< the first fault has been met
};
