#include "machine/OutputText.h"

#include <QIODevice>

#include <charconv>
#include <cmath>

namespace shapedocument {

namespace {

constexpr size_t kPiece = size_t{64} * 1024;
constexpr int kDecimals = 4; // a ten-thousandth of a millimetre
constexpr long long kScale = 10'000;
constexpr size_t kLongestNumber = 32;

/// Writes the number with four decimals; answers behind its last character.
char* WriteFixed(char* to, double number)
{
    const long long scaled = std::llround(number * kScale);
    const long long size = scaled < 0 ? -scaled : scaled;
    if (scaled < 0)
        *to++ = '-';
    to = std::to_chars(to, to + kLongestNumber, size / kScale).ptr;
    *to++ = '.';
    long long rest = size % kScale;
    for (int i = kDecimals - 1; i >= 0; --i, rest /= 10)
        to[i] = static_cast<char>('0' + rest % 10);
    return to + kDecimals;
}

char* WriteShort(char* to, double number)
{
    char* end = WriteFixed(to, number);
    while (end[-1] == '0')
        --end;
    return end[-1] == '.' ? end - 1 : end;
}

} // namespace

OutputText::OutputText(QIODevice& device) : m_device(device)
{
    m_waiting.reserve(kPiece + kLongestNumber);
}

OutputText::~OutputText()
{
    Flush();
}

OutputText& OutputText::operator<<(std::string_view text)
{
    m_waiting += text;
    if (m_waiting.size() >= kPiece)
        Flush();
    return *this;
}

OutputText& OutputText::operator<<(size_t number)
{
    char digits[kLongestNumber];
    return *this << std::string_view(digits, std::to_chars(digits, digits + kLongestNumber, number).ptr);
}

OutputText& OutputText::Fixed(double number)
{
    char digits[2 * kLongestNumber];
    return *this << std::string_view(digits, WriteFixed(digits, number));
}

OutputText& OutputText::Short(double number)
{
    char digits[2 * kLongestNumber];
    return *this << std::string_view(digits, WriteShort(digits, number));
}

OutputText& OutputText::Color(unsigned int color)
{
    constexpr std::string_view kDigits = "0123456789abcdef";
    *this << '#';
    for (int shift = 20; shift >= 0; shift -= 4)
        *this << kDigits[color >> shift & 0xFU];
    return *this;
}

void OutputText::Flush()
{
    m_device.write(m_waiting.data(), static_cast<qint64>(m_waiting.size()));
    m_waiting.clear();
}

std::string ShortNumber(double number)
{
    char digits[2 * kLongestNumber];
    return {digits, WriteShort(digits, number)};
}

} // namespace shapedocument
