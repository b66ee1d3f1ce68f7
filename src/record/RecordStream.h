/// Writer and bounded reader for the little-endian fields of document records.
#pragma once

#include <QIODevice>

#include <bit>
#include <cstring>
#include <memory>
#include <span>
#include <type_traits>
#include <vector>

namespace shapes {

static_assert(std::endian::native == std::endian::little, "Records are memory images of little-endian numbers.");

/// Buffers the fields of one or many records and writes them in large blocks; Flush and the destructor write the rest.
class RecordWriter
{
public:
    /// Largest size of the buffer.
    static constexpr size_t kPieceBytes = size_t{256} * 1024;

    /// @param device must outlive the writer
    /// @param expectedBytes size of the record if known, so that the buffer is allocated once
    explicit RecordWriter(QIODevice& device, size_t expectedBytes = 0);
    RecordWriter(const RecordWriter&) = delete;
    RecordWriter& operator=(const RecordWriter&) = delete;
    ~RecordWriter();

    /// Appends a number (a bool as one byte, 0 or 1).
    template <class Number>
    void Put(Number value)
    {
        static_assert(std::is_arithmetic_v<Number> || std::is_enum_v<Number>);
        std::memcpy(Room(sizeof value), &value, sizeof value);
    }
    /// int32 length, then the bytes up to the terminating zero, at most capacity of them. Null counts as empty.
    void PutText(const char* text, size_t capacity);
    void PutZeros(size_t count);
    void PutBytes(const void* bytes, size_t count);
    /// The next count bytes of the stream, at most kPieceBytes, for the caller to fill before the next call.
    char* Room(size_t count)
    {
        if (m_used + count > m_buffer.size())
            MakeRoom(count);
        m_used += count;
        return m_buffer.data() + m_used - count;
    }

    /// Writes the buffer to the device; false when the device took less.
    bool Flush();

private:
    void MakeRoom(size_t count);

    QIODevice& m_device;
    std::vector<char> m_buffer; ///< grows as needed, up to kPieceBytes
    size_t m_used = 0;          ///< bytes of it in use
};

/// Reads fields. A short read overwrites only as many bytes as were read; Whole() is false from then on.
class RecordReader
{
public:
    enum class Ahead
    {
        No,
        Yes
    };

    /// @param device must outlive the reader
    /// @param ahead whether the reader may read more from the device than it was asked for, see GiveBack
    explicit RecordReader(QIODevice& device, Ahead ahead = Ahead::No);
    RecordReader(const RecordReader&) = delete;
    RecordReader& operator=(const RecordReader&) = delete;
    ~RecordReader() { GiveBack(); }

    /// Reads a number; false when the stream ends inside it.
    template <class Number>
    bool Get(Number& value)
    {
        static_assert((std::is_arithmetic_v<Number> || std::is_enum_v<Number>)&&!std::is_same_v<Number, bool>);
        if (Kept() < static_cast<qint64>(sizeof value))
            return GetBytes(&value, sizeof value) == static_cast<qint64>(sizeof value);
        std::memcpy(&value, m_kept.get() + m_next, sizeof value);
        HandOut(sizeof value);
        return true;
    }
    /// Reads one byte; every value but 0 is true.
    bool GetFlag(bool& flag);
    /// Returns the number of bytes read.
    qint64 GetBytes(void* bytes, qint64 count);
    /// The next count bytes, fewer where the stream ends, without a copy; valid until the next call of the reader.
    /// Keeps them in memory: for small counts.
    std::span<const char> ViewBytes(size_t count);
    /// Reads what PutText wrote: keeps at most capacity - 1 bytes, skips the rest, appends a zero. Negative lengths
    /// count as 0. When the stream ends inside the length, the buffer stays as it was.
    bool GetText(char* buffer, size_t capacity);
    /// Moves on by count bytes or to the end of the stream.
    void Skip(qint64 count);

    /// Bytes from the position to the end of the stream. Compare every count with it before allocating memory.
    qint64 Left() const;
    /// False once a read was short.
    bool Whole() const { return m_whole; }

    /// Moves the device's position right behind the bytes handed out, so that others can read on from it. Reading ahead
    /// then starts anew.
    void GiveBack();

private:
    qint64 Kept() const { return static_cast<qint64>(m_end - m_next); }
    void HandOut(size_t count)
    {
        m_next += count;
        m_handedOut += static_cast<qint64>(count);
    }
    qint64 ReadKept(char* bytes, qint64 count);
    void Refill(qint64 wanted);
    void KeepNext(size_t count);
    qint64 AheadNow() const;
    void DropKept() { m_next = m_end = 0; }

    QIODevice& m_device;
    bool m_ahead;
    bool m_whole = true;
    qint64 m_handedOut = 0;         ///< bytes, since the last GiveBack
    std::unique_ptr<char[]> m_kept; ///< bytes that were read and not handed out yet, from m_next to m_end
    size_t m_room = 0;              ///< size of the buffer
    size_t m_next = 0;
    size_t m_end = 0;
};

} // namespace shapes
