#include "RecordBytes.h"

#include <array>
#include <cstring>
#include <iterator>
#include <limits>
#include <string_view>

namespace fuzz {

namespace {

constexpr uint32_t kImage = 0, kVector = 1, kText = 2, kGroup = 3, kArray = 4, kCodeImage = 16;
constexpr int kOriginalSince = 13;

class Writer
{
public:
    explicit Writer(Random& random) : m_random(random) {}

    ByteVector Extract() { return std::move(m_bytes); }

    size_t Below(size_t limit) { return std::uniform_int_distribution<size_t>(0, limit - 1)(m_random); }
    bool Once(size_t in) { return Below(in) == 0; }

    template <class Number>
    void Put(Number value)
    {
        const auto* first = reinterpret_cast<const uint8_t*>(&value);
        m_bytes.insert(m_bytes.end(), first, first + sizeof value);
    }
    void Put(const ByteVector& bytes) { m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end()); }

    /// value, or now and then one that is no count of anything.
    void PutCount(size_t value)
    {
        constexpr std::array<uint32_t, 6> wrong{0, 1, 0x7fffffff, 0x80000000, 0xffffffff, 0x10000};
        Put(Once(16) ? wrong[Below(wrong.size())] : static_cast<uint32_t>(value));
    }
    void PutFlag() { Put(static_cast<uint8_t>(Once(8) ? Below(256) : Below(2))); }

    double Coordinate()
    {
        constexpr double infinity = std::numeric_limits<double>::infinity();
        constexpr std::array<double, 10> odd{0.0,      -0.0,      1e-300, 1e300, -1e300,
                                             infinity, -infinity, 3e9,    1e-9,  16777217};
        if (Once(12))
            return Once(4) ? std::numeric_limits<double>::quiet_NaN() : odd[Below(odd.size())];
        return static_cast<double>(Below(2'000)) / 8 - 100;
    }

    void PutText(std::string_view text)
    {
        PutCount(text.size());
        m_bytes.insert(m_bytes.end(), text.begin(), text.end());
    }

private:
    Random& m_random;
    ByteVector m_bytes;
};

void PutCommon(Writer& writer, bool points)
{
    writer.Put(static_cast<uint32_t>(writer.Below(16)));
    writer.Put(static_cast<uint32_t>(writer.Below(0x1000000)));
    writer.Put(static_cast<int32_t>(writer.Below(4)));
    writer.Put(static_cast<int32_t>(writer.Below(2)));
    writer.Put(writer.Coordinate());
    writer.Put(static_cast<int32_t>(writer.Below(2)));
    writer.Put(int32_t{0});
    writer.Put(writer.Coordinate());
    constexpr std::array<size_t, 8> usual{0, 1, 2, 4, 5, 7, 13, 14}; // with the counts of the primitives
    const size_t count = points ? usual[writer.Below(usual.size())] : 0;
    writer.PutCount(count);
    const bool mixed = writer.Once(2);
    const auto type = static_cast<uint8_t>(writer.Below(4));
    for (size_t i = 0; i < count; ++i) {
        writer.Put(static_cast<float>(writer.Coordinate()));
        writer.Put(static_cast<float>(writer.Coordinate()));
        writer.Put(writer.Once(20) ? uint8_t{0xff} : mixed ? static_cast<uint8_t>(writer.Below(5)) : type);
    }
}

void PutVector(Writer& writer, int version)
{
    PutCommon(writer, true);
    if (version >= 0 && version <= 14)
        writer.Put(static_cast<int32_t>(writer.Below(8)));
    if (version >= 7 && version <= 14)
        writer.PutFlag();
}

void PutTextShape(Writer& writer, int version)
{
    PutVector(writer, version);
    constexpr std::array<std::string_view, 7> texts{"",          "a", "Ab c", "x\ny", "\n\n", "\xe7\x94\xb0\nA\nB",
                                                    "\xff\xfe f"};
    writer.PutText(texts[writer.Below(texts.size())]);
    writer.PutText(writer.Once(2) ? "Arial" : "");
    for (int i = 0; i < 3; ++i)
        writer.PutFlag();
    writer.Put(writer.Once(4) ? writer.Coordinate() : 20.0);
    const auto since = [&](int first, auto value) {
        if (version >= first)
            writer.Put(value);
    };
    since(1, writer.Once(2) ? 0.0 : writer.Coordinate());
    since(2, writer.Coordinate());
    since(2, writer.Coordinate());
    since(3, static_cast<uint8_t>(writer.Below(2)));
    since(3, static_cast<uint8_t>(writer.Below(2)));
    since(4, writer.Once(3) ? writer.Coordinate() : 1.0);
    since(4, writer.Once(3) ? writer.Coordinate() : 1.0);
    since(5, static_cast<int32_t>(writer.Below(5)));
    since(5, writer.Once(3) ? writer.Coordinate() : 0.0);
    since(8, writer.Once(3) ? writer.Coordinate() : 0.0);
    since(11, int32_t{7});
}

void PutPicture(Writer& writer)
{
    const auto width = static_cast<int32_t>(writer.Below(6)), height = static_cast<int32_t>(writer.Below(6));
    const int32_t stride = writer.Once(8) ? width + 1 : (width + 3) / 4 * 4;
    writer.PutCount(static_cast<size_t>(width));
    writer.PutCount(static_cast<size_t>(height));
    writer.Put(int32_t{8});
    writer.PutCount(static_cast<size_t>(stride));
    writer.Put(ByteVector(static_cast<size_t>(stride) * static_cast<size_t>(height), uint8_t{0x5a}));
}

void PutImage(Writer& writer, int version)
{
    PutCommon(writer, true);
    writer.Put(int32_t{3});
    writer.PutText(writer.Once(2) ? "picture.png" : "");
    PutPicture(writer);
    writer.Put(uint64_t{0});
    if (version < kOriginalSince)
        return;
    PutPicture(writer);
    for (int i = 0; i < 6; ++i)
        writer.Put(static_cast<int32_t>(writer.Below(200)));
    writer.Put(writer.Coordinate());
    writer.Put(static_cast<int32_t>(writer.Below(2)));
    writer.Put(static_cast<int32_t>(writer.Below(2)));
}

void PutCells(Writer& writer)
{
    const size_t count = writer.Below(5);
    writer.PutCount(count);
    for (size_t i = 0; i < count; ++i) {
        writer.Put(static_cast<int32_t>(i));
        writer.Put(writer.Coordinate());
        writer.Put(writer.Coordinate());
        writer.PutFlag();
        writer.PutFlag();
    }
}

ByteVector Entries(Random& random, int version, int depth, size_t most)
{
    Writer writer(random);
    const size_t count = writer.Below(most + 1);
    writer.PutCount(count);
    for (size_t i = 0; i < count; ++i)
        writer.Put(RandomEntry(random, version, depth));
    return writer.Extract();
}

} // namespace

ByteVector RandomEntry(Random& random, int version, int depth)
{
    Writer writer(random);
    constexpr std::array tags{kVector, kVector, kText, kImage, kCodeImage, kGroup, kArray};
    const uint32_t tag = tags[writer.Below(depth > 0 ? tags.size() : tags.size() - 2)];
    writer.Put(writer.Once(40) ? static_cast<uint32_t>(writer.Below(20)) : tag);
    if (tag == kVector)
        PutVector(writer, version);
    if (tag == kText)
        PutTextShape(writer, version);
    if (tag == kImage || tag == kCodeImage)
        PutImage(writer, version);
    if (tag == kCodeImage) {
        writer.PutFlag();
        writer.PutText("12345");
    }
    if (tag == kGroup || tag == kArray) {
        PutCommon(writer, false);
        writer.Put(Entries(random, version, depth - 1, 3));
    }
    if (tag == kArray)
        PutCells(writer);
    return writer.Extract();
}

ByteVector RandomStream(Random& random, int version)
{
    return Entries(random, version, 3, 6);
}

ByteVector Grouped(Random& random, const ByteVector& stream)
{
    Writer writer(random);
    writer.Put(uint32_t{1});
    writer.Put(kGroup);
    PutCommon(writer, false);
    writer.Put(stream);
    return writer.Extract();
}

} // namespace fuzz
