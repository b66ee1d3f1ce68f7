/// The bytes of a file of any size, mapped into memory.
#pragma once

#include "check/StreamCheck.h"
#include "shapedocument_export.h"

#include <QString>

#include <memory>

class QFile;

namespace shapedocument {

/// A regular file that is not empty, or the standard input, mapped into memory.
class SHAPEDOCUMENT_EXPORT InputBytes
{
public:
    /// Throws Failure. Cost: O(1), for the standard input O(bytes); pages are read when they are accessed.
    explicit InputBytes(const QString& file);
    ~InputBytes();
    InputBytes(const InputBytes&) = delete;
    InputBytes& operator=(const InputBytes&) = delete;

    /// Valid as long as this object lives.
    Bytes All() const { return m_bytes; }

private:
    std::unique_ptr<QFile> m_file;
    Bytes m_bytes;
};

/// The bytes of a file that is open for reading; valid until it is closed. name is for messages. Throws Failure. Cost:
/// O(1); pages are read when they are accessed.
SHAPEDOCUMENT_EXPORT Bytes MappedBytes(QFile& file, const QString& name);

} // namespace shapedocument
