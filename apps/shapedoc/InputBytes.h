/// The bytes of a file to be examined, however large or damaged it is.
#pragma once

#include "RecordWalk.h"

#include <QString>

#include <memory>

class QFile;

/// A regular file that is not empty, or the standard input, mapped into memory.
class InputBytes
{
public:
    /// Throws Failure.
    explicit InputBytes(const QString& file);
    ~InputBytes();
    InputBytes(const InputBytes&) = delete;
    InputBytes& operator=(const InputBytes&) = delete;

    /// Valid as long as the object.
    Bytes All() const { return m_bytes; }

private:
    std::unique_ptr<QFile> m_file;
    Bytes m_bytes;
};

/// The bytes of a file that is open for reading, as long as it is. Throws Failure, naming file as name.
Bytes MappedBytes(QFile& file, const QString& name);

/// Where the list stream begins, as far as the file tells.
struct StreamStart
{
    int64_t offset = 0;         ///< of the list stream
    int version = -1;           ///< -1: a bare stream, or the header's is none that can be read
    std::optional<Fault> fault; ///< of the header

    bool Bare() const { return offset == 0; }
};

/// A file with most of the letters that documents begin with counts as a document with a damaged header.
StreamStart FindStream(Bytes file);
