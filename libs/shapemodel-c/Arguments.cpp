#include "Arguments.h"

#include <QStringDecoder>

#include <cstring>

namespace capi {

void ExpectBetween(double number, double least, double most, const char* name)
{
    if (!(number >= least && number <= most))
        throw Refusal{SM_BAD_ARGUMENT,
                      QString("%1 is %2, not from %3 to %4").arg(name).arg(number).arg(least).arg(most).toStdString()};
}

QRectF RectOf(const sm_rect& rect)
{
    const QRectF taken(rect.x, rect.y, rect.width, rect.height);
    Expect(shapedocument::WithinReach(taken), SM_BAD_ARGUMENT, "the rectangle goes beyond a kilometre");
    Expect(rect.width > 0 && rect.height > 0, SM_BAD_ARGUMENT, "a side of the rectangle is not above 0");
    return taken;
}

sm_rect RectOf(const QRectF& rect)
{
    const bool known = std::isfinite(rect.x()) && std::isfinite(rect.y()) && std::isfinite(rect.width()) &&
                       std::isfinite(rect.height());
    return known ? sm_rect{rect.x(), rect.y(), rect.width(), rect.height()} : sm_rect{};
}

QString TextOf(const char* text, const char* name, size_t most)
{
    ExpectGiven(text, name);
    const size_t length = strnlen(text, most + 1);
    if (length > most)
        throw Refusal{SM_BAD_ARGUMENT, QString("%1 is longer than %2 bytes").arg(name).arg(most).toStdString()};
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
    QString decoded = decoder(QByteArrayView(text, static_cast<qsizetype>(length)));
    if (decoder.hasError())
        throw Refusal{SM_BAD_ARGUMENT, std::string(name) + " is no UTF-8"};
    return decoded;
}

QString FileOf(const char* name)
{
    constexpr size_t kLongestFileName = 4095; // bytes, the limit of systems
    QString file = TextOf(name, "the file's name", kLongestFileName);
    Expect(!file.isEmpty(), SM_BAD_ARGUMENT, "the file's name is empty");
    return file == "-" ? "./-" : file; // "-" alone would mean a standard stream to the document library
}

std::span<const unsigned char> BytesOf(const void* data, size_t size)
{
    Expect(data || size == 0, SM_BAD_ARGUMENT, "the bytes are null");
    Expect(size <= static_cast<size_t>(PTRDIFF_MAX), SM_BAD_ARGUMENT, "so many bytes cannot be");
    return {static_cast<const unsigned char*>(data), size};
}

bool HasRoom(size_t length, size_t capacity, const void* memory)
{
    Expect(memory || capacity == 0, SM_BAD_ARGUMENT, "the memory is null, its capacity is not 0");
    if (capacity > 0 && capacity < length)
        throw Refusal{SM_TOO_SHORT, QString("%1 do not suffice, %2 do").arg(capacity).arg(length).toStdString()};
    return capacity > 0;
}

} // namespace capi
