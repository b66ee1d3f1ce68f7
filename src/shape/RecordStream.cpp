#include "shape/RecordStream.h"

#include <algorithm>
#include <cstdint>

namespace shapes {

RecordWriter::RecordWriter(QIODevice& device, size_t expectedBytes)
    : m_device(device), m_buffer(std::min(expectedBytes, kPieceBytes))
{}

RecordWriter::~RecordWriter()
{
    Flush();
}

void RecordWriter::PutText(const char* text, size_t capacity)
{
    const size_t length = text ? strnlen(text, capacity) : 0;
    Put(static_cast<int32_t>(length));
    PutBytes(text, length);
}

void RecordWriter::PutZeros(size_t count)
{
    std::memset(Room(count), 0, count);
}

void RecordWriter::PutBytes(const void* bytes, size_t count)
{
    if (count <= kPieceBytes) {
        std::copy_n(static_cast<const char*>(bytes), count, Room(count));
        return;
    }
    Flush();
    m_device.write(static_cast<const char*>(bytes), static_cast<qint64>(count));
}

void RecordWriter::MakeRoom(size_t count)
{
    Q_ASSERT(count <= kPieceBytes);
    if (m_used + count > kPieceBytes)
        Flush();
    if (m_used + count > m_buffer.size())
        m_buffer.resize(std::clamp(2 * m_buffer.size(), m_used + count, kPieceBytes));
}

bool RecordWriter::Flush()
{
    const auto size = static_cast<qint64>(m_used);
    m_used = 0;
    return size == 0 || m_device.write(m_buffer.data(), size) == size;
}

RecordReader::RecordReader(QIODevice& device) : m_device(device) {}

bool RecordReader::GetFlag(bool& flag)
{
    uint8_t byte = 0;
    if (!Get(byte))
        return false;
    flag = byte != 0;
    return true;
}

qint64 RecordReader::GetBytes(void* bytes, qint64 count)
{
    const qint64 came = std::max<qint64>(0, m_device.read(static_cast<char*>(bytes), count));
    m_whole = m_whole && came == count;
    return came;
}

bool RecordReader::GetText(char* buffer, size_t capacity)
{
    Q_ASSERT(capacity > 0);
    int32_t length = 0;
    if (!Get(length))
        return false;
    const qint64 stored = std::max(length, 0);
    const qint64 kept = std::min<qint64>(stored, static_cast<qint64>(capacity) - 1);
    const qint64 came = GetBytes(buffer, kept);
    buffer[came] = '\0';
    Skip(stored - kept);
    return m_whole;
}

void RecordReader::Skip(qint64 count)
{
    const qint64 possible = std::clamp<qint64>(Left(), 0, count);
    m_device.skip(possible);
    m_whole = m_whole && possible == count;
}

qint64 RecordReader::Left() const
{
    return std::max<qint64>(0, m_device.isSequential() ? m_device.bytesAvailable() : m_device.size() - m_device.pos());
}

} // namespace shapes
