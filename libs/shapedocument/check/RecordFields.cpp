/// The part of the walk that reads single fields.
#include "check/RecordWalk.h"

#include <algorithm>
#include <bit>
#include <cmath>

using shapes::kBitsPerPixel;

namespace shapedocument {

namespace {

// Smaller values are probably integers misread as floats.
constexpr double kLeastSingle = 1e-20;
constexpr double kLeastDouble = 1e-60;

constexpr size_t kMostMends = 8; ///< values replaced in one shape; more suggest that the record starts elsewhere

} // namespace

bool RecordWalk::WalkField(const Field& field)
{
    switch (field.type) {
    case Content::Int32:
    case Content::Bits:
        return WalkInt32(field);
    case Content::Byte: {
        uint8_t value = 0;
        return ReadNumber(value, field.name) && CheckLimits(field, value, m_at - 1, sizeof value);
    }
    case Content::Color: {
        uint32_t value = 0;
        return ReadNumber(value, field.name);
    }
    case Content::Float: {
        float value = 0;
        return ReadNumber(value, field.name) && WalkReal(field, value, sizeof value, kLeastSingle);
    }
    case Content::Double: {
        double value = 0;
        return ReadNumber(value, field.name) && WalkReal(field, value, sizeof value, kLeastDouble);
    }
    case Content::Unused:
        if (!Has(field.range.high, field.name))
            return false;
        m_at += field.range.high;
        return true;
    case Content::Text:
        return WalkText(field);
    case Content::Picture:
        return WalkPicture(field);
    case Content::Rows:
        return WalkRows(field);
    case Content::Members:
        return WalkList(field.name, "member");
    }
    return false;
}

bool RecordWalk::WalkInt32(const Field& field)
{
    int32_t value = 0;
    constexpr int64_t kWidth = sizeof value;
    return ReadNumber(value, field.name) && CheckLimits(field, value, m_at - kWidth, kWidth);
}

bool RecordWalk::CheckLimits(const Field& field, int64_t value, int64_t offset, int64_t width)
{
    const Limits& limits = m_trust.likelyOnly ? field.likely : field.range;
    const auto instead =
        static_cast<uint64_t>(field.type == Content::Bits ? value & limits.high : static_cast<int64_t>(field.fallback));
    return limits.Holds(value) || CanMend(offset, width, instead) ||
           Fail(offset, field.name, QString("%1 is outside %2 to %3").arg(value).arg(limits.low).arg(limits.high));
}

/// Notes the replacement for a value; false if it may not be replaced. A point takes the value of the point before, so
/// the first one cannot be mended. Cells are never mended: two at the same place would be cut twice.
bool RecordWalk::CanMend(int64_t offset, int64_t width, uint64_t bits)
{
    const bool row = m_rows != nullptr;
    if (!m_trust.mends || m_mends.size() == kMostMends || (row && (m_row == 1 || m_rows != &shapes::kPointRow)))
        return false;
    m_mends.push_back({offset, width, bits, row});
    return true;
}

/// Checks the number that was just read.
bool RecordWalk::WalkReal(const Field& field, double value, int64_t width, double least)
{
    const auto low = static_cast<double>(field.likely.low), high = static_cast<double>(field.likely.high);
    const bool inReach = m_trust.anyNumber || (value >= low && value <= high);
    const bool tiny = m_trust.likelyOnly && value != 0 && std::abs(value) < least;
    const int64_t offset = m_at - width;
    if (std::isfinite(value) && inReach && !tiny)
        return true;
    return CanMend(offset, width, std::bit_cast<uint64_t>(field.fallback)) ||
           Fail(offset, field.name, std::isfinite(value) ? "is out of reach" : "is not finite");
}

bool RecordWalk::WalkText(const Field& field)
{
    const int64_t start = m_at;
    int32_t length = 0;
    if (!ReadNumber(length, field.name))
        return false;
    if (!field.range.Holds(length))
        return Fail(start, field.name,
                    QString("length %1 is outside %2 to %3").arg(length).arg(field.range.low).arg(field.range.high));
    if (!Has(length, field.name))
        return false;
    const unsigned char* text = m_bytes.data() + m_at;
    for (const unsigned char* at = text; (at = std::find(at, text + length, '\0')) != text + length; ++at)
        if (!CanMend(m_at + (at - text), 1, ' '))
            return Fail(m_at + (at - text), field.name, "holds a zero byte");
    m_at += length;
    return true;
}

bool RecordWalk::WalkPicture(const Field& field)
{
    const int64_t start = m_at;
    m_path.push_back({field.name, 0, {}});
    int32_t width = 0, height = 0, bits = 0, rowBytes = 0;
    if (!ReadNumber(width, "width") || !ReadNumber(height, "height") || !ReadNumber(bits, "bits") ||
        !ReadNumber(rowBytes, "row length"))
        return false;
    const bool empty = width == 0 && height == 0 && rowBytes == 0;
    // Rows are always written as long as the picture is wide; readers take longer ones as well.
    const bool fits = width > 0 && height > 0 && (m_trust.likelyOnly ? rowBytes == width : rowBytes >= width);
    if (!empty && !fits)
        return Fail(start, "sizes", QString("%1 x %2 pixels in rows of %3 bytes").arg(width).arg(height).arg(rowBytes));
    if (bits != kBitsPerPixel && !CanMend(start + 8, sizeof bits, kBitsPerPixel))
        return Fail(start + 8, "bits", QString("%1 is not %2").arg(bits).arg(kBitsPerPixel));
    const int64_t size = int64_t{rowBytes} * height;
    if (!Has(size, "pixels"))
        return false;
    m_at += size;
    m_path.pop_back();
    return true;
}

bool RecordWalk::WalkRows(const Field& field)
{
    const int64_t start = m_at;
    int32_t stored = 0;
    if (!ReadNumber(stored, field.name))
        return false;
    const int64_t count = stored;
    const RowFormat& row = *field.rows;
    const int64_t rowBytes = shapes::RowBytes(row);
    if (count < 0 || count > Left() / rowBytes)
        return Fail(start, field.name,
                    QString("%1 %2s need %3 bytes, %4 are left")
                        .arg(static_cast<uint32_t>(stored))
                        .arg(QLatin1String(row.name.data(), static_cast<qsizetype>(row.name.size())))
                        .arg(static_cast<uint32_t>(stored) * rowBytes)
                        .arg(Left()));
    m_path.push_back({row.name, 0, {}});
    m_rows = &row;
    for (m_row = 1; m_row <= count; ++m_row) {
        if (m_row % kRowsBetween == 0)
            Tell();
        m_path.back().number = m_row;
        for (const Field& part : row.fields)
            if (!WalkField(part))
                return false;
    }
    m_rows = nullptr;
    m_path.pop_back();
    return true;
}

} // namespace shapedocument
