/// Text on its way into a device, in pieces of bearable size; numbers without a string of their own.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

class QIODevice;

namespace shapedocument {

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

    /// Four decimals, never "-0.0000". Magnitudes beyond 1e14 are no lengths.
    OutputText& Fixed(double number);

    /// As Fixed, without the zeros at the end.
    OutputText& Short(double number);

    /// "#rrggbb".
    OutputText& Color(unsigned int color);

private:
    void Flush();

    QIODevice& m_device;
    std::string m_waiting;
};

/// As OutputText::Short.
std::string ShortNumber(double number);

} // namespace shapedocument
