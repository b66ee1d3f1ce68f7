#include "check/StreamRepair.h"

#include "check/SalvageWalk.h"

#include "shape/ShapeTypes.h"

#include <algorithm>
#include <cstring>
#include <limits>

namespace shapedocument {

using shapes::kCountBytes;
using shapes::kTagBytes;

namespace {

using Owned = std::unique_ptr<SavedShape>;

/// Drops groups that have lost all members; arrays without cells become groups. Returns the number of shapes left.
int64_t Tidy(std::vector<Owned>& shapes, Salvage& salvage)
{
    int64_t count = 0;
    for (Owned& shape : shapes) {
        if (!shape->whole) {
            shape->shapes = Tidy(shape->members, salvage);
            if (shape->shapes == 0) {
                shape.reset();
                continue;
            }
            ++shape->shapes;
            const bool cellsGone = shape->tag == ESHAPE_ARRAY && shape->cells.Size() == 0;
            salvage.openGroups += shape->lost || shape->missing > 0 || cellsGone;
            if (cellsGone)
                shape->tag = ESHAPE_GROUP;
        }
        count += shape->shapes;
    }
    std::erase(shapes, nullptr);
    return count;
}

/// Lists the mended values and shapes. number: the number of the shape before the first.
void ListMends(const std::vector<Owned>& shapes, int64_t number, Salvage& salvage)
{
    for (const Owned& shape : shapes) {
        for (const Mend& mend : shape->mends)
            salvage.mended.push_back(mend.offset);
        if (!shape->mends.empty())
            salvage.mendedShapes.push_back(number + 1);
        ListMends(shape->members, number + 1, salvage);
        number += shape->shapes;
    }
}

void AddCovered(const std::vector<Owned>& shapes, std::vector<ByteRange>& covered)
{
    for (const Owned& shape : shapes) {
        if (shape->whole) {
            covered.push_back(shape->record);
            continue;
        }
        covered.push_back({shape->record.begin, shape->membersOffset + kCountBytes});
        AddCovered(shape->members, covered);
        if (shape->cells.Size() > 0)
            covered.push_back({shape->cells.begin - kCountBytes, shape->cells.end});
    }
}

/// The gaps between the ranges, which are in ascending order.
std::vector<ByteRange> Gaps(const std::vector<ByteRange>& covered, ByteRange whole)
{
    std::vector<ByteRange> gaps;
    int64_t at = whole.begin;
    for (const ByteRange& range : covered) {
        if (range.begin > at)
            gaps.push_back({at, range.begin});
        at = range.end;
    }
    if (whole.end > at)
        gaps.push_back({at, whole.end});
    return gaps;
}

class StreamBuilder
{
public:
    explicit StreamBuilder(Bytes source) : m_source(source) {}

    void PutList(const std::vector<Owned>& shapes)
    {
        PutNumber(static_cast<uint32_t>(shapes.size()));
        for (const Owned& shape : shapes)
            PutShape(*shape);
    }
    QByteArray Stream() const { return m_stream; }

private:
    void PutShape(const SavedShape& shape)
    {
        const int64_t start = m_stream.size();
        PutNumber(shape.tag);
        PutBytes({shape.record.begin + kTagBytes, shape.whole ? shape.record.end : shape.membersOffset});
        for (const Mend& mend : shape.mends)
            Apply(mend, start + mend.offset - shape.record.begin);
        if (shape.lifted)
            m_stream.data()[start + kTagBytes] &= static_cast<char>(~SHAPE_STATUS_GROUP);
        if (shape.whole)
            return;
        PutList(shape.members);
        if (shape.tag != ESHAPE_ARRAY)
            return;
        PutNumber(static_cast<uint32_t>(shape.cells.Size() / shapes::kCellRowBytes));
        PutBytes(shape.cells);
    }
    void Apply(const Mend& mend, int64_t place)
    {
        char* value = m_stream.data() + place;
        std::memcpy(value,
                    mend.likeRowBefore ? value - shapes::kPointRowBytes : reinterpret_cast<const char*>(&mend.bits),
                    static_cast<size_t>(mend.width));
    }
    void PutBytes(ByteRange range)
    {
        m_stream.append(reinterpret_cast<const char*>(m_source.data() + range.begin), range.Size());
    }
    void PutNumber(uint32_t number) { m_stream.append(reinterpret_cast<const char*>(&number), sizeof number); }

    Bytes m_source;
    QByteArray m_stream;
};

/// The version that saves the most bytes; of versions with the same layout the latest.
int BestVersion(Bytes bytes, int64_t offset, const ByteWatch& watch)
{
    int best = shapes::kLatestVersion;
    int64_t least = std::numeric_limits<int64_t>::max();
    for (int version = best; version >= shapes::kFirstVersion; version = shapes::FirstVersionLike(version) - 1)
        if (const int64_t skipped = SalvageStream(bytes, offset, version, watch).SkippedBytes(); skipped < least) {
            least = skipped;
            best = version;
        }
    return best;
}

/// Returns -1 if there is none.
int LatestCleanVersion(Bytes bytes, int64_t offset, const ByteWatch& watch)
{
    int version = shapes::kLatestVersion;
    while (version >= shapes::kFirstVersion && CheckStream(bytes, offset, version, watch).fault)
        --version;
    return version;
}

} // namespace

Salvage::Salvage() = default;
Salvage::Salvage(Salvage&&) noexcept = default;
Salvage::~Salvage() = default;

int64_t Salvage::SkippedBytes() const
{
    int64_t bytes = 0;
    for (const ByteRange& range : skipped)
        bytes += range.Size();
    return bytes;
}

Salvage SalvageStream(Bytes bytes, int64_t offset, int version, const ByteWatch& watch)
{
    Salvage salvage = SalvageWalk(bytes, version, watch).Run(offset);
    const int64_t count = Tidy(salvage.shapes, salvage);
    salvage.recovered = count - salvage.keptBefore;
    ListMends(salvage.shapes, 0, salvage);
    std::vector<ByteRange> covered;
    AddCovered(salvage.shapes, covered);
    const auto size = static_cast<int64_t>(bytes.size());
    salvage.skipped = Gaps(covered, {std::min(offset + kCountBytes, size), size});
    return salvage;
}

QByteArray SavedStream(Bytes bytes, const Salvage& salvage)
{
    StreamBuilder builder(bytes);
    builder.PutList(salvage.shapes);
    return builder.Stream();
}

int RepairVersion(Bytes bytes, const StreamStart& start, int asked, const ByteWatch& watch)
{
    if (asked >= 0)
        return asked;
    if (start.version >= 0 && !CheckStream(bytes, start.offset, start.version, watch).fault)
        return start.version;
    if (const int version = LatestCleanVersion(bytes, start.offset, watch); version >= 0)
        return version;
    return start.version >= 0 ? start.version : BestVersion(bytes, start.offset, watch);
}

} // namespace shapedocument
