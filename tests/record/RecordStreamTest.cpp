/// The writer and the bounded reader of records, on a device that notes what is asked of it.
#include "record/RecordStream.h"
#include "support/StreamFile.h"

#include <gtest/gtest.h>

#include <QBuffer>

#include <tuple>

using namespace test;
using namespace shapes;

namespace {

/// Takes a limited number of bytes, and records the sizes of writes and reads.
struct NotingDevice : QBuffer
{
    explicit NotingDevice(const QByteArray& bytes = {})
    {
        setData(bytes);
        open(ReadWrite | Unbuffered);
    }
    qint64 writeData(const char* data, qint64 size) override
    {
        calls += "w" + std::to_string(size) + " ";
        return QBuffer::writeData(data, std::min(size, room));
    }
    qint64 readData(char* data, qint64 size) override
    {
        calls += "r" + std::to_string(size) + " ";
        return QBuffer::readData(data, size);
    }
    std::string TakeCalls() { return std::exchange(calls, {}); }

    qint64 room = 1'000'000'000;
    std::string calls;
};

/// 0, 1, 2 ... as records hold them.
QByteArray Numbers(int count)
{
    QByteArray bytes;
    for (int i = 0; i < count; ++i)
        bytes += Raw(i);
    return bytes;
}

TEST(RecordWriter, gathers_little_endian_fields_until_it_is_flushed)
{
    NotingDevice device;
    {
        RecordWriter writer(device);
        writer.Put(int32_t{-2});
        writer.Put(1.5);
        writer.Put(true);
        writer.PutText("abc", 2);
        writer.PutText(nullptr, 5);
        writer.PutZeros(3);
        writer.PutBytes("xy", 2);
        *writer.Room(1) = 'z';
        EXPECT_EQ(device.TakeCalls(), "");
        EXPECT_TRUE(writer.Flush() && writer.Flush());
        EXPECT_EQ(device.TakeCalls(), "w29 ");
        EXPECT_EQ(device.data().toHex().toStdString(),
                  Compact("FEFFFFFF 000000000000F83F 01 02000000 6162 00000000 000000 7879 7A"));
        device.room = 3;
        writer.Put(int32_t{1});
        EXPECT_FALSE(writer.Flush());
        writer.Put(uint8_t{7});
        device.TakeCalls();
    }
    EXPECT_EQ(device.TakeCalls(), "w1 ") << "the end flushes";
}

TEST(RecordWriter, writes_large_pieces_and_larger_ones_at_once_in_their_order)
{
    constexpr size_t kPiece = RecordWriter::kPieceBytes; // 262144
    const QByteArray large(300'000, 'L'), piece(kPiece, 'P');
    for (const size_t room : {size_t{0}, 2 * kPiece}) {
        NotingDevice device;
        RecordWriter writer(device, room);
        for (int i = 0; i < 70'000; ++i)
            writer.Put(i);
        writer.PutBytes(large.data(), static_cast<size_t>(large.size()));
        writer.PutBytes(piece.data(), kPiece);
        writer.Put(uint8_t{1});
        writer.Flush();
        EXPECT_EQ(device.TakeCalls(), "w262144 w17856 w300000 w262144 w1 ");
        EXPECT_TRUE(device.data() == Numbers(70'000) + large + piece + '\1');
    }
}

TEST(RecordReader, a_short_read_overwrites_only_what_came_and_is_remembered)
{
    NotingDevice device(FromHex("01000000 02 00 CCCC AABB"));
    RecordReader reader(device);
    int32_t number = 0;
    bool flag = false;
    EXPECT_TRUE(reader.Get(number) && number == 1);
    EXPECT_TRUE(reader.GetFlag(flag) && flag);
    EXPECT_TRUE(reader.GetFlag(flag) && !flag);
    reader.Skip(2);
    EXPECT_TRUE(reader.Whole() && device.pos() == 8 && reader.Left() == 2);
    number = 0x11111111;
    EXPECT_TRUE(!reader.Get(number) && number == 0x1111BBAA);
    flag = true;
    EXPECT_TRUE(!reader.GetFlag(flag) && flag);
    EXPECT_TRUE(reader.GetBytes(&number, 0) == 0 && !reader.Whole());

    device.seek(4);
    RecordReader another(device);
    another.Skip(7);
    EXPECT_TRUE(!another.Whole() && device.atEnd()) << "to the end at most";
}

TEST(RecordReader, texts_keep_what_fits_and_skip_the_rest)
{
    const std::tuple<const char*, size_t, bool, const char*> rows[] = {
        // what the buffer holds, and the position
        {"03000000 616263 FF", 4, true, "abc 7"}, {"03000000 616263 FF", 3, true, "ab 7"},
        {"03000000 616263 FF", 1, true, " 7"},    {"FFFFFFFF FF", 9, true, " 4"},
        {"01000000 61", 9, true, "a 5"},          {"02000000 61", 2, false, "a 5"},
        {"05000000 6162", 2, false, "a 6"},       {"FFFFFF7F 6162", 9, false, "ab 6"},
        {"0500", 9, false, "before 2"},
    };
    for (const auto& [hex, capacity, whole, text] : rows) {
        NotingDevice device(FromHex(hex));
        RecordReader reader(device);
        char buffer[16] = "before";
        EXPECT_TRUE(reader.GetText(buffer, capacity) == whole && reader.Whole() == whole);
        EXPECT_EQ(std::string(buffer) + " " + std::to_string(device.pos()), text);
    }
}

TEST(RecordReader, reads_ahead_at_most_what_was_read_before_and_gives_it_back)
{
    const QByteArray bytes = Numbers(100'000);
    NotingDevice device(bytes);
    QByteArray came(400'000, '\0');
    {
        RecordReader reader(device, RecordReader::Ahead::Yes);
        qint64 at = 0;
        for (const auto& [size, calls] : std::initializer_list<std::pair<int, const char*>>{
                 {16'383, "r16383 "},  // below 16 KiB nothing is gained
                 {1, "r1 "},           //
                 {4, "r16384 "},       // once as much again
                 {16'000, ""},         // out of what is kept
                 {0, ""},              //
                 {400, "r32388 "},     // 380 of it, then once more as much as was read
                 {100'000, "r67632 "}, // no more than is wanted
                 {1, "r65536 "},       // 64 KiB at most
             }) {
            EXPECT_EQ(reader.GetBytes(came.data() + at, size), size);
            at += size;
            EXPECT_EQ(device.TakeCalls(), calls) << size;
            EXPECT_EQ(reader.Left(), 400'000 - at);
        }
        reader.GiveBack();
        EXPECT_EQ(device.pos(), at);
        int32_t number = 0;
        reader.Skip(3);
        EXPECT_TRUE(reader.Get(number) && number == (at + 3) / 4);
        EXPECT_EQ(device.TakeCalls(), "r4 ") << "begins anew";
        EXPECT_TRUE(came.first(at) == bytes.first(at));
        reader.GetBytes(came.data(), 20'000);
        reader.Get(number);
    }
    EXPECT_EQ(device.pos(), 132'789 + 3 + 4 + 20'000 + 4) << "the end gives back";
}

TEST(RecordReader, hands_out_the_next_bytes_where_they_lie)
{
    const QByteArray bytes = Numbers(50'000);
    for (const RecordReader::Ahead ahead : {RecordReader::Ahead::No, RecordReader::Ahead::Yes}) {
        NotingDevice device(bytes);
        RecordReader reader(device, ahead);
        QByteArray came;
        for (size_t size = 1; came.size() + 70'000 < bytes.size(); size = size * 3 % 65'537) {
            const std::span<const char> taken = reader.ViewBytes(size);
            came.append(taken.data(), static_cast<qsizetype>(taken.size()));
            char next = 0;
            EXPECT_TRUE(reader.Get(next)) << "in turn with others";
            came.append(next);
        }
        EXPECT_TRUE(came == bytes.first(came.size()) && reader.Whole() && reader.Left() == bytes.size() - came.size());
        const qsizetype rest = bytes.size() - came.size();
        EXPECT_TRUE(reader.ViewBytes(200'000).size() == static_cast<size_t>(rest) && !reader.Whole())
            << "to the end at most";
        EXPECT_TRUE(reader.ViewBytes(1).empty() && device.atEnd());
    }
}

} // namespace
