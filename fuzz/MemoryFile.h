/// A file in memory. The library reads and writes a QFile, and runs must not leave anything on a disk.
#pragma once

#include <QByteArray>
#include <QFile>

#include <cstddef>
#include <cstdint>
#include <span>

namespace fuzz {

using Bytes = std::span<const uint8_t>;

class MemoryFile
{
public:
    /// Opened for reading and writing, positioned at the start of the bytes.
    explicit MemoryFile(Bytes bytes = {});

    QFile& File() { return m_file; }
    /// A name under which the same bytes can be opened while this object lives.
    QByteArray Name() const;
    /// Everything in the file, wherever its position is.
    QByteArray Content();

private:
    int m_descriptor;
    QFile m_file;
};

} // namespace fuzz
