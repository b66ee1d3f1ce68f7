#include "MemoryFile.h"

#include <sys/mman.h>

#include <cstdlib>

namespace fuzz {

MemoryFile::MemoryFile(Bytes bytes) : m_descriptor(memfd_create("fuzz", 0))
{
    if (!m_file.open(m_descriptor, QIODevice::ReadWrite, QFileDevice::AutoCloseHandle))
        std::abort();
    m_file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    m_file.seek(0);
}

QByteArray MemoryFile::Name() const
{
    return "/proc/self/fd/" + QByteArray::number(m_descriptor);
}

QByteArray MemoryFile::Content()
{
    m_file.seek(0);
    return m_file.readAll();
}

} // namespace fuzz
