#include "InputBytes.h"

#include "Failure.h"

#include <QFileInfo>

#include <csignal>
#include <string_view>
#include <unistd.h>

namespace {

/// The disk does not give a page of the mapped file, or somebody has cut the file short.
void EndOnLostPage(int)
{
    constexpr std::string_view kWords = "shapedoc: the file cannot be read to its end\n";
    if (write(STDERR_FILENO, kWords.data(), kWords.size()) < 0)
        _exit(1);
    _exit(1);
}

} // namespace

InputBytes::InputBytes(const QString& name) : m_file(name)
{
    const QFileInfo info(name);
    if (info.exists() && !info.isFile()) // Opening a pipe would wait for its writer.
        throw Failure{name, "is no regular file"};
    if (!m_file.open(QIODevice::ReadOnly))
        throw Failure{name, "cannot be opened: " + m_file.errorString()};
    if (m_file.size() == 0)
        throw Failure{name, "is empty"};
    const unsigned char* bytes = m_file.map(0, m_file.size());
    if (!bytes)
        throw Failure{name, "cannot be read: " + m_file.errorString()};
    std::signal(SIGBUS, EndOnLostPage);
    m_bytes = {bytes, static_cast<size_t>(m_file.size())};
}
