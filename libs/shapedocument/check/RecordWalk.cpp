#include "check/RecordWalk.h"

#include <QStringList>

#include <algorithm>

namespace shapedocument {

using shapes::kDeepestGroup;
using shapes::kLeastShapeBytes;

namespace {

QString Text(std::string_view name)
{
    return QString::fromUtf8(name.data(), static_cast<qsizetype>(name.size()));
}

QString TooShort(int64_t wanted, int64_t left)
{
    return QString("needs %1 bytes, %2 are left").arg(wanted).arg(left);
}

} // namespace

RecordWalk::RecordWalk(Bytes bytes, int version, const Trust& trust, WalkListener* listener, const ByteWatch* watch)
    : m_bytes(bytes), m_version(version), m_trust(trust), m_listener(listener), m_watch(watch)
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
    return Left() == 0 || Fail(m_at, {}, QString("%1 bytes stand behind the last shape").arg(Left()));
}

bool RecordWalk::Shape(int64_t offset)
{
    Begin(offset, "list");
    return WalkEntry("shape", 0);
}

void RecordWalk::Begin(int64_t offset, std::string_view name)
{
    m_at = offset;
    m_depth = 0;
    m_rows = nullptr;
    m_mends.clear();
    m_path = {{name, 0, {}}};
}

bool RecordWalk::WalkList(std::string_view name, std::string_view entryName)
{
    const int64_t start = m_at;
    if (m_depth > kDeepestGroup)
        return Fail(start, name, QString("lies deeper than %1 groups").arg(kDeepestGroup));
    uint32_t count = 0;
    if (!ReadNumber(count, name))
        return false;
    const int64_t least = count * kLeastShapeBytes;
    if (least > Left() && m_trust.listCounts)
        return Fail(start, name,
                    QString("%1 shapes need at least %2 bytes, %3 are left").arg(count).arg(least).arg(Left()));
    ++m_depth;
    for (int64_t i = 1; i <= count; ++i)
        if (!WalkEntry(entryName, i))
            return false;
    --m_depth;
    return true;
}

bool RecordWalk::WalkEntry(std::string_view name, int64_t number)
{
    const int64_t start = m_at;
    Tell();
    m_path.push_back({name, number, {}});
    uint32_t tag = 0;
    if (!ReadNumber(tag, "tag"))
        return false;
    const shapes::RecordFormat* format = shapes::FormatOf(tag);
    if (!format)
        return Fail(start, "tag", QString("%1 is no kind of shape").arg(tag));
    m_path.back().kind = format->name;
    if (m_listener)
        m_listener->ShapeBegins(start, tag);
    if (!WalkFields(shapes::kCommonFields))
        return false;
    for (const std::span<const Field> part : format->parts)
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

int64_t RecordWalk::WholeRows(const RowFormat& row, int64_t offset)
{
    Begin(offset, row.name);
    int32_t count = 0;
    if (!ReadNumber(count, "count"))
        return 0;
    for (int64_t i = 0; i < count; ++i) {
        if (i % kRowsBetween == 0)
            Tell();
        int32_t number = 0;
        if (!Has(shapes::RowBytes(row), "row"))
            return i;
        std::memcpy(&number, m_bytes.data() + m_at, sizeof number);
        const auto walks = [this](const Field& field) { return WalkField(field); };
        if (number != i || !std::all_of(row.fields.begin(), row.fields.end(), walks))
            return i;
    }
    return std::max(count, 0);
}

bool RecordWalk::Has(int64_t count, std::string_view name)
{
    if (count <= Left())
        return true;
    Fail(m_at, name, TooShort(count, Left()));
    m_fault->cut = true;
    return false;
}

bool RecordWalk::Fail(int64_t offset, std::string_view name, const QString& reason)
{
    m_fault = Fault{offset, m_trust == kStrict ? PathTo(name) : QString(), reason}; // searches report no path
    return false;
}

/// "list > shape 12 (group) > member 3 (text) > name"
QString RecordWalk::PathTo(std::string_view name) const
{
    QStringList words;
    for (const Step& step : m_path) {
        QString word = Text(step.word);
        if (step.number > 0)
            word += QString(" %1").arg(step.number);
        if (!step.kind.empty())
            word += QString(" (%1)").arg(Text(step.kind));
        words.append(word);
    }
    if (!name.empty())
        words.append(Text(name));
    return words.join(" > ");
}

} // namespace shapedocument
