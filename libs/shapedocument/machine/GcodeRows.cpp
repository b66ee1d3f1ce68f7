#include "machine/GcodeRows.h"

#include <cmath>
#include <utility>

namespace shapedocument {

namespace {

constexpr unsigned char kWhite = 255;

/// Linear from black to white, which is off. Whole numbers where these tell all greys apart.
std::string PowerWord(const GcodeOptions& options, int grey)
{
    if (grey == kWhite)
        return "S0";
    const double range = options.mostPower - options.leastPower;
    const double unit = range >= kWhite ? 1 : 0.01;
    const double power = options.leastPower + range * (kWhite - grey) / kWhite;
    return "S" + ShortNumber(std::round(power / unit) * unit);
}

} // namespace

GcodeRows::GcodeRows(OutputText& text, const GcodeOptions& options, double height)
    : m_text(text), m_options(options), m_height(height), m_feed("F" + ShortNumber(options.engraveFeed))
{
    for (size_t grey = 0; grey < m_powers.size(); ++grey)
        m_powers[grey] = PowerWord(options, static_cast<int>(grey));
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
    const double runUp = row.backwards ? -m_options.overscan : m_options.overscan;
    const size_t count = row.spans.size();
    for (size_t i = 0; i < count; ++i) {
        const EngraveSpan& span = row.spans[row.backwards ? count - 1 - i : i];
        const double from = row.backwards ? span.end : span.begin;
        if (i == 0) {
            GoTo(from - runUp, m_options.yDown ? row.y : m_height - row.y);
            if (runUp != 0)
                Burn(from, kWhite);
        } else if (from != m_x) {
            Move('0', from);
            SetPower(kWhite);
            m_text << '\n';
        }
        Burn(row.backwards ? span.begin : span.end, span.grey);
    }
    if (runUp != 0)
        Burn(m_x + runUp, kWhite);
}

void GcodeRows::BeginShape(const EngraveRow& row)
{
    m_shape = row.shape;
    (m_text << "; engraving " << m_shape << ' ').Color(row.color) << '\n';
}

void GcodeRows::Move(char motion, double x)
{
    if (motion != m_motion || !m_options.dialect->keepsMotion)
        m_text << 'G' << motion;
    m_motion = motion;
    m_text << 'X';
    m_text.Short(x);
    m_x = x;
}

/// The laser is switched off even so: a machine that is not in laser mode would burn on.
void GcodeRows::GoTo(double x, double y)
{
    Move('0', x);
    m_text << 'Y';
    m_text.Short(y);
    SetPower(kWhite);
    m_text << '\n';
}

void GcodeRows::Burn(double x, unsigned char grey)
{
    Move('1', x);
    SetPower(grey);
    m_text << std::exchange(m_feed, {}) << '\n';
}

void GcodeRows::SetPower(unsigned char grey)
{
    if (m_grey != grey)
        m_text << m_powers[grey];
    m_grey = grey;
}

} // namespace shapedocument
