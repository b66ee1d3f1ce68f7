/// Text on its way into a device, in pieces of bearable size; numbers without a string of their own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

class QIODevice;

namespace shapedocument {

/// Letters of the longest number that the functions below write. Magnitudes beyond 1e14 are no lengths.
constexpr size_t kLongestNumber = 32;

/// A number as it is written, in units of its last digit.
long long Written(double number);

/// Four decimals, never "-0.0000". Answer behind the last letter.
char* WriteFixed(char* to, double number);

/// The same without the zeros at its end.
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

    /// For hot loops: where that many letters may be written, and how far they have been.
    char* Room(size_t letters);
    void Take(const char* end) { m_used = static_cast<size_t>(end - m_waiting.data()); }

private:
    void Flush();

    QIODevice& m_device;
    std::vector<char> m_waiting;
    size_t m_used = 0;
};

} // namespace shapedocument
