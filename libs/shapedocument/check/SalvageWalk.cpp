#include "check/SalvageWalk.h"

#include "check/CandidateSearch.h"

#include "shape/ShapeTypes.h"

#include <algorithm>
#include <utility>

namespace shapedocument {

using shapes::kCellRow;
using shapes::kCellRowBytes;
using shapes::kCountBytes;
using shapes::kDeepestGroup;
using shapes::kTagBytes;

namespace {

// Budget of bytes walked without result before the search ends: enough for damaged documents, a bound for malicious
// ones.
constexpr int64_t kMostFruitlessBytes = 4 * 1024 * 1024;
constexpr int64_t kFruitlessShare = 2;
constexpr int64_t kBytesOfAttempt = 64;    ///< counted for every attempt, also for one that fails at once
constexpr int64_t kBytesBetween = 1 << 16; ///< of those looked at, between two looks at the watch

using Owned = std::unique_ptr<SavedShape>;

} // namespace

void SalvageWalk::ShapeBegins(int64_t offset, uint32_t tag)
{
    m_stack.push_back(std::make_unique<SavedShape>());
    m_stack.back()->tag = tag;
    m_stack.back()->record.begin = offset;
}

void SalvageWalk::FieldBegins(const Field& field, int64_t offset)
{
    SavedShape& shape = *m_stack.back();
    if (field.type == Content::Members) {
        shape.membersOffset = offset;
        shape.height = 1;
    } else if (field.rows == &kCellRow) {
        shape.cellsOffset = offset;
    }
}

void SalvageWalk::ShapeEnds(int64_t end)
{
    Owned shape = std::move(m_stack.back());
    m_stack.pop_back();
    shape->record.end = end;
    shape->whole = true;
    for (const Owned& member : shape->members)
        shape->shapes += member->shapes;
    shape->members.clear();
    ++m_whole;
    if (m_stack.empty()) {
        Accept(std::move(shape));
        return;
    }
    SavedShape& group = *m_stack.back();
    group.height = std::max(group.height, shape->height + 1);
    group.members.push_back(std::move(shape));
}

Salvage SalvageWalk::Run(int64_t offset)
{
    RecordWalk walk(m_bytes, m_version, kSalvage, this, &m_watch);
    int64_t at = walk.List(offset) ? walk.Position() : BreakOff(walk.FirstFault().offset);
    m_salvage.keptBefore = m_whole;
    m_behind = true;
    while ((at = m_atShapeStart ? at : NextCandidate(at)) < Size()) {
        if (m_fruitlessBytes > kMostFruitlessBytes + kFruitlessShare * Size()) {
            m_salvage.gaveUp = true;
            break;
        }
        at = WalkOn(at);
    }
    return std::move(m_salvage);
}

int64_t SalvageWalk::NextCandidate(int64_t at) const
{
    const bool cells = OpenArray() != nullptr;
    while (at < Size() && !LooksLikeShape(m_bytes, at, m_version) && !(cells && LooksLikeCells(m_bytes, at)))
        if (++at % kBytesBetween == 0 && m_watch)
            m_watch(at);
    return at;
}

/// Walks shape after shape from a candidate on. Returns where to continue the search.
int64_t SalvageWalk::WalkOn(int64_t at)
{
    auto trust = std::exchange(m_atShapeStart, false) ? kWary : kLikely;
    while (at < Size()) {
        if (const int64_t end = CellsEnd(at); end > at) {
            at = end;
        } else {
            RecordWalk walk(m_bytes, m_version, trust, this, &m_watch);
            if (!walk.Shape(at)) {
                const bool vain = trust.likelyOnly && !StackHoldsWhole();
                return vain ? GiveUpCandidate(at, walk.FirstFault().offset) : BreakOff(walk.FirstFault().offset);
            }
            at = walk.Position();
        }
        trust = kWary;
    }
    return at;
}

int64_t SalvageWalk::GiveUpCandidate(int64_t at, int64_t faultOffset)
{
    m_stack.clear();
    m_fruitlessBytes += kBytesOfAttempt + faultOffset - at;
    return at + 1;
}

bool SalvageWalk::StackHoldsWhole() const
{
    return std::any_of(m_stack.begin(), m_stack.end(), [](const Owned& shape) { return !shape->members.empty(); });
}

/// The innermost shape with a few values replaced; null if that is not enough, and for groups inside other groups.
Owned SalvageWalk::Mended()
{
    const SavedShape& broken = *m_stack.back();
    const bool group = broken.tag == ESHAPE_GROUP || broken.tag == ESHAPE_ARRAY;
    if (group && m_stack.size() > 1)
        return nullptr;
    RecordWalk walk(m_bytes, m_version, kMending, nullptr, &m_watch);
    const int64_t begin = broken.record.begin;
    if (!walk.Shape(begin) || !MayEndAt(walk.Position())) {
        m_fruitlessBytes += walk.Position() - begin;
        return nullptr;
    }
    auto shape = std::make_unique<SavedShape>();
    shape->tag = broken.tag;
    shape->record = {begin, walk.Position()};
    shape->whole = true;
    shape->shapes = walk.ShapeCount();
    shape->height = group ? kDeepestGroup : 0; // unknown: assume the worst
    shape->mends = walk.Mends();
    return shape;
}

bool SalvageWalk::MayEndAt(int64_t end) const
{
    const auto isArray = [](const Owned& shape) { return shape->tag == ESHAPE_ARRAY; };
    const bool cells = OpenArray() || std::any_of(m_stack.begin(), m_stack.end(), isArray);
    return LooksLikeNextShape(m_bytes, end) || (cells && LooksLikeCells(m_bytes, end));
}

/// Keeps what is left of the shapes that the fault interrupts. Returns where to continue the search.
int64_t SalvageWalk::BreakOff(int64_t faultOffset)
{
    if (m_stack.empty())
        return faultOffset + 1;
    int64_t next = faultOffset + 1;
    SavedShape& innermost = *m_stack.back();
    const bool complete = innermost.cellsOffset > 0; // an array's members
    if (complete) {
        next = KeepCells(innermost);
    } else if (innermost.membersOffset == 0) {
        next = innermost.record.begin + 1;
        Owned mended = Mended();
        m_stack.pop_back();
        if (mended) {
            next = mended->record.end;
            m_atShapeStart = true;
        }
        if (mended && m_stack.empty())
            Accept(std::move(mended));
        else if (mended)
            m_stack.back()->members.push_back(std::move(mended));
    }
    LeaveOpen(complete);
    m_fruitlessBytes +=
        std::max<int64_t>(0, faultOffset - next); // these bytes have been walked, and will be searched again
    return next;
}

/// Marks the groups being walked as open: later shapes may still join them. Leaves out the innermost one if it is
/// complete.
void SalvageWalk::LeaveOpen(bool complete)
{
    if (m_stack.empty())
        return;
    std::vector<SavedShape*> open;
    for (const Owned& shape : m_stack) {
        uint32_t count = 0;
        if (shape->membersOffset + kCountBytes <= Size())
            std::memcpy(&count, m_bytes.data() + shape->membersOffset, sizeof count);
        const bool current = shape != m_stack.back() || (!m_atShapeStart && !complete); // one member is being walked
        shape->missing = static_cast<int64_t>(count) - static_cast<int64_t>(shape->members.size()) - (current ? 1 : 0);
        shape->lost = shape == m_stack.back() && !m_atShapeStart;
        open.push_back(shape.get());
    }
    if (complete)
        open.pop_back();
    for (; m_stack.size() > 1; m_stack.pop_back()) {
        SavedShape& outer = **(m_stack.end() - 2);
        outer.height = std::max(outer.height, m_stack.back()->height + 1);
        outer.members.push_back(std::move(m_stack.back()));
    }
    Owned outermost = std::move(m_stack.back());
    m_stack.clear();
    Accept(std::move(outermost));
    m_open.insert(m_open.end(), open.begin(), open.end());
}

/// Keeps the intact cells of an array whose members are whole. Returns where to continue the search.
int64_t SalvageWalk::KeepCells(SavedShape& array)
{
    const int64_t first = array.cellsOffset + kCountBytes;
    const int64_t rows =
        RecordWalk(m_bytes, m_version, kLikely, nullptr, &m_watch).WholeRows(kCellRow, array.cellsOffset);
    array.cells = {first, first + rows * kCellRowBytes};
    return rows > 0 ? array.cells.end : array.cellsOffset + 1;
}

/// The innermost interrupted array, whose cells may still follow; null if there is none.
SavedShape* SalvageWalk::OpenArray() const
{
    const auto found = std::find_if(m_open.rbegin(), m_open.rend(), [](const SavedShape* shape) {
        return shape->tag == ESHAPE_ARRAY && !shape->members.empty();
    });
    return found == m_open.rend() ? nullptr : *found;
}

/// If the cells of the innermost interrupted array begin at `at`, keeps them and returns their end; otherwise `at`.
int64_t SalvageWalk::CellsEnd(int64_t at)
{
    SavedShape* array = OpenArray();
    if (!array || !LooksLikeCells(m_bytes, at))
        return at;
    int32_t count = 0;
    std::memcpy(&count, m_bytes.data() + at, sizeof count);
    const int64_t rows = RecordWalk(m_bytes, m_version, kLikely, nullptr, &m_watch).WholeRows(kCellRow, at);
    const int64_t end = at + kCountBytes + rows * kCellRowBytes;
    m_fruitlessBytes += end - at;
    const bool fits = rows == count ? LooksLikeNextShape(m_bytes, end) : Size() - end < kCellRowBytes;
    if (rows == 0 || !fits)
        return at;
    array->cells = {at + kCountBytes, end};
    m_open.erase(std::find(m_open.begin(), m_open.end(), array), m_open.end());
    return end;
}

bool SalvageWalk::IsGrouped(const SavedShape& shape) const
{
    return m_bytes[static_cast<size_t>(shape.record.begin + kTagBytes)] & SHAPE_STATUS_GROUP;
}

/// Whether a shape behind the damage is likely to be the group's: it is marked as grouped, or no member is.
bool SalvageWalk::BelongsTo(const SavedShape& group, const SavedShape& shape) const
{
    return IsGrouped(shape) || (!group.members.empty() && !IsGrouped(*group.members.front()));
}

/// Adds the shape to the interrupted group that it belongs to, or to the document's list.
void SalvageWalk::Accept(Owned shape)
{
    while (!m_open.empty() && (m_open.back()->missing <= 0 || !BelongsTo(*m_open.back(), *shape)))
        m_open.pop_back();
    if (!m_open.empty() && static_cast<int>(m_open.size()) + shape->height <= kDeepestGroup) {
        --m_open.back()->missing;
        m_open.back()->members.push_back(std::move(shape));
        return;
    }
    m_open.clear();
    shape->lifted = m_behind && IsGrouped(*shape);
    m_salvage.shapes.push_back(std::move(shape));
}

} // namespace shapedocument
