/// The strict walk over a list stream: holds every field against the record layout and names the first that is wrong.
#pragma once

#include "RecordLayout.h"

#include <QString>

#include <cstring>
#include <optional>
#include <vector>

using Bytes = std::span<const unsigned char>;

/// The first thing that is wrong.
struct Fault
{
    int64_t offset; ///< in the file
    QString path;   ///< for instance "list > shape 12 (group) > member 3 (text) > family"
    QString reason;
};

/// What to write in place of a value that cannot be.
struct Mend
{
    int64_t offset;
    int64_t width;
    uint64_t bits;      ///< the value, little-endian
    bool likeRowBefore; ///< instead: what the row before has there
};

/// Hears where the records stand while they are walked.
class WalkListener
{
public:
    WalkListener() = default;
    WalkListener(const WalkListener&) = delete;
    WalkListener& operator=(const WalkListener&) = delete;
    virtual ~WalkListener() = default;

    /// offset: the tag's.
    virtual void ShapeBegins(int64_t offset, uint32_t tag) = 0;
    /// Not called for the fields of rows.
    virtual void FieldBegins(const Field& field, int64_t offset) = 0;
    virtual void ShapeEnds(int64_t end) = 0;
};

class RecordWalk
{
public:
    enum class Trust
    {
        Strict,  ///< what may stand in a document
        Salvage, ///< strict, but a list's impossible count is no fault: its shapes are walked as far as they go
        Wary,    ///< as Salvage, and numbers must be in reach
        Mend,  ///< as Wary, but a few values that cannot be are no faults, only what hides where the next field begins
        Likely ///< what documents really hold: tells a record from bytes that happen to be possible
    };

    RecordWalk(Bytes bytes, int version, Trust trust = Trust::Strict, WalkListener* listener = nullptr);

    /// The list at offset. False at the first fault.
    bool List(int64_t offset);
    /// The list at offset, which must end with the bytes.
    bool Stream(int64_t offset);
    /// One entry of a list, from its tag on.
    bool Shape(int64_t offset);
    /// How many of the rows that the count at offset tells are whole and numbered on from 0.
    int64_t WholeRows(const RowLayout& layout, int64_t offset);

    /// Where the walk stands: behind the last field that is as it should be.
    int64_t Position() const { return m_at; }
    /// The values that were let pass, in order; none but with Trust::Mend.
    const std::vector<Mend>& Mends() const { return m_mends; }
    /// After a walk that answered false.
    const Fault& FirstFault() const { return *m_fault; }
    /// Shapes walked to their end, members included.
    int64_t ShapeCount() const { return m_shapes; }

private:
    struct Step
    {
        const char* word;
        int64_t number; ///< from 1; 0: none
        const char* kind;
    };

    void Begin(int64_t offset, const char* name);
    bool WalkList(const char* name, const char* entryName);
    bool WalkEntry(const char* name, int64_t number);
    bool WalkFields(std::span<const Field> fields);
    bool WalkField(const Field& field);
    bool WalkWhole(const Field& field);
    bool WalkText(const Field& field);
    bool WalkPicture(const Field& field);
    bool WalkRows(const Field& field);
    bool WalkReal(const Field& field, double value, int64_t width, double least);
    bool CheckLimits(const Field& field, int64_t value, int64_t offset, int64_t width);
    bool CanMend(int64_t offset, int64_t width, uint64_t bits);

    /// The number at the walk's position, which it passes; a fault when the bytes end before.
    template <class Number>
    bool Take(Number& value, const char* name)
    {
        if (!Has(sizeof value, name))
            return false;
        std::memcpy(&value, m_bytes.data() + m_at, sizeof value);
        m_at += sizeof value;
        return true;
    }
    bool Has(int64_t count, const char* name);
    bool Fail(int64_t offset, const char* name, const QString& reason);
    int64_t Left() const { return static_cast<int64_t>(m_bytes.size()) - m_at; }

    Bytes m_bytes;
    int m_version;
    Trust m_trust;
    WalkListener* m_listener;
    int64_t m_at = 0;
    int64_t m_shapes = 0;
    int m_depth = 0;
    const RowLayout* m_rows = nullptr; ///< whose rows are being walked
    int64_t m_row = 0;                 ///< from 1
    std::vector<Mend> m_mends;
    std::vector<Step> m_path;
    std::optional<Fault> m_fault;
};

/// The first fault of a stream that begins at offset; none when it is clean to its end.
std::optional<Fault> CheckStream(Bytes bytes, int64_t offset, int version);
