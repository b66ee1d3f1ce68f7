/// The common record that every shape's record begins with, and the string encoding of records.
#include "record/RecordFormat.h"
#include "record/RecordStream.h"
#include "shape/Shape.h"

#include <QFile>

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>
#include <span>

using shapes::kHeadBytes;
using shapes::RecordReader;
using shapes::RecordWriter;

namespace {

constexpr size_t kPointBytes = shapes::RowBytes(shapes::kPointRow);
constexpr size_t kPointsPerBlock = size_t{64} * 1024 / kPointBytes;
constexpr auto kGuidePaddingAt = static_cast<size_t>(shapes::OffsetOf(shapes::kCommonFields, "padding"));
constexpr auto kGuidePaddingBytes =
    static_cast<size_t>(shapes::OffsetOf(shapes::kCommonFields, "lead-out length")) - kGuidePaddingAt;

/// The fields before the points, as they stand in the record (little-endian, no padding beyond the guide line's own).
struct Header
{
    unsigned int status;
    unsigned int color;
    SGuideLine guideLine;
    uint32_t pointCount;
};
static_assert(offsetof(Header, guideLine) == shapes::OffsetOf(shapes::kCommonFields, "guide line mode") &&
              offsetof(Header, pointCount) == shapes::OffsetOf(shapes::kCommonFields, "points"));

/// A point as it stands in the record.
struct PointRecord
{
    std::array<char, kPointBytes> bytes;

    operator QPointF() const
    {
        std::array<float, 2> coordinates;
        std::memcpy(coordinates.data(), bytes.data(), sizeof coordinates);
        return {coordinates[0], coordinates[1]};
    }
    operator unsigned char() const { return static_cast<unsigned char>(bytes.back()); }
};
static_assert(sizeof(PointRecord) == kPointBytes && alignof(PointRecord) == 1);

} // namespace

int CShape::Save(QFile* file)
{
    if (!file)
        return 0;
    RecordWriter writer(*file, CommonRecordBytes());
    WriteCommonRecord(writer);
    return 0;
}

size_t CShape::CommonRecordBytes() const
{
    return kHeadBytes + kPointBytes * m_listPoints.size();
}

void CShape::WriteCommonRecord(RecordWriter& writer) const
{
    Header header{m_nStatus, m_nColor, m_guideLine, static_cast<uint32_t>(m_listPoints.size())};
    char* record = writer.Room(kHeadBytes);
    std::memcpy(record, &header, kHeadBytes);
    std::memset(record + kGuidePaddingAt, 0, kGuidePaddingBytes); // padding is indeterminate in memory
    for (size_t first = 0; first < m_listPoints.size(); first += kPointsPerBlock) {
        const size_t count = std::min(kPointsPerBlock, m_listPoints.size() - first);
        PackPoints(first, count, writer.Room(count * kPointBytes));
    }
}

/// Writes count points from first on to record; coordinates are rounded to the nearest 32-bit float.
void CShape::PackPoints(size_t first, size_t count, char* record) const
{
    const QPointF* point = m_listPoints.data() + first;
    const size_t typed = std::clamp(m_listTypes.size(), first, first + count) - first;
    const auto pack = [&](unsigned char type) {
        const std::array<float, 2> coordinates{static_cast<float>(point->x()), static_cast<float>(point->y())};
        std::memcpy(record, coordinates.data(), sizeof coordinates);
        record[sizeof coordinates] = static_cast<char>(type);
        record += kPointBytes;
        ++point;
    };
    for (size_t i = 0; i < typed; ++i)
        pack(m_listTypes[first + i]);
    for (size_t i = typed; i < count; ++i)
        pack(ELINE_SEGMENT_STRAIGHT);
}

int CShape::Read(QFile* file, int)
{
    if (!file)
        return 0;
    RecordReader reader(*file);
    ReadCommonRecord(reader);
    return 0;
}

void CShape::ReadCommonRecord(RecordReader& reader)
{
    // Begins with the present values: a short stream leaves the fields that it does not reach as they were.
    Header header{m_nStatus, m_nColor, m_guideLine, 0};
    reader.GetBytes(&header, kHeadBytes);
    m_nStatus = header.status;
    m_nColor = header.color;
    m_guideLine = header.guideLine;
    ReadPoints(reader, header.pointCount);
}

void CShape::ReadPoints(RecordReader& reader, size_t count)
{
    for (size_t wanted = 0, came = 0; count > 0 && came == wanted; count -= wanted) {
        wanted = std::min(count, kPointsPerBlock);
        if (count > wanted) { // Memory for all points at once, but for no more than the stream can hold.
            const size_t possible = std::min(count, static_cast<size_t>(reader.Left()) / kPointBytes);
            m_listPoints.reserve(m_listPoints.size() + possible);
            m_listTypes.reserve(m_listTypes.size() + possible);
        }
        const std::span<const char> records = reader.ViewBytes(wanted * kPointBytes);
        came = records.size() / kPointBytes;
        AppendPoints(records.data(), came);
    }
}

/// Built in place: growing the lists before they are filled would write their memory twice.
void CShape::AppendPoints(const char* records, size_t count)
{
    const auto* first = reinterpret_cast<const PointRecord*>(records);
    m_listPoints.insert(m_listPoints.end(), first, first + count);
    m_listTypes.insert(m_listTypes.end(), first, first + count);
}

bool CShape::SaveString(QFile* file, char* const text)
{
    if (!file)
        return false;
    RecordWriter(*file).PutText(text, std::numeric_limits<int32_t>::max());
    return true;
}

bool CShape::ReadString(QFile* file, char* const buffer)
{
    if (!file || !buffer)
        return false;
    buffer[0] = '\0'; // also when the stream ends inside the length
    RecordReader(*file).GetText(buffer, static_cast<size_t>(std::numeric_limits<int32_t>::max()) + 1);
    return true;
}
