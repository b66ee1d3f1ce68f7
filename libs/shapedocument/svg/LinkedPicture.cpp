#include "svg/LinkedPicture.h"

#include "svg/FileKind.h"

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

/// Empty when the reference does not stay beside the drawing.
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

unsigned BigEndian(QByteArrayView bytes)
{
    unsigned number = 0;
    for (const char byte : bytes)
        number = number << 8 | static_cast<unsigned char>(byte);
    return number;
}

/// From segment to segment, and over the pixels of each scan, to the end's marker.
bool HasJpegEnd(QByteArrayView bytes)
{
    enum Marker : unsigned char
    {
        Stuffed = 0x00,
        FirstRestart = 0xD0,
        LastRestart = 0xD7,
        End = 0xD9,
        Fill = 0xFF
    };
    const auto byte = [&](qsizetype at) { return static_cast<unsigned char>(bytes[at]); };
    for (qsizetype at = 2; at + 1 < bytes.size();) {
        const unsigned char marker = byte(at + 1);
        if (byte(at) != 0xFF || marker == Fill) {
            ++at;
        } else if (marker == End) {
            return true;
        } else if (marker == Stuffed || (marker >= FirstRestart && marker <= LastRestart)) {
            at += 2;
        } else if (at + 4 > bytes.size()) {
            return false;
        } else {
            at += 2 + BigEndian(bytes.sliced(at + 2, 2));
        }
    }
    return false;
}

bool HasPngEnd(QByteArrayView bytes)
{
    constexpr qsizetype kFirstChunk = 8, kFrame = 12; // length, name and sum around a chunk's content
    for (qsizetype at = kFirstChunk; at + kFrame <= bytes.size();) {
        if (bytes.sliced(at + 4, 4) == QByteArrayView("IEND"))
            return true;
        at += kFrame + qsizetype{BigEndian(bytes.sliced(at, 4))};
    }
    return false;
}

unsigned LittleEndian(QByteArrayView bytes)
{
    unsigned number = 0;
    for (qsizetype i = bytes.size(); i > 0; --i)
        number = number << 8 | static_cast<unsigned char>(bytes[i - 1]);
    return number;
}

/// Of the kinds that are decoded without a complaint then.
bool EndsEarly(const QByteArray& bytes)
{
    if (IsJpeg(bytes))
        return !HasJpegEnd(bytes);
    if (IsPng(bytes))
        return !HasPngEnd(bytes);
    if (bytes.startsWith("BM"))
        return LittleEndian(bytes.mid(2, 4)) > bytes.size();
    qsizetype end = bytes.size();
    while (end > 0 && bytes[end - 1] == 0)
        --end;
    return bytes.startsWith("GIF8") && bytes[end - 1] != ';';
}

/// What can be read of it; empty for nothing.
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
    linked.incomplete = EndsEarly(bytes);
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
