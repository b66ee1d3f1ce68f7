#include "svg/FileKind.h"

#include <gio/gio.h>

#include <algorithm>
#include <array>
#include <memory>

namespace shapedocument::drawing {

namespace {

struct Kind
{
    QByteArrayView begin;
    const char* name;
};

const std::array<Kind, 13> kKinds{{
    {"\x89PNG", "a PNG picture"},
    {"\xff\xd8\xff", "a JPEG picture"},
    {"GIF8", "a GIF picture"},
    {"BM", "a BMP picture"},
    {"II*", "a TIFF picture"},
    {"MM\0*", "a TIFF picture"},
    {"RIFF", "a WebP picture"},
    {"%PDF", "a PDF document"},
    {"%!PS", "a PostScript document"},
    {"PK\x03\x04", "a ZIP archive"},
    {"SHAPEDOC", "a shape document"},
    {"AutoCAD Binary DXF", "a DXF drawing"},
    {"\x7f\x45LF", "a program"},
}};

struct Unref
{
    void operator()(gpointer object) const { g_object_unref(object); }
};

} // namespace

QString KindOf(const QByteArray& bytes)
{
    const auto kind =
        std::find_if(kKinds.begin(), kKinds.end(), [&](const Kind& one) { return bytes.startsWith(one.begin); });
    return kind == kKinds.end() ? QString() : QString(kind->name);
}

bool IsCompressed(const QByteArray& bytes)
{
    return bytes.startsWith("\x1f\x8b");
}

QByteArray Unpacked(const QByteArray& bytes, qsizetype most)
{
    constexpr size_t kChunk = 1 << 16;
    const std::unique_ptr<GZlibDecompressor, Unref> converter(g_zlib_decompressor_new(G_ZLIB_COMPRESSOR_FORMAT_GZIP));
    QByteArray unpacked;
    std::array<char, kChunk> chunk;
    for (qsizetype from = 0;;) {
        gsize read = 0, written = 0;
        const auto result = g_converter_convert(G_CONVERTER(converter.get()), bytes.constData() + from,
                                                static_cast<gsize>(bytes.size() - from), chunk.data(), chunk.size(),
                                                G_CONVERTER_INPUT_AT_END, &read, &written, nullptr);
        unpacked.append(chunk.data(), static_cast<qsizetype>(written));
        from += static_cast<qsizetype>(read);
        if (result == G_CONVERTER_FINISHED)
            return unpacked;
        if (result == G_CONVERTER_ERROR || unpacked.size() > most || (read == 0 && written == 0))
            return {};
    }
}

} // namespace shapedocument::drawing
