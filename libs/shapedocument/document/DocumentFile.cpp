#include "document/DocumentFile.h"

#include "document/CheckedFile.h"
#include "document/Failure.h"
#include "document/FileHeader.h"
#include "document/InputBytes.h"
#include "document/InputFile.h"
#include "document/RepairedDocument.h"
#include "document/ShapeWalk.h"
#include "document/TextFindings.h"
#include "document/WatchedFile.h"

#include "record/RecordFormat.h"
#include "shape/Shape.h"

#include <QFile>

namespace shapedocument {

namespace {

constexpr int kUnknownShape = 5;

bool HasHeader(QFile& file)
{
    return file.peek(kFileHeaderBytes).startsWith(kFileMagic);
}

/// A hint to --bare and the version if the file is a bare stream; otherwise empty.
QString BareHint(QFile& file, const QString& name, const WorkProgress& progress)
{
    if (file.size() == 0)
        return "";
    const Bytes bytes = MappedBytes(file, name);
    const FittingVersions found = FindVersions(bytes, 0, WatchOf(progress, WorkStep::Reading, bytes));
    if (found.versions.empty())
        return "";
    const int version = found.versions.back();
    return "; it is a bare list stream of version " + found.Text() + ", which is read with --bare" +
           (version == SHAPE_DOCUMENT_VERSION ? "" : QString(" --version %1").arg(version));
}

/// The version to read the stream with; leaves the file at the start of the stream.
int FindVersion(QFile& file, const QString& name, const StreamFormat& format, const WorkProgress& progress)
{
    if (format.bare && HasHeader(file))
        throw Failure{name, "begins with the header of document files; it is read without --bare"};
    if (format.bare)
        return format.version;
    if (!HasHeader(file))
        throw Failure{name, "is no shape document" + BareHint(file, name, progress)};
    return ReadHeader(file, name);
}

QString ReadError(int code)
{
    if (code == kUnknownShape)
        return "holds an unknown kind of shape, or ends too early (code 5)";
    return QString("cannot be read (code %1)").arg(code);
}

/// Writes the header, unless format is bare, and the list.
void WriteStream(QFile& file, CShapeList& document, const StreamFormat& format, const WorkProgress& progress)
{
    if (!format.bare)
        WriteHeader(file);
    WatchedFile watched(file, progress, WorkStep::Saving);
    document.Save(progress ? &watched : &file);
    watched.ExpectGoesOn();
}

/// Returns the shape library's error code.
int ReadList(QFile& file, CShapeList& document, int version, const WorkProgress& progress)
{
    WatchedFile watched(file, progress, WorkStep::Reading);
    const int code = document.Read(progress ? &watched : &file, version);
    watched.ExpectGoesOn();
    return code;
}

void ExpectTaken(UnnamedFile& file, const QString& name)
{
    if (!file.WroteAll())
        throw Failure{name, "no room for a temporary file: " + file.Reason()};
    file.seek(0);
}

/// The shape library reads zeros behind the end of a stream, with success: a last shape that is cut would have lines to
/// the origin.
void RefuseCutStream(QFile& file, qint64 start, const QString& name, int version, const WorkProgress& progress)
{
    const Bytes bytes = MappedBytes(file, name);
    const ByteWatch watch = WatchOf(progress, WorkStep::Reading, bytes);
    const std::optional<Fault> fault = CheckStream(bytes, start, version, watch).fault;
    if (fault && fault->cut)
        throw Failure{name, QString("ends within its last shape (byte %1): %2").arg(fault->offset).arg(fault->path)};
}

} // namespace

Document NewDocument()
{
    return NewShapeList();
}

OpenedDocument ReadDocument(const QString& name, const StreamFormat& format, const WorkProgress& progress)
{
    const std::unique_ptr<QFile> file = OpenInput(name);
    return ReadDocument(*file, InputName(name), format, progress);
}

OpenedDocument ReadDocument(QFile& file, const QString& name, const StreamFormat& format, const WorkProgress& progress)
{
    const int version = FindVersion(file, name, format, progress);
    if (file.bytesAvailable() < qint64(sizeof(quint32)))
        throw Failure{name, "holds no shape list"};
    const qint64 start = file.pos();
    TextFindings findings;
    if (version <= shapes::kLastVersionOfOutlinedTexts)
        findings.AddRecords(file, version);
    Document document = NewDocument();
    const int code = ReadList(file, *document, version, progress);
    if (file.error() != QFile::NoError)
        throw Failure{name, "cannot be read: " + file.errorString()};
    if (code != 0)
        throw Failure{name, ReadError(code)};
    if (!file.atEnd())
        throw Failure{name, QString("goes on behind its last shape (%1 bytes)").arg(file.bytesAvailable())};
    RefuseCutStream(file, start, name, version, progress);
    findings.Add(*document);
    return {std::move(document), version, findings.Lines(progress)};
}

OpenedDocument ReadDocument(Bytes bytes, const QString& name, const StreamFormat& format, const WorkProgress& progress)
{
    UnnamedFile file(name);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<qint64>(bytes.size()));
    ExpectTaken(file, name);
    return ReadDocument(file, name, format, progress);
}

QByteArray DocumentBytes(CShapeList& document, const QString& name, const StreamFormat& format,
                         const WorkProgress& progress)
{
    UnnamedFile file(name);
    WriteStream(file, document, format, progress);
    ExpectTaken(file, name);
    return file.readAll();
}

void WriteDocument(const Target& target, CShapeList& document, const StreamFormat& format, const WorkProgress& progress)
{
    WriteFile(target, [&](QFile& file) { WriteStream(file, document, format, progress); });
}

} // namespace shapedocument
