/// A document stream in a temporary file: hex in, hex out.
#pragma once

#include <QTemporaryFile>

#include <cctype>
#include <cstdint>
#include <span>
#include <string>

namespace test {

/// The bytes of a hex literal, blanks ignored.
inline QByteArray FromHex(const std::string& hex)
{
    return QByteArray::fromHex(QByteArray::fromStdString(hex));
}

/// The numbers as records hold them.
template <class... Numbers>
QByteArray Raw(Numbers... numbers)
{
    QByteArray bytes;
    (bytes.append(reinterpret_cast<const char*>(&numbers), sizeof numbers), ...);
    return bytes;
}

/// A text's record of version 0 or 1, with that many points of outline.
inline QByteArray OldText(int version, const QByteArray& text, int points = 0)
{
    const QByteArray family = "Arial";
    return QByteArray(40, '\0') + Raw(points) + QByteArray(9 * points, '\0') + Raw(int32_t{6}, int32_t(text.size())) +
           text + Raw(int32_t(family.size())) + family + QByteArray(3, '\0') + Raw(4.0) +
           (version == 0 ? QByteArray() : Raw(0.0));
}

/// The bytes as the document library takes a file.
inline std::span<const unsigned char> Span(const QByteArray& bytes)
{
    return {reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<size_t>(bytes.size())};
}

/// The hex literal as StreamFile::Hex writes it: lower case, without blanks.
inline std::string Compact(const std::string& hex)
{
    std::string digits;
    for (char c : hex)
        if (c != ' ')
            digits += static_cast<char>(std::tolower(c));
    return digits;
}

/// Guide lines as a new shape has them: mode 1, lead-in and lead-out on and 3 long.
inline const std::string kDefaultGuide = "01000000 01000000 0000000000000840 01000000 00000000 0000000000000840 ";
/// The common record of a new shape: state, colour, guide lines, no points.
inline const std::string kEmptyCommon = "00000000 00000000 " + kDefaultGuide + "00000000 ";

class StreamFile
{
public:
    /// Holds the bytes of the hex literal (blanks are ignored) and stands at its beginning.
    explicit StreamFile(const std::string& hex = {})
    {
        m_file.open();
        Fill(FromHex(hex));
    }

    /// Appends the bytes and goes back to the beginning.
    void Fill(const QByteArray& bytes)
    {
        m_file.write(bytes);
        m_file.seek(0);
    }

    QFile* File() { return &m_file; }

    void Rewind() { m_file.seek(0); }

    /// All bytes; the position stays.
    QByteArray Bytes()
    {
        const qint64 position = m_file.pos();
        m_file.seek(0);
        const QByteArray bytes = m_file.readAll();
        m_file.seek(position);
        return bytes;
    }
    /// All bytes, as lower-case hex digits; the position stays.
    std::string Hex() { return Bytes().toHex().toStdString(); }

private:
    QTemporaryFile m_file;
};

} // namespace test
