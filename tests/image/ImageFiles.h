/// Bytes of small image files with chosen headers.
#pragma once

#include "support/StreamFile.h"

#include <QtEndian>

#include <opencv2/imgcodecs.hpp>

#include <bit>
#include <map>
#include <vector>

namespace test {

template <class Number>
QByteArray BigEndian(Number value)
{
    return Raw(qToBigEndian(value));
}

/// A little-endian number of that many bytes.
inline QByteArray LittleEndian(int bytes, quint64 value)
{
    return Raw(value).first(bytes);
}

/// Start of image and a JFIF segment.
inline QByteArray Jfif(int unit, int x, int y, const char* name = "JFIF")
{
    return QByteArray("\xFF\xD8\xFF\xE0\x00\x10", 6) + QByteArray(name, 5) + QByteArray("\x01\x02", 2) +
           static_cast<char>(unit) + BigEndian<quint16>(x) + BigEndian<quint16>(y) + QByteArray(2, '\0');
}

/// Start of image and an application segment 1 with that content.
inline QByteArray App1(const QByteArray& content)
{
    return QByteArray("\xFF\xD8\xFF\xE1") + BigEndian<quint16>(content.size() + 2) + content;
}

/// The start of a JPEG with an Exif segment of one directory, which is also a TIFF of its own.
class Exif
{
public:
    explicit Exif(const char* order) : m_order(order), m_big(m_order == "MM") {}

    /// value: as it stands in the entry, left-aligned for formats of less than four bytes.
    Exif& Add(int tag, int format, quint32 components, quint32 value)
    {
        const bool isShort = format == 3 || format == 8;
        const bool isByte = format == 1 || format == 2 || format == 6 || format == 7;
        const QByteArray field = isShort  ? Number<quint16>(value)
                                 : isByte ? QByteArray(1, static_cast<char>(value))
                                          : Number<quint32>(value);
        m_entries +=
            Number<quint16>(tag) + Number<quint16>(format) + Number<quint32>(components) + field.leftJustified(4, '\0');
        ++m_count;
        return *this;
    }
    Exif& AddRational(int tag, int numerator, int denominator, int format = 5)
    {
        return AddFar(tag, format, Number<quint32>(numerator) + Number<quint32>(denominator));
    }
    Exif& AddDouble(int tag, double value) { return AddFar(tag, 12, Number(std::bit_cast<quint64>(value))); }
    Exif& AddFloat(int tag, float value) { return Add(tag, 11, 1, std::bit_cast<quint32>(value)); }

    QByteArray Tiff() const
    {
        return m_order + Number<quint16>(42) + Number<quint32>(8) + Number<quint16>(m_count) + m_entries +
               QByteArray(kFarAway - 10 - m_entries.size(), '\0') + m_far;
    }
    operator QByteArray() const { return App1(QByteArray("Exif\0\0", 6) + Tiff()); }

private:
    static constexpr int kFarAway = 64; ///< TIFF offset of values that do not fit into their entry

    template <class Value>
    QByteArray Number(Value value) const
    {
        return m_big ? BigEndian(value) : LittleEndian(sizeof value, value);
    }
    Exif& AddFar(int tag, int format, const QByteArray& value)
    {
        Add(tag, format, 1, static_cast<quint32>(kFarAway + m_far.size()));
        m_far += value;
        return *this;
    }

    QByteArray m_order, m_entries, m_far;
    bool m_big;
    int m_count = 0;
};

inline QByteArray Encoded(const char* extension, const cv::Mat& picture, const std::vector<int>& parameters = {})
{
    std::vector<unsigned char> bytes;
    cv::imencode(extension, picture, bytes, parameters);
    return {reinterpret_cast<const char*>(bytes.data()), static_cast<qsizetype>(bytes.size())};
}

/// A JPEG picture behind another header than the encoder's own.
inline QByteArray Jpeg(const QByteArray& header, const cv::Mat& picture)
{
    constexpr qsizetype kOwnHeader = 20;
    return header + Encoded(".jpg", picture).mid(kOwnHeader);
}

inline QByteArray PngChunk(const char* name, const QByteArray& content)
{
    const QByteArray checked = name + content;
    quint32 sum = 0xFFFFFFFF;
    for (const char byte : checked) {
        sum ^= static_cast<unsigned char>(byte);
        for (int bit = 0; bit < 8; ++bit)
            sum = (sum >> 1) ^ (sum & 1 ? 0xEDB88320 : 0);
    }
    return BigEndian<quint32>(content.size()) + checked + BigEndian<quint32>(~sum);
}

/// A PNG with pixels per metre (unit 1) or a bare aspect (unit 0).
inline QByteArray PngWithDensity(const cv::Mat& picture, quint32 x, quint32 y, char unit = 1)
{
    constexpr qsizetype kBehindHeaderChunk = 33;
    return Encoded(".png", picture)
        .insert(kBehindHeaderChunk, PngChunk("pHYs", BigEndian(x) + BigEndian(y) + QByteArray(1, unit)));
}

inline QByteArray BmpWithDensity(const cv::Mat& picture, qint32 x, qint32 y)
{
    constexpr qsizetype kDensity = 38;
    return Encoded(".bmp", picture).replace(kDensity, 8, Raw(x, y));
}

/// A grey PNG of 4 pixels of any depth, packed as the hex digits say, with a value that counts as clear.
inline QByteArray GreyPngWithClear(int depth, const std::string& pixels, int clear)
{
    const QByteArray header = BigEndian<quint32>(4) + BigEndian<quint32>(1) + static_cast<char>(depth);
    return QByteArray("\x89PNG\r\n\x1A\n") + PngChunk("IHDR", header + QByteArray(4, '\0')) +
           PngChunk("tRNS", BigEndian<quint16>(clear)) + PngChunk("IDAT", qCompress(FromHex("00" + pixels)).mid(4)) +
           PngChunk("IEND", {}); // filter 0
}

/// A little-endian TIFF. Each field has whole numbers, up to two of them, four in a wide file (of 64-bit offsets). The
/// pixels are one strip a plane.
inline QByteArray Tiff(std::map<int, std::vector<int>> fields, const QByteArray& pixels, int planes, bool wide)
{
    const int offset = wide ? 8 : 4, head = wide ? 16 : 8, size = static_cast<int>(pixels.size());
    fields[279] = std::vector<int>(planes, size / planes);
    for (int i = 0; i < planes; ++i)
        fields[273].push_back(head + i * size / planes);
    QByteArray entries;
    for (const auto& [tag, values] : fields) {
        QByteArray value;
        for (const int number : values)
            value += LittleEndian(2, number);
        entries += LittleEndian(2, tag) + LittleEndian(2, 3) + LittleEndian(offset, values.size()) +
                   value.leftJustified(offset, '\0');
    }
    return (wide ? QByteArray("II+\0\x08\0\0\0", 8) : QByteArray("II*\0", 4)) + LittleEndian(offset, head + size) +
           pixels + LittleEndian(wide ? 8 : 2, fields.size()) + entries + QByteArray(offset, '\0');
}

/// A BMP of one row of 32-bit pixels whose colours lie where the masks say: red, green, blue, and perhaps alpha.
inline QByteArray BmpWithMasks(const std::vector<quint32>& masks, const std::vector<quint32>& pixels)
{
    const int count = static_cast<int>(pixels.size()), header = masks.size() > 3 ? 56 : 40,
              begin = 14 + (masks.size() > 3 ? 56 : 52), oneOf32Bits = 32 << 16 | 1;
    QByteArray bmp = "BM" + Raw(begin + 4 * count, 0, begin, header, count, 1, oneOf32Bits, 3, 0, 0, 0, 0, 0);
    for (const auto* words : {&masks, &pixels})
        for (const quint32 word : *words)
            bmp += Raw(word);
    return bmp;
}

} // namespace test
