#include "machine/OutputText.h"

#include <QIODevice>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstring>

namespace shapedocument {

namespace {

constexpr size_t kPiece = size_t{64} * 1024;
constexpr long long kScale = 10'000; // four decimals: a ten-thousandth of a millimetre

/// As std::llround, which would be a call of the library.
long long Rounded(double number)
{
    const auto whole = static_cast<long long>(number);
    const double rest = number - static_cast<double>(whole); // exact
    return whole + (rest >= 0.5 ? 1 : 0) - (rest <= -0.5 ? 1 : 0);
}

constexpr std::array<std::array<char, 2>, 100> kPairs = [] {
    std::array<std::array<char, 2>, 100> pairs{};
    for (size_t i = 0; i < pairs.size(); ++i)
        pairs[i] = {static_cast<char>('0' + i / 10), static_cast<char>('0' + i % 10)};
    return pairs;
}();

} // namespace

long long Written(double number)
{
    return Rounded(number * kScale);
}

char* WriteFixed(char* to, double number)
{
    const long long scaled = Written(number);
    const auto size = static_cast<unsigned long long>(scaled < 0 ? -scaled : scaled);
    if (scaled < 0)
        *to++ = '-';
    to = std::to_chars(to, to + kLongestNumber, size / kScale).ptr;
    *to++ = '.';
    const auto decimals = static_cast<unsigned>(size % kScale);
    std::memcpy(to, kPairs[decimals / 100].data(), 2);
    std::memcpy(to + 2, kPairs[decimals % 100].data(), 2);
    return to + 4;
}

char* WriteShort(char* to, double number)
{
    char* end = WriteFixed(to, number);
    while (end[-1] == '0')
        --end;
    return end[-1] == '.' ? end - 1 : end;
}

OutputText::OutputText(QIODevice& device) : m_device(device), m_waiting(kPiece) {}

OutputText::~OutputText()
{
    Flush();
}

char* OutputText::Room(size_t letters)
{
    if (m_waiting.size() - m_used < letters)
        Flush();
    if (m_waiting.size() < letters)
        m_waiting.resize(letters);
    return m_waiting.data() + m_used;
}

OutputText& OutputText::operator<<(std::string_view text)
{
    if (!text.empty())
        Advance(std::copy(text.begin(), text.end(), Room(text.size())));
    return *this;
}

OutputText& OutputText::operator<<(size_t number)
{
    char* const to = Room(kLongestNumber);
    Advance(std::to_chars(to, to + kLongestNumber, number).ptr);
    return *this;
}

OutputText& OutputText::Fixed(double number)
{
    Advance(WriteFixed(Room(kLongestNumber), number));
    return *this;
}

OutputText& OutputText::Short(double number)
{
    Advance(WriteShort(Room(kLongestNumber), number));
    return *this;
}

OutputText& OutputText::Color(unsigned int color)
{
    constexpr std::string_view kHexDigits = "0123456789abcdef";
    *this << '#';
    for (int shift = 20; shift >= 0; shift -= 4)
        *this << kHexDigits[color >> shift & 0xFU];
    return *this;
}

void OutputText::Flush()
{
    m_device.write(m_waiting.data(), static_cast<qint64>(m_used));
    m_used = 0;
}

std::string ShortNumber(double number)
{
    char digits[kLongestNumber];
    return {digits, WriteShort(digits, number)};
}

} // namespace shapedocument
