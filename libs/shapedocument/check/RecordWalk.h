/// The walk over a list stream: checks every field against the record layout and reports the first that is wrong.
#pragma once

#include "check/StreamCheck.h"
#include "record/RecordFormat.h"

#include <cstring>
#include <optional>
#include <string_view>
#include <vector>

namespace shapedocument {

using shapes::Content;
using shapes::Field;
using shapes::Limits;
using shapes::RowFormat;

/// Which values a walk accepts.
struct Trust
{
    bool listCounts = true;  ///< an impossible count is a fault; otherwise shapes are walked up to the first bad one
    bool anyNumber = true;   ///< accept every finite number; otherwise only those in reach
    bool likelyOnly = false; ///< accept only values usual in documents: rejects bytes that look like a record by chance
    bool mends = false;      ///< accept a few impossible values, unless the start of the next field depends on them

    bool operator==(const Trust&) const = default;
};
inline constexpr Trust kStrict{};
inline constexpr Trust kSalvage{.listCounts = false};
inline constexpr Trust kWary{.listCounts = false, .anyNumber = false};
inline constexpr Trust kMending{.listCounts = false, .anyNumber = false, .mends = true};
inline constexpr Trust kLikely{.anyNumber = false, .likelyOnly = true};

/// Rows between two looks at the watch: a few milliseconds.
inline constexpr int64_t kRowsBetween = 1 << 14;

/// What to write in place of an impossible value.
struct Mend
{
    int64_t offset;
    int64_t width;
    uint64_t bits;      ///< the value, little-endian
    bool likeRowBefore; ///< instead of bits: copy the value from the row before
};

/// Called during a walk with the offsets of the records.
class WalkListener
{
public:
    WalkListener() = default;
    WalkListener(const WalkListener&) = delete;
    WalkListener& operator=(const WalkListener&) = delete;
    virtual ~WalkListener() = default;

    /// offset: that of the tag.
    virtual void ShapeBegins(int64_t offset, uint32_t tag) = 0;
    /// Not called for the fields of rows.
    virtual void FieldBegins(const Field& field, int64_t offset) = 0;
    virtual void ShapeEnds(int64_t end) = 0;
};

class RecordWalk
{
public:
    /// Borrows listener and watch, which may be null.
    RecordWalk(Bytes bytes, int version, const Trust& trust, WalkListener* listener = nullptr,
               const ByteWatch* watch = nullptr);

    /// Walks the list at offset. Returns false at the first fault, as the next two do.
    bool List(int64_t offset);
    /// Walks the list at offset, which must end where the bytes end.
    bool Stream(int64_t offset);
    /// Walks one entry of a list, from its tag on.
    bool Shape(int64_t offset);
    /// Reads a count of rows at offset; returns how many of them are whole and numbered from 0 without a gap.
    int64_t WholeRows(const RowFormat& layout, int64_t offset);

    /// The position behind the last correct field.
    int64_t Position() const { return m_at; }
    /// The impossible values that were accepted, in order; only with Trust::mends.
    const std::vector<Mend>& Mends() const { return m_mends; }
    /// Only after a walk that returned false.
    const Fault& FirstFault() const { return *m_fault; }
    /// Number of shapes walked to their end, members included.
    int64_t ShapeCount() const { return m_shapes; }

private:
    struct Step
    {
        std::string_view word;
        int64_t number; ///< from 1; 0: none
        std::string_view kind;
    };

    void Begin(int64_t offset, std::string_view name);
    bool WalkList(std::string_view name, std::string_view entryName);
    bool WalkEntry(std::string_view name, int64_t number);
    bool WalkFields(std::span<const Field> fields);
    bool WalkField(const Field& field);
    bool WalkInt32(const Field& field);
    bool WalkText(const Field& field);
    bool WalkPicture(const Field& field);
    bool WalkRows(const Field& field);
    bool WalkReal(const Field& field, double value, int64_t width, double least);
    bool CheckLimits(const Field& field, int64_t value, int64_t offset, int64_t width);
    bool CanMend(int64_t offset, int64_t width, uint64_t bits);

    /// Reads the number at the position and advances; false, with a fault, if the bytes end before.
    template <class Number>
    bool ReadNumber(Number& value, std::string_view name)
    {
        if (!Has(sizeof value, name))
            return false;
        std::memcpy(&value, m_bytes.data() + m_at, sizeof value);
        m_at += static_cast<int64_t>(sizeof value);
        return true;
    }
    void Tell() const
    {
        if (m_watch && *m_watch)
            (*m_watch)(m_at);
    }
    bool Has(int64_t count, std::string_view name);
    bool Fail(int64_t offset, std::string_view name, const QString& reason);
    QString PathTo(std::string_view name) const;
    int64_t Left() const { return static_cast<int64_t>(m_bytes.size()) - m_at; }

    Bytes m_bytes;
    int m_version;
    Trust m_trust;
    WalkListener* m_listener;
    const ByteWatch* m_watch;
    int64_t m_at = 0;
    int64_t m_shapes = 0;
    int m_depth = 0;
    const RowFormat* m_rows = nullptr; ///< the table whose rows are being walked; null outside one
    int64_t m_row = 0;                 ///< from 1
    std::vector<Mend> m_mends;
    std::vector<Step> m_path;
    std::optional<Fault> m_fault;
};

} // namespace shapedocument
