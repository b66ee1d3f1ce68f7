#include "document/RepairedDocument.h"

#include "document/CheckedFile.h"
#include "document/DocumentFile.h"
#include "document/Failure.h"
#include "document/FileHeader.h"
#include "document/InputBytes.h"

#include "record/RecordFormat.h"

#include <QFile>

namespace shapedocument {

namespace {

/// What is written behind the header: the saved stream as it is, or the list read from it if it is of an older version.
class RepairedStream
{
public:
    RepairedStream(Bytes bytes, const FoundShapes& found, const QString& name)
        : m_stream(SavedStream(bytes, found.salvage))
    {
        if (found.version >= shapes::FirstVersionLike(shapes::kLatestVersion))
            return;
        const Bytes saved(reinterpret_cast<const unsigned char*>(m_stream.constData()),
                          static_cast<size_t>(m_stream.size()));
        OpenedDocument opened = ReadDocument(saved, name, {true, found.version});
        m_upgraded = std::move(opened.shapes);
        warnings = std::move(opened.warnings);
    }

    void Write(QFile& file) const
    {
        WriteHeader(file);
        if (m_upgraded)
            m_upgraded->Save(&file);
        else
            file.write(m_stream);
    }

    QStringList warnings;

private:
    QByteArray m_stream;
    Document m_upgraded; ///< null where the stream is of the present version
};

/// Throws Failure if the written document is not clean.
void ExpectClean(QFile& file, const QString& name)
{
    const Bytes written = MappedBytes(file, name);
    const StreamStart start = FindStream(written);
    if (const auto fault = CheckStream(written, start.offset, shapes::kLatestVersion).fault)
        throw Failure{name, QString("would not be clean, %1: %2").arg(fault->path, fault->reason)};
}

} // namespace

std::optional<FoundShapes> FindShapes(Bytes bytes, std::optional<int> version)
{
    const StreamStart start = FindStream(bytes);
    const int used = RepairVersion(bytes, start, version.value_or(-1));
    FoundShapes found{used, CheckStream(bytes, start.offset, used).fault, SalvageStream(bytes, start.offset, used)};
    if (found.salvage.Empty() && found.fault)
        return std::nullopt;
    if (start.fault)
        found.fault = start.fault;
    return found;
}

QStringList WriteRepaired(const Target& target, Bytes bytes, const FoundShapes& found)
{
    const QString name = OutputName(target);
    const RepairedStream stream(bytes, found, name);
    WriteFile(
        target, [&](QFile& file) { stream.Write(file); }, [&](QFile& file) { ExpectClean(file, name); });
    return stream.warnings;
}

QByteArray RepairedBytes(Bytes bytes, const FoundShapes& found, const QString& name, QStringList& warnings)
{
    const RepairedStream stream(bytes, found, name);
    UnnamedFile file(name);
    stream.Write(file);
    if (!file.Taken())
        throw Failure{name, "no room for a temporary file: " + file.Reason()};
    ExpectClean(file, name);
    warnings = stream.warnings;
    file.seek(0);
    return file.readAll();
}

} // namespace shapedocument
