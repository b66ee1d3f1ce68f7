#include "document/RepairedDocument.h"

#include "document/CheckedFile.h"
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "document/FileHeader.h"
#include "document/InputBytes.h"
#include "document/WatchedFile.h"

#include "record/RecordFormat.h"

#include <QFile>

namespace shapedocument {

namespace {

/// What is written behind the header: the saved stream as it is, or the list read from it if it is of an older version.
class RepairedStream
{
public:
    RepairedStream(Bytes bytes, const FoundShapes& found, const QString& name, const WorkProgress& progress)
        : m_stream(SavedStream(bytes, found.salvage))
    {
        if (found.version >= shapes::FirstVersionLike(shapes::kLatestVersion))
            return;
        const Bytes saved(reinterpret_cast<const unsigned char*>(m_stream.constData()),
                          static_cast<size_t>(m_stream.size()));
        OpenedDocument opened = ReadDocument(saved, name, {true, found.version}, progress);
        m_upgraded = std::move(opened.shapes);
        warnings = std::move(opened.warnings);
    }

    void Write(QFile& file, const WorkProgress& progress) const
    {
        WriteHeader(file);
        WatchedFile watched(file, progress, WorkStep::Saving);
        if (m_upgraded)
            m_upgraded->Save(progress ? &watched : &file);
        else
            (progress ? watched : file).write(m_stream);
        watched.ExpectGoesOn();
    }

    QStringList warnings;

private:
    QByteArray m_stream;
    Document m_upgraded; ///< null where the stream is of the present version
};

/// Throws Failure if the written document is not clean.
void ExpectClean(QFile& file, const QString& name, const WorkProgress& progress)
{
    const Bytes written = MappedBytes(file, name);
    const StreamStart start = FindStream(written);
    const ByteWatch watch = WatchOf(progress, WorkStep::Checking, written);
    if (const auto fault = CheckStream(written, start.offset, shapes::kLatestVersion, watch).fault)
        throw Failure{name, QString("would not be clean, %1: %2").arg(fault->path, fault->reason)};
}

QString FaultText(const std::optional<Fault>& fault)
{
    return fault ? QString("%1: byte %2: %3").arg(fault->path).arg(fault->offset).arg(fault->reason) : "no fault";
}

/// ": 12, 345 and 7 more"; empty if there are no places.
QString PlacesText(const QStringList& places)
{
    constexpr qsizetype kPlacesToTell = 10;
    const auto told = std::min<qsizetype>(places.size(), kPlacesToTell);
    QString text = places.isEmpty() ? "" : ": " + QStringList(places.first(told)).join(", ");
    if (places.size() > told)
        text += QString(" and %1 more").arg(places.size() - told);
    return text;
}

QString PlacesText(const std::vector<int64_t>& numbers)
{
    QStringList texts;
    for (const int64_t number : numbers)
        texts.append(QString::number(number));
    return PlacesText(texts);
}

QString PlacesText(const std::vector<ByteRange>& ranges)
{
    QStringList texts;
    for (const ByteRange& range : ranges)
        texts.append(QString("%1 to %2").arg(range.begin).arg(range.end - 1));
    return PlacesText(texts);
}

/// Numbers are those in the damaged file: a vector of an older version may become two when it is saved.
QString MendedText(const Salvage& salvage, int version)
{
    return "replaced values, at byte" + PlacesText(salvage.mended) + "; look at shape" +
           PlacesText(salvage.mendedShapes) +
           (version <= shapes::kLastVersionOfSplitVectors ? " of the damaged file" : "");
}

} // namespace

ByteWatch WatchOf(const WorkProgress& progress, WorkStep step, Bytes bytes)
{
    if (!progress)
        return {};
    return [watch = WorkWatch(progress, step, bytes.size())](int64_t at) mutable { watch.At(static_cast<size_t>(at)); };
}

std::optional<FoundShapes> FindShapes(Bytes bytes, std::optional<int> version, const WorkProgress& progress)
{
    const StreamStart start = FindStream(bytes);
    const ByteWatch watch = WatchOf(progress, WorkStep::Searching, bytes);
    const int used = RepairVersion(bytes, start, version.value_or(-1), watch);
    FoundShapes found{used, CheckStream(bytes, start.offset, used, watch).fault,
                      SalvageStream(bytes, start.offset, used, watch)};
    if (found.salvage.Empty() && found.fault)
        return std::nullopt;
    if (start.fault)
        found.fault = start.fault;
    return found;
}

QStringList RepairLines(const FoundShapes& found)
{
    const Salvage& salvage = found.salvage;
    QStringList lines{
        QString("version %1, ").arg(found.version) + FaultText(found.fault),
        QString("kept: %1 shapes before the fault, %2 behind it").arg(salvage.keptBefore).arg(salvage.recovered)};
    if (salvage.openGroups > 0)
        lines << QString("groups and arrays that have lost members or cells: %1").arg(salvage.openGroups);
    if (!salvage.mended.empty())
        lines << MendedText(salvage, found.version);
    lines << QString("left out: %1 bytes").arg(salvage.SkippedBytes()) + PlacesText(salvage.skipped) +
                 (salvage.gaveUp ? "; the search was given up before the end" : "");
    return lines;
}

QStringList WriteRepaired(const Target& target, Bytes bytes, const FoundShapes& found, const WorkProgress& progress)
{
    const QString name = OutputName(target);
    const RepairedStream stream(bytes, found, name, progress);
    WriteFile(
        target, [&](QFile& file) { stream.Write(file, progress); },
        [&](QFile& file) { ExpectClean(file, name, progress); });
    return stream.warnings;
}

QByteArray RepairedBytes(Bytes bytes, const FoundShapes& found, const QString& name, QStringList& warnings,
                         const WorkProgress& progress)
{
    const RepairedStream stream(bytes, found, name, progress);
    UnnamedFile file(name);
    stream.Write(file, progress);
    if (!file.WroteAll())
        throw Failure{name, "no room for a temporary file: " + file.Reason()};
    ExpectClean(file, name, progress);
    warnings = stream.warnings;
    file.seek(0);
    return file.readAll();
}

} // namespace shapedocument
