/// Buffered text output to a device; numbers are written without temporary strings.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class QIODevice;

namespace shapedocument {

/// Characters of the longest number that the functions below write. Magnitudes beyond 1e14 are not supported.
constexpr size_t kLongestNumber = 32;

/// A number as it is written, in units of its last digit (0.0001).
long long Written(double number);

/// Writes four decimals, never "-0.0000". Returns the position behind the last character.
char* WriteFixed(char* to, double number);

/// Writes up to four decimals, without zeros at the end. Returns the position behind the last character.
char* WriteShort(char* to, double number);
std::string ShortNumber(double number);

class OutputText
{
public:
    explicit OutputText(QIODevice& device);
    OutputText(const OutputText&) = delete;
    OutputText& operator=(const OutputText&) = delete;
    ~OutputText();

    OutputText& operator<<(std::string_view text);
    OutputText& operator<<(char letter) { return *this << std::string_view(&letter, 1); }
    OutputText& operator<<(size_t number);
    OutputText& Fixed(double number);      ///< WriteFixed
    OutputText& Short(double number);      ///< WriteShort
    OutputText& Color(unsigned int color); ///< "#rrggbb"

    /// For hot loops: Room returns a buffer for that many characters, Advance accepts what has been written up to end.
    char* Room(size_t letters);
    void Advance(const char* end) { m_used = static_cast<size_t>(end - m_waiting.data()); }

private:
    void Flush();

    QIODevice& m_device;
    std::vector<char> m_waiting;
    size_t m_used = 0;
};

} // namespace shapedocument
