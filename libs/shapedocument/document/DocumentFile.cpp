#include "document/DocumentFile.h"

#include "document/Failure.h"
#include "document/InputFile.h"
#include "document/ShapeWalk.h"
#include "document/TextFindings.h"

#include "record/RecordFormat.h"
#include "shape/Shape.h"

#include <QFile>
#include <QtEndian>

namespace shapedocument {

namespace {

constexpr char kMagic[] = "SHAPEDOC";
constexpr int kMagicLength = 8;
constexpr int kUnknownShape = 5;

/// Reads the header and answers the version in it.
int ReadHeader(QFile& file, const QString& name)
{
    if (file.read(kMagicLength) != kMagic)
        throw Failure{name, "is no shape document"};
    const QByteArray bytes = file.read(sizeof(qint32));
    if (bytes.size() < int(sizeof(qint32)))
        throw Failure{name, "ends within its header"};
    const int version = qFromLittleEndian<qint32>(bytes.constData());
    if (version < 0 || version > SHAPE_DOCUMENT_VERSION)
        throw Failure{name, QString("has version %1; 0 to %2 can be read").arg(version).arg(SHAPE_DOCUMENT_VERSION)};
    return version;
}

QString ReadError(int code)
{
    if (code == kUnknownShape)
        return "holds an unknown kind of shape, or ends too early (code 5)";
    return QString("cannot be read (code %1)").arg(code);
}

} // namespace

Document NewDocument()
{
    return NewShapeList();
}

OpenedDocument ReadDocument(const QString& name, const StreamFormat& format)
{
    const std::unique_ptr<QFile> file = OpenInput(name);
    return ReadDocument(*file, InputName(name), format);
}

OpenedDocument ReadDocument(QFile& file, const QString& name, const StreamFormat& format)
{
    const int version = format.bare ? format.version : ReadHeader(file, name);
    if (file.bytesAvailable() < qint64(sizeof(quint32)))
        throw Failure{name, "holds no shape list"};
    TextFindings findings;
    if (version <= shapes::kLastVersionOfOutlinedTexts)
        findings.AddRecords(file, version);
    Document document = NewDocument();
    const int code = document->Read(&file, version);
    if (file.error() != QFile::NoError)
        throw Failure{name, "cannot be read: " + file.errorString()};
    if (code != 0)
        throw Failure{name, ReadError(code)};
    if (!file.atEnd())
        throw Failure{name, QString("goes on behind its last shape (%1 bytes)").arg(file.bytesAvailable())};
    findings.Add(*document);
    return {std::move(document), version, findings.Lines()};
}

void WriteHeader(QFile& file)
{
    qint32 version = 0;
    qToLittleEndian(qint32(SHAPE_DOCUMENT_VERSION), &version);
    file.write(kMagic, kMagicLength);
    file.write(reinterpret_cast<const char*>(&version), sizeof version);
}

void WriteDocument(const Target& target, CShapeList& document, const StreamFormat& format)
{
    WriteFile(target, [&](QFile& file) {
        if (!format.bare)
            WriteHeader(file);
        document.Save(&file);
    });
}

} // namespace shapedocument
