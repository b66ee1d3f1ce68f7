#include "image/TiffDirectory.h"

#include <algorithm>

namespace shapes {

TiffDirectory::TiffDirectory(std::span<const unsigned char> file)
    : m_isBigEndian(!file.empty() && file[0] == 'M'), m_numbers(file, m_isBigEndian),
      m_isWide(m_numbers.Get<uint16_t>(2) == 43)
{
    const uint64_t directory = m_isWide ? m_numbers.Get<uint64_t>(8) : m_numbers.Get<uint32_t>(4);
    const uint64_t count = m_isWide ? m_numbers.Get<uint64_t>(directory) : m_numbers.Get<uint16_t>(directory);
    const uint64_t entryBytes = m_isWide ? 20 : 12, first = directory + (m_isWide ? 8 : 2);
    if (count > file.size() / entryBytes)
        return;
    for (uint64_t i = 0; i < count; ++i) {
        const uint64_t entry = first + i * entryBytes;
        m_fields.push_back(
            {m_numbers.Get<uint16_t>(entry), m_numbers.Get<uint16_t>(entry + 2), entry, entry + (m_isWide ? 12 : 8)});
    }
}

std::optional<uint64_t> TiffDirectory::Number(const TiffField& field) const
{
    switch (field.type) {
    case 1:
        return m_numbers.Get<uint8_t>(field.value);
    case 3:
        return m_numbers.Get<uint16_t>(field.value);
    case 4:
        return m_numbers.Get<uint32_t>(field.value);
    case 16:
        return m_numbers.Get<uint64_t>(field.value);
    default:
        return {};
    }
}

uint64_t TiffDirectory::Number(TiffTag tag, uint64_t fallback) const
{
    const auto field =
        std::find_if(m_fields.begin(), m_fields.end(), [tag](const TiffField& f) { return f.tag == tag; });
    return field == m_fields.end() ? fallback : Number(*field).value_or(fallback);
}

} // namespace shapes
