/// A document stream in a temporary file: hex in, hex out.
#pragma once

#include <QTemporaryFile>

#include <cctype>
#include <string>

namespace test {

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
        m_file.write(QByteArray::fromHex(QByteArray::fromStdString(hex)));
        m_file.seek(0);
    }

    QFile* File() { return &m_file; }

    void Rewind() { m_file.seek(0); }

    /// All bytes, as lower-case hex digits; the position stays.
    std::string Hex()
    {
        const qint64 position = m_file.pos();
        m_file.seek(0);
        const QByteArray bytes = m_file.readAll();
        m_file.seek(position);
        return bytes.toHex().toStdString();
    }

private:
    QTemporaryFile m_file;
};

} // namespace test
