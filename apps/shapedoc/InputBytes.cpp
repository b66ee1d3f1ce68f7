#include "InputBytes.h"

#include "Failure.h"
#include "InputFile.h"

#include <QFile>

#include <algorithm>
#include <string_view>

namespace {

constexpr std::string_view kMagic = "SHAPEDOC";
constexpr int64_t kHeaderBytes = 12;
constexpr int kRecognisedLetters = 5; ///< of the magic's; a bare stream that has as many would count a billion shapes

Fault HeaderFault(int64_t offset, const char* field, const QString& reason)
{
    return {offset, QString("header > ") + field, reason};
}

} // namespace

InputBytes::InputBytes(const QString& file) : m_file(OpenInput(file)), m_bytes(MappedBytes(*m_file, InputName(file))) {}

InputBytes::~InputBytes() = default;

Bytes MappedBytes(QFile& file, const QString& name)
{
    if (file.size() == 0)
        throw Failure{name, "is empty"};
    const unsigned char* bytes = file.map(0, file.size());
    if (!bytes)
        throw Failure{name, "cannot be read: " + file.errorString()};
    return {bytes, static_cast<size_t>(file.size())};
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
