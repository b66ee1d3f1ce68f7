#include "machine/GcodeRows.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <utility>

namespace shapedocument {

namespace {

constexpr int kUnknown = -1;

/// Linear from black to nearly white; off at white. Whole numbers where these keep all greys distinct.
std::string PowerWord(const GcodeOptions& options, int grey)
{
    if (grey == kWhite)
        return "S0";
    const double range = options.mostPower - options.leastPower;
    const double unit = range >= kWhite ? 1 : 0.01;
    const double power = options.leastPower + range * (kWhite - grey) / kWhite;
    return "S" + ShortNumber(std::round(power / unit) * unit);
}

/// A buffer size above the words of one move.
constexpr size_t kLongestLine = 5 * kLongestNumber;

template <class Word>
char* Put(char* to, const Word& word)
{
    std::memcpy(to, word.letters.data(), word.letters.size()); // a fixed size, which compiles to plain moves
    return to + word.size;
}

} // namespace

GcodeRows::Word::Word(const std::string& text) : size(text.size())
{
    std::copy(text.begin(), text.end(), letters.begin());
}

GcodeRows::GcodeRows(OutputText& text, const GcodeOptions& options, double height)
    : m_text(text), m_options(options), m_height(height), m_feed("F" + ShortNumber(options.engraveFeed))
{
    for (size_t grey = 0; grey < m_powers.size(); ++grey)
        m_powers[grey] = Word(PowerWord(options, static_cast<int>(grey)));
}

void GcodeRows::Begin()
{
    const GcodeDialect& dialect = *m_options.dialect;
    m_text << (m_options.constantPower ? dialect.onConstant : dialect.on) << (dialect.powerWithOn ? " S0\n" : "\n");
}

void GcodeRows::End()
{
    m_text << m_options.dialect->off;
}

void GcodeRows::Write(const EngraveRow& row)
{
    if (row.shape != m_shape)
        BeginShape(row);
    Count(row);
    const double runUp = row.backwards ? -m_options.overscan : m_options.overscan;
    const size_t count = row.spans.size();
    for (size_t i = 0; i < count; ++i) {
        const EngraveSpan& span = row.spans[row.backwards ? count - 1 - i : i];
        const double from = row.backwards ? span.end : span.begin;
        if (i == 0) {
            GoTo(from - runUp, m_options.yDown ? row.y : m_height - row.y);
            if (runUp != 0)
                Burn(from, kWhite);
        } else if (Written(from) != Written(m_x)) {
            Jump(from);
        }
        Burn(row.backwards ? span.begin : span.end, span.grey);
    }
    if (runUp != 0)
        Burn(m_x + runUp, kWhite);
}

void GcodeRows::Count(const EngraveRow& row)
{
    ++m_counts.rows;
    const double left = row.spans.front().begin - m_options.overscan;
    if (m_options.overscan == 0 || Written(left) >= 0)
        return;
    ++m_counts.leftOfZero;
    m_counts.least = std::min(m_counts.least, left);
}

void GcodeRows::BeginShape(const EngraveRow& row)
{
    m_shape = row.shape;
    (m_text << "; engraving " << m_shape << ' ').Color(row.color) << '\n';
}

char* GcodeRows::PutMove(char* to, char motion, double x)
{
    if (motion != m_motion || !m_options.dialect->keepsMotion) {
        *to++ = 'G';
        *to++ = motion;
    }
    m_motion = motion;
    m_x = x;
    *to++ = 'X';
    return WriteShort(to, x);
}

char* GcodeRows::PutPower(char* to, unsigned char grey)
{
    return std::exchange(m_grey, grey) == grey ? to : Put(to, m_powers[grey]);
}

void GcodeRows::GoTo(double x, double y)
{
    char* to = PutMove(m_text.Room(kLongestLine), '0', x);
    *to++ = 'Y';
    to = PutPower(WriteShort(to, y), kWhite);
    *to++ = '\n';
    m_text.Advance(to);
    ForgetPower();
}

/// Writes S0 although G0 is off in laser mode: a machine in another mode would keep burning.
void GcodeRows::Jump(double x)
{
    char* to = PutPower(PutMove(m_text.Room(kLongestLine), '0', x), kWhite);
    *to++ = '\n';
    m_text.Advance(to);
    ForgetPower();
}

/// Firmware whose power stands with the moves leaves it at 0 after G0: the next G1 must repeat its S word.
void GcodeRows::ForgetPower()
{
    if (!m_options.dialect->powerWithOn)
        m_grey = kUnknown;
}

void GcodeRows::Burn(double x, unsigned char grey)
{
    if (Written(x) == Written(m_x))
        return;
    char* to = PutPower(PutMove(m_text.Room(kLongestLine), '1', x), grey);
    if (m_feed.size > 0)
        to = Put(to, std::exchange(m_feed, Word()));
    *to++ = '\n';
    m_text.Advance(to);
}

} // namespace shapedocument
