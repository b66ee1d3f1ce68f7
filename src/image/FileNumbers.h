/// Numbers in the bytes of a file.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <type_traits>

namespace shapes {

/// Reads numbers in one byte order, at any offset. A number that extends beyond the end of the bytes is 0.
class FileNumbers
{
public:
    FileNumbers(std::span<const unsigned char> bytes, bool bigEndian) : m_bytes(bytes), m_bigEndian(bigEndian) {}

    template <class Unsigned>
    Unsigned Get(uint64_t offset) const
    {
        Unsigned value = 0;
        if (offset > m_bytes.size() || sizeof value > m_bytes.size() - offset)
            return value;
        for (size_t i = 0; i < sizeof value; ++i) {
            const size_t place = m_bigEndian ? sizeof value - 1 - i : i;
            value |= static_cast<Unsigned>(static_cast<Unsigned>(m_bytes[offset + i]) << (8 * place));
        }
        return value;
    }
    template <class Signed>
    Signed GetSigned(uint64_t offset) const
    {
        return static_cast<Signed>(Get<std::make_unsigned_t<Signed>>(offset));
    }
    size_t Size() const { return m_bytes.size(); }

private:
    std::span<const unsigned char> m_bytes;
    bool m_bigEndian;
};

} // namespace shapes
