#include "RecordWalk.h"

#include <QStringList>

#include <algorithm>
#include <bit>
#include <cmath>

namespace {

// Magnitudes of likely numbers; smaller ones are integers that are taken for floats.
constexpr double kLeastSingle = 1e-20;
constexpr double kLeastDouble = 1e-60;
constexpr double kLargest = 1e12;

constexpr int32_t kBitsPerPixel = 8;
constexpr size_t kMostMends = 8; ///< of one shape; more look like a record that stands elsewhere

QString TooShort(int64_t wanted, int64_t left)
{
    return QString("needs %1 bytes, %2 are left").arg(wanted).arg(left);
}

} // namespace

RecordWalk::RecordWalk(Bytes bytes, int version, Trust trust, WalkListener* listener)
    : m_bytes(bytes), m_version(version), m_trust(trust), m_listener(listener)
{}

bool RecordWalk::List(int64_t offset)
{
    Begin(offset, "list");
    return WalkList("count", "shape");
}

bool RecordWalk::Stream(int64_t offset)
{
    if (!List(offset))
        return false;
    return Left() == 0 || Fail(m_at, nullptr, QString("%1 bytes stand behind the last shape").arg(Left()));
}

bool RecordWalk::Shape(int64_t offset)
{
    Begin(offset, "list");
    return WalkEntry("shape", 0);
}

void RecordWalk::Begin(int64_t offset, const char* name)
{
    m_at = offset;
    m_depth = 0;
    m_rows = nullptr;
    m_mends.clear();
    m_path = {{name, 0, nullptr}};
}

bool RecordWalk::WalkList(const char* name, const char* entryName)
{
    const int64_t start = m_at;
    if (m_depth > kDeepestGroup)
        return Fail(start, name, QString("lies deeper than %1 groups").arg(kDeepestGroup));
    uint32_t count = 0;
    if (!Take(count, name))
        return false;
    const int64_t least = count * kLeastShapeBytes;
    if (least > Left() && m_trust != Trust::Salvage)
        return Fail(start, name,
                    QString("%1 shapes need at least %2 bytes, %3 are left").arg(count).arg(least).arg(Left()));
    ++m_depth;
    for (int64_t i = 1; i <= count; ++i)
        if (!WalkEntry(entryName, i))
            return false;
    --m_depth;
    return true;
}

bool RecordWalk::WalkEntry(const char* name, int64_t number)
{
    const int64_t start = m_at;
    m_path.push_back({name, number, nullptr});
    uint32_t tag = 0;
    if (!Take(tag, "tag"))
        return false;
    const RecordLayout* layout = LayoutOf(tag);
    if (!layout)
        return Fail(start, "tag", QString("%1 is no kind of shape").arg(tag));
    m_path.back().kind = layout->name;
    if (m_listener)
        m_listener->ShapeBegins(start, tag);
    if (!WalkFields(kCommonFields))
        return false;
    for (const std::span<const Field> part : layout->parts)
        if (!WalkFields(part))
            return false;
    m_path.pop_back();
    ++m_shapes;
    if (m_listener)
        m_listener->ShapeEnds(m_at);
    return true;
}

bool RecordWalk::WalkFields(std::span<const Field> fields)
{
    for (const Field& field : fields) {
        if (m_version < field.since)
            continue;
        if (m_listener)
            m_listener->FieldBegins(field, m_at);
        if (!WalkField(field))
            return false;
    }
    return true;
}

bool RecordWalk::WalkField(const Field& field)
{
    switch (field.content) {
    case Content::Whole:
    case Content::Bits:
        return WalkWhole(field);
    case Content::Byte: {
        uint8_t value = 0;
        return Take(value, field.name) && CheckLimits(field, value, m_at - 1, sizeof value);
    }
    case Content::Color: {
        uint32_t value = 0;
        return Take(value, field.name);
    }
    case Content::Single: {
        float value = 0;
        return Take(value, field.name) && WalkReal(field, value, sizeof value, kLeastSingle, kLargest);
    }
    case Content::Double: {
        double value = 0;
        return Take(value, field.name) && WalkReal(field, value, sizeof value, kLeastDouble, kLargest);
    }
    case Content::Unread:
        if (!Has(field.allowed.high, field.name))
            return false;
        m_at += field.allowed.high;
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

bool RecordWalk::WalkWhole(const Field& field)
{
    int32_t value = 0;
    constexpr int64_t kWidth = sizeof value;
    return Take(value, field.name) && CheckLimits(field, value, m_at - kWidth, kWidth);
}

bool RecordWalk::CheckLimits(const Field& field, int64_t value, int64_t offset, int64_t width)
{
    const Limits& limits = m_trust == Trust::Likely ? field.likely : field.allowed;
    const auto instead = static_cast<uint64_t>(field.content == Content::Bits ? value & limits.high
                                                                              : static_cast<int64_t>(field.instead));
    return limits.Holds(value) || CanMend(offset, width, instead) ||
           Fail(offset, field.name, QString("%1 is outside %2 to %3").arg(value).arg(limits.low).arg(limits.high));
}

/// Notes what is to be written there. The first row has no row before it, and a cell that stands on another would be
/// worked twice.
bool RecordWalk::CanMend(int64_t offset, int64_t width, uint64_t bits)
{
    const bool row = m_rows != nullptr;
    if (m_trust != Trust::Mend || m_mends.size() == kMostMends || (row && (m_row == 1 || m_rows != &kPointRow)))
        return false;
    m_mends.push_back({offset, width, bits, row});
    return true;
}

/// A number that was just taken.
bool RecordWalk::WalkReal(const Field& field, double value, int64_t width, double least, double largest)
{
    if (!std::isfinite(value))
        return CanMend(m_at - width, width, std::bit_cast<uint64_t>(field.instead)) ||
               Fail(m_at - width, field.name, "is not finite");
    const double size = std::abs(value);
    return m_trust != Trust::Likely || size == 0 || (size >= least && size <= largest) ||
           Fail(m_at - width, field.name, "is not likely");
}

bool RecordWalk::WalkText(const Field& field)
{
    const int64_t start = m_at;
    int32_t length = 0;
    if (!Take(length, field.name))
        return false;
    if (!field.allowed.Holds(length))
        return Fail(
            start, field.name,
            QString("length %1 is outside %2 to %3").arg(length).arg(field.allowed.low).arg(field.allowed.high));
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
    m_path.push_back({field.name, 0, nullptr});
    int32_t width = 0, height = 0, bits = 0, rowBytes = 0;
    if (!Take(width, "width") || !Take(height, "height") || !Take(bits, "bits") || !Take(rowBytes, "row length"))
        return false;
    const bool empty = width == 0 && height == 0 && rowBytes == 0;
    // Rows are always written as long as the picture is wide; readers take longer ones as well.
    const bool fits = width > 0 && height > 0 && (m_trust == Trust::Likely ? rowBytes == width : rowBytes >= width);
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
    if (!Take(stored, field.name))
        return false;
    const int64_t count = stored;
    const RowLayout& row = *field.rows;
    if (count < 0 || count > Left() / row.bytes)
        return Fail(start, field.name,
                    QString("%1 %2s need %3 bytes, %4 are left")
                        .arg(static_cast<uint32_t>(stored))
                        .arg(row.name)
                        .arg(static_cast<uint32_t>(stored) * row.bytes)
                        .arg(Left()));
    m_path.push_back({row.name, 0, nullptr});
    m_rows = &row;
    for (m_row = 1; m_row <= count; ++m_row) {
        m_path.back().number = m_row;
        for (const Field& part : row.fields)
            if (!WalkField(part))
                return false;
    }
    m_rows = nullptr;
    m_path.pop_back();
    return true;
}

int64_t RecordWalk::WholeRows(const RowLayout& layout, int64_t offset)
{
    Begin(offset, layout.name);
    int32_t count = 0;
    if (!Take(count, "count"))
        return 0;
    for (int64_t i = 0; i < count; ++i) {
        int32_t number = 0;
        if (!Has(layout.bytes, "row"))
            return i;
        std::memcpy(&number, m_bytes.data() + m_at, sizeof number);
        const auto walks = [this](const Field& field) { return WalkField(field); };
        if (number != i || !std::all_of(layout.fields.begin(), layout.fields.end(), walks))
            return i;
    }
    return std::max(count, 0);
}

bool RecordWalk::Has(int64_t count, const char* name)
{
    return count <= Left() || Fail(m_at, name, TooShort(count, Left()));
}

bool RecordWalk::Fail(int64_t offset, const char* name, const QString& reason)
{
    QStringList words; // only a strict walk is told of
    if (m_trust != Trust::Strict)
        m_path.clear();
    for (const Step& step : m_path) {
        QString word = step.word;
        if (step.number > 0)
            word += QString(" %1").arg(step.number);
        if (step.kind)
            word += QString(" (%1)").arg(step.kind);
        words.append(word);
    }
    if (name)
        words.append(name);
    m_fault = Fault{offset, words.join(" > "), reason};
    return false;
}

std::optional<Fault> CheckStream(Bytes bytes, int64_t offset, int version)
{
    RecordWalk walk(bytes, version);
    return walk.Stream(offset) ? std::nullopt : std::optional(walk.FirstFault());
}
