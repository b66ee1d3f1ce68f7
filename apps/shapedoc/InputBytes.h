/// The bytes of a file to be examined, however large or damaged it is.
#pragma once

#include "check/StreamCheck.h"

#include <QFile>

/// A regular file that is not empty, mapped into memory.
class InputBytes
{
public:
    /// Throws Failure.
    explicit InputBytes(const QString& name);

    /// Valid as long as the object.
    shapedocument::Bytes All() const { return m_bytes; }

private:
    QFile m_file;
    shapedocument::Bytes m_bytes;
};
