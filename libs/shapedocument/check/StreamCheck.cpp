#include "check/StreamCheck.h"

#include "check/RecordWalk.h"

#include <QStringList>

#include <algorithm>
#include <cstring>
#include <string_view>

namespace shapedocument {

using shapes::kFirstVersion;
using shapes::kLatestVersion;

namespace {

/// letters of the magic that suffice; in a bare stream they would mean a billion shapes
constexpr int kRecognisedLetters = 5;

Fault HeaderFault(int64_t offset, const char* field, const QString& reason)
{
    return {offset, QString("header > ") + field, reason};
}

} // namespace

StreamStart FindStream(Bytes file)
{
    constexpr std::string_view kMagic = kFileMagic;
    const size_t shared = std::min(file.size(), kMagic.size());
    const auto [wrong, _] = std::mismatch(kMagic.begin(), kMagic.begin() + shared, file.begin());
    int letters = 0;
    for (size_t i = 0; i < shared; ++i)
        letters += file[i] == static_cast<unsigned char>(kMagic[i]);
    if (letters < kRecognisedLetters)
        return {};
    StreamStart start{kFileHeaderBytes, -1, std::nullopt};
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
    if (shapes::Limits{kFirstVersion, kLatestVersion}.Holds(version))
        start.version = version;
    else if (!start.fault)
        start.fault =
            HeaderFault(static_cast<int64_t>(shared), "version",
                        QString("%1 is outside %2 to %3").arg(version).arg(kFirstVersion).arg(kLatestVersion));
    return start;
}

CheckResult CheckStream(Bytes file, int64_t offset, int version, const ByteWatch& watch)
{
    RecordWalk walk(file, version, kStrict, nullptr, &watch);
    if (walk.Stream(offset))
        return {std::nullopt, walk.ShapeCount()};
    return {walk.FirstFault(), walk.ShapeCount()};
}

QString FittingVersions::Text() const
{
    QStringList ranges;
    for (size_t first = 0, last = 0; first < versions.size(); first = ++last) {
        while (last + 1 < versions.size() && versions[last + 1] == versions[last] + 1)
            ++last;
        ranges.append(first == last ? QString::number(versions[first])
                                    : QString("%1 to %2").arg(versions[first]).arg(versions[last]));
    }
    return ranges.join(", ");
}

FittingVersions FindVersions(Bytes file, int64_t offset, const ByteWatch& watch)
{
    FittingVersions found;
    for (int version = kFirstVersion; version <= kLatestVersion; ++version) {
        CheckResult result = CheckStream(file, offset, version, watch);
        if (!result.fault)
            found.versions.push_back(version);
        else if (!found.versions.empty() || (found.result.fault && result.fault->offset < found.result.fault->offset))
            continue;
        else
            found.nearest = version;
        found.result = std::move(result);
    }
    return found;
}

} // namespace shapedocument
