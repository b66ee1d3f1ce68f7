#include "InputBytes.h"

#include "Failure.h"

#include <QFileInfo>

#include <algorithm>
#include <csignal>
#include <string_view>
#include <unistd.h>

namespace {

constexpr std::string_view kMagic = "SHAPEDOC";
constexpr int64_t kHeaderBytes = 12;
constexpr int kRecognisedLetters = 5; ///< of the magic's; a bare stream that has as many would count a billion shapes

/// The disk does not give a page of the mapped file, or somebody has cut the file short.
void EndOnLostPage(int)
{
    constexpr std::string_view kWords = "shapedoc: the file cannot be read to its end\n";
    if (write(STDERR_FILENO, kWords.data(), kWords.size()) < 0)
        _exit(1);
    _exit(1);
}

Fault HeaderFault(int64_t offset, const char* field, const QString& reason)
{
    return {offset, QString("header > ") + field, reason};
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

StreamStart FindStream(Bytes file)
{
    const size_t shared = std::min(file.size(), kMagic.size());
    const auto [wrong, _] = std::mismatch(kMagic.begin(), kMagic.begin() + shared, file.begin());
    int letters = 0;
    for (size_t i = 0; i < shared; ++i)
        letters += file[i] == static_cast<unsigned char>(kMagic[i]);
    if (letters < kRecognisedLetters)
        return {};
    StreamStart start{kHeaderBytes, -1, std::nullopt};
    int32_t version = 0;
    const auto left = static_cast<int64_t>(file.size() - shared);
    if (wrong != kMagic.end())
        start.fault = HeaderFault(wrong - kMagic.begin(), "magic", "is not \"SHAPEDOC\"");
    if (left < static_cast<int64_t>(sizeof version)) {
        start.offset = static_cast<int64_t>(file.size());
        start.fault =
            HeaderFault(static_cast<int64_t>(shared), "version", QString("needs 4 bytes, %1 are left").arg(left));
        return start;
    }
    std::memcpy(&version, file.data() + shared, sizeof version);
    if (Limits{kFirstVersion, kLatestVersion}.Holds(version))
        start.version = version;
    else if (!start.fault)
        start.fault =
            HeaderFault(static_cast<int64_t>(shared), "version",
                        QString("%1 is outside %2 to %3").arg(version).arg(kFirstVersion).arg(kLatestVersion));
    return start;
}
