#include "RecordWalk.h"

#include <QStringList>

#include <algorithm>

namespace {

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
    if (least > Left() && (m_trust == Trust::Strict || m_trust == Trust::Likely))
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
