#include "svg/LinkedPicture.h"

#include "svg/FileKind.h"

#include "image/PictureHeader.h"

#include <QBuffer>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QUrl>

namespace shapedocument::drawing {

namespace {

constexpr qint64 kLargestFile = 64 << 20;
constexpr qint64 kMostLinkedPixels = 100'000'000;

QByteArray DataOf(const QString& uri)
{
    const qsizetype comma = uri.indexOf(u',');
    const QByteArray data = QByteArray::fromPercentEncoding(uri.mid(comma + 1).toLatin1());
    return QStringView(uri).left(comma).contains(u";base64", Qt::CaseInsensitive) ? QByteArray::fromBase64(data) : data;
}

/// The file's path; empty when it is not in the drawing's folder or below.
QString PathBeside(const QString& reference, const QString& baseFile)
{
    const QUrl url = QUrl::fromLocalFile(QFileInfo(baseFile).absoluteFilePath()).resolved(QUrl(reference));
    if (baseFile.isEmpty() || !url.isLocalFile() || !url.host().isEmpty())
        return {};
    const QString folder = QFileInfo(QFileInfo(baseFile).absolutePath()).canonicalFilePath();
    const QString path = QFileInfo(url.toLocalFile()).canonicalFilePath();
    const QString inside = folder.endsWith(u'/') ? folder : folder + u'/';
    return path.isEmpty() || path.startsWith(inside) ? url.toLocalFile() : QString();
}

bool IsDrawing(const QByteArray& bytes)
{
    constexpr int kBegin = 4096;
    return IsCompressed(bytes) || bytes.left(kBegin).contains("<svg") || bytes.left(kBegin).contains("<!DOCTYPE svg");
}

bool IsJpeg(const QByteArray& bytes)
{
    return bytes.startsWith("\xff\xd8\xff");
}

bool IsPng(const QByteArray& bytes)
{
    return bytes.startsWith("\x89PNG\r\n\x1a\n");
}

/// The part that can be read, as PNG; empty for none.
QByteArray AsPng(QImageReader& reader)
{
    QBuffer png;
    const QImage image = reader.read();
    if (image.isNull() || !png.open(QIODevice::WriteOnly) || !image.save(&png, "PNG"))
        return {};
    return png.data();
}

void ReadPicture(Linked& linked)
{
    QByteArray bytes = linked.bytes;
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    const QSize size = reader.size();
    if (!reader.canRead() || !size.isValid() || qint64{size.width()} * size.height() > kMostLinkedPixels)
        return;
    linked.incomplete = shapes::EndsEarly(
        {reinterpret_cast<const unsigned char*>(bytes.constData()), static_cast<size_t>(bytes.size())});
    if (linked.incomplete || (!IsJpeg(bytes) && !IsPng(bytes)))
        linked.bytes = AsPng(reader);
    if (!linked.bytes.isEmpty())
        linked.kind = LinkedKind::Picture;
}

} // namespace

Linked ResolvePicture(const QString& reference, const QString& baseFile)
{
    Linked linked;
    if (reference.startsWith("data:", Qt::CaseInsensitive)) {
        linked.bytes = DataOf(reference);
    } else {
        const QString path = PathBeside(reference, baseFile);
        if (path.isEmpty())
            return {LinkedKind::Elsewhere, {}, false};
        const QFileInfo info(path);
        QFile file(path);
        if (!info.isFile() || info.size() > kLargestFile || !file.open(QIODevice::ReadOnly))
            return linked;
        linked.bytes = file.readAll();
    }
    if (IsDrawing(linked.bytes))
        linked.kind = LinkedKind::Drawing;
    else
        ReadPicture(linked);
    return linked;
}

QString DataUri(const Linked& linked)
{
    const char* type = linked.kind == LinkedKind::Drawing ? "image/svg+xml"
                       : IsJpeg(linked.bytes)             ? "image/jpeg"
                                                          : "image/png";
    return QString("data:%1;base64,").arg(type) + QString::fromLatin1(linked.bytes.toBase64());
}

} // namespace shapedocument::drawing
