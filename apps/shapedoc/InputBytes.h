/// The bytes of a file to be examined, however large or damaged it is.
#pragma once

#include "RecordWalk.h"

#include <QFile>

/// A regular file that is not empty, mapped into memory.
class InputBytes
{
public:
    /// Throws Failure.
    explicit InputBytes(const QString& name);

    /// Valid as long as the object.
    Bytes All() const { return m_bytes; }

private:
    QFile m_file;
    Bytes m_bytes;
};

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
