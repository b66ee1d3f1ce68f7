#include "DocumentFile.h"

#include "Failure.h"
#include "OutputFile.h"
#include "ShapeWalk.h"
#include "TextWarnings.h"

#include "shape/Shape.h"

#include <QFile>
#include <QtEndian>

namespace {

constexpr char kMagic[] = "SHAPEDOC";
constexpr int kMagicLength = 8;
constexpr int kUnknownShape = 5;
constexpr int kLastVersionOfTextOutlines = 1; ///< texts up to here are read as vectors

/// Reads the header and answers the version in it.
int ReadHeader(QFile& file)
{
    if (file.read(kMagicLength) != kMagic)
        throw Failure{file.fileName(), "is no shape document"};
    const QByteArray bytes = file.read(sizeof(qint32));
    if (bytes.size() < int(sizeof(qint32)))
        throw Failure{file.fileName(), "ends within its header"};
    const int version = qFromLittleEndian<qint32>(bytes.constData());
    if (version < 0 || version > kDocumentVersion)
        throw Failure{file.fileName(),
                      QString("has version %1; 0 to %2 can be read").arg(version).arg(kDocumentVersion)};
    return version;
}

QString ReadError(int code)
{
    if (code == kUnknownShape)
        return "holds an unknown kind of shape, or ends too early (code 5)";
    return QString("cannot be read (code %1)").arg(code);
}

} // namespace

void FreeDocument::operator()(CShapeList* list) const
{
    // A shape itself leaves an empty path to whoever may hold on to it.
    ForEachShape(*list, [](CShape& shape, int) { CShape::DeletePath(&shape); });
    list->DeleteAll();
    CShapeList::Release(list);
}

Document NewDocument()
{
    return Document(CShapeList::New());
}

Document ReadDocument(const QString& name, const StreamFormat& format, int* usedVersion)
{
    QFile file(name);
    if (!file.open(QIODevice::ReadOnly))
        throw Failure{name, "cannot be opened: " + file.errorString()};
    const int version = format.bare ? format.version : ReadHeader(file);
    if (file.bytesAvailable() < qint64(sizeof(quint32)))
        throw Failure{name, "holds no shape list"};
    TextWarnings warnings;
    if (version <= kLastVersionOfTextOutlines)
        warnings.AddRecords(file, version);
    Document document = NewDocument();
    const int code = document->Read(&file, version);
    if (file.error() != QFile::NoError)
        throw Failure{name, "cannot be read: " + file.errorString()};
    if (code != 0)
        throw Failure{name, ReadError(code)};
    if (!file.atEnd())
        throw Failure{name, QString("goes on behind its last shape (%1 bytes)").arg(file.bytesAvailable())};
    if (usedVersion)
        *usedVersion = version;
    warnings.Add(*document);
    warnings.Tell();
    return document;
}

void WriteHeader(QFile& file)
{
    qint32 version = 0;
    qToLittleEndian(qint32(kDocumentVersion), &version);
    file.write(kMagic, kMagicLength);
    file.write(reinterpret_cast<const char*>(&version), sizeof version);
}

void WriteDocument(const QString& name, CShapeList& document, const StreamFormat& format)
{
    WriteFile(name, [&](QFile& file) {
        if (!format.bare)
            WriteHeader(file);
        document.Save(&file);
    });
}
