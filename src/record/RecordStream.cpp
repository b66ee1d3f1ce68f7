#include "record/RecordStream.h"

#include <algorithm>
#include <cstdint>

namespace shapes {

namespace {

// At most as much is read ahead as was read since the last GiveBack, so that little is read twice when others read on.
// Less than QFile's own buffer would gain nothing.
constexpr qint64 kLeastAhead = 16LL * 1024;
constexpr qint64 kMostAhead = 64LL * 1024;

} // namespace

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

RecordReader::RecordReader(QIODevice& device, Ahead ahead)
    : m_device(device), m_ahead(ahead == Ahead::Yes && !device.isSequential() && !device.isTextModeEnabled())
{}

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
    char* target = static_cast<char*>(bytes);
    qint64 came = ReadKept(target, count);
    if (came < count) {
        Refill(count - came);
        came += ReadKept(target + came, count - came);
    }
    if (came < count)
        came += std::max<qint64>(0, m_device.read(target + came, count - came));
    m_handedOut += came;
    m_whole = m_whole && came == count;
    return came;
}

qint64 RecordReader::ReadKept(char* bytes, qint64 count)
{
    const qint64 taken = std::clamp<qint64>(count, 0, Kept());
    std::copy_n(m_kept.get() + m_next, taken, bytes);
    m_next += static_cast<size_t>(taken);
    return taken;
}

std::span<const char> RecordReader::ViewBytes(size_t count)
{
    if (m_end - m_next < count)
        KeepNext(count);
    const size_t taken = std::min(count, m_end - m_next);
    const std::span<const char> bytes(m_kept.get() + m_next, taken);
    HandOut(taken);
    m_whole = m_whole && taken == count;
    return bytes;
}

/// Refills the buffer, of which everything was handed out. Leaves it empty when the caller needs at least as much
/// at once.
void RecordReader::Refill(qint64 wanted)
{
    DropKept();
    if (wanted < AheadNow())
        KeepNext(static_cast<size_t>(wanted));
}

/// Reads on until the buffer holds the next count bytes, and what is read ahead.
void RecordReader::KeepNext(size_t count)
{
    const size_t rest = m_end - m_next;
    const size_t wanted = std::max(count, static_cast<size_t>(AheadNow()));
    if (wanted > m_room) {
        auto larger = std::make_unique_for_overwrite<char[]>(wanted);
        std::copy_n(m_kept.get() + m_next, rest, larger.get());
        m_kept = std::move(larger);
        m_room = wanted;
    } else {
        std::memmove(m_kept.get(), m_kept.get() + m_next, rest);
    }
    const auto missing = static_cast<qint64>(wanted - rest);
    m_next = 0;
    m_end = rest + static_cast<size_t>(std::max<qint64>(0, m_device.read(m_kept.get() + rest, missing)));
}

/// Bytes to read ahead now; 0 for none.
qint64 RecordReader::AheadNow() const
{
    const qint64 ahead = std::min(m_handedOut, kMostAhead);
    return m_ahead && ahead >= kLeastAhead ? ahead : 0;
}

void RecordReader::GiveBack()
{
    if (Kept() > 0)
        m_device.seek(m_device.pos() - Kept());
    DropKept();
    m_handedOut = 0;
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
    GiveBack();
    const qint64 possible = std::clamp<qint64>(Left(), 0, count);
    m_device.skip(possible);
    m_whole = m_whole && possible == count;
}

qint64 RecordReader::Left() const
{
    const qint64 behind = m_device.isSequential() ? m_device.bytesAvailable() : m_device.size() - m_device.pos();
    return Kept() + std::max<qint64>(0, behind);
}

} // namespace shapes
