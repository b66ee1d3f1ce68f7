#include "machine/GcodeMoves.h"

#include "plane/Length.h"

#include <QIODevice>

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace shapedocument {

namespace {

constexpr qint64 kLongestReadLine = 4096;
constexpr double kArcStep = 0.05; // radians: a piece lies within 0.0003 radii of its arc

/// Words that change neither moves nor power: planes, feed modes, dwelling, air, ends.
constexpr std::array<std::pair<char, double>, 12> kWithoutTrace{{{'G', 4},
                                                                 {'G', 17},
                                                                 {'G', 94},
                                                                 {'M', 2},
                                                                 {'M', 7},
                                                                 {'M', 8},
                                                                 {'M', 9},
                                                                 {'M', 30},
                                                                 {'M', 106},
                                                                 {'M', 107},
                                                                 {'M', 400},
                                                                 {'T', 0}}};

/// The line without comments, which stand behind a semicolon or in parentheses.
QByteArray WithoutComments(const QByteArray& line)
{
    QByteArray words;
    bool inside = false;
    for (const char letter : line) {
        if (letter == ';')
            break;
        if (letter == '(')
            inside = true;
        else if (letter == ')')
            inside = false;
        else if (!inside)
            words += letter;
    }
    return words;
}

bool IsFinite(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

} // namespace

/// The words of a line. It may have several G and M words.
struct GcodeMoves::Words
{
    explicit Words(const QByteArray& line)
    {
        const char* at = line.data();
        const char* const end = at + line.size();
        while (at < end) {
            const char letter = static_cast<char>(std::toupper(static_cast<unsigned char>(*at++)));
            if (letter < 'A' || letter > 'Z')
                continue;
            while (at < end && (*at == ' ' || *at == '+'))
                ++at;
            double number = 0;
            const auto [next, error] = std::from_chars(at, end, number);
            at = next;
            if (error != std::errc())
                continue;
            if (letter == 'G' || letter == 'M' || letter == 'T')
                codes.emplace_back(letter, number);
            else
                values[Place(letter)] = number;
        }
    }

    static size_t Place(char letter) { return static_cast<size_t>(letter - 'A'); }

    std::optional<double> operator[](char letter) const { return values[Place(letter)]; }

    std::vector<std::pair<char, double>> codes;
    std::array<std::optional<double>, 26> values;
};

GcodeMoves::GcodeMoves(QIODevice& device) : m_device(device) {}

std::optional<GcodeMove> GcodeMoves::Next()
{
    while (m_piece >= m_pieces) {
        if (m_device.atEnd())
            return std::nullopt;
        const QByteArray line = m_device.readLine(kLongestReadLine);
        if (line.isEmpty())
            return std::nullopt;
        Apply(Words(WithoutComments(line)));
    }
    ++m_piece;
    m_move.from = m_place;
    if (m_piece == m_pieces) {
        m_move.to = m_end;
    } else {
        const QPointF radius = m_move.from - m_centre;
        const double turn = m_sweep / m_pieces;
        m_move.to = m_centre + QPointF(radius.x() * std::cos(turn) - radius.y() * std::sin(turn),
                                       radius.x() * std::sin(turn) + radius.y() * std::cos(turn));
    }
    m_place = m_move.to;
    return m_move;
}

void GcodeMoves::Apply(const Words& words)
{
    for (const auto& [letter, number] : words.codes)
        Obey(letter, number);
    m_power = words['S'].value_or(m_power);
    m_feed = words['F'] ? *words['F'] * m_unit : m_feed;
    if (words['Z'])
        m_height = *words['Z'] * m_unit + (m_relative ? m_height : 0);
    if (words['X'] || words['Y'])
        Go(words);
}

void GcodeMoves::Obey(char letter, double number)
{
    const auto is = [=](char wanted, double code) { return letter == wanted && number == code; };
    if (letter == 'G' && number >= 0 && number <= 3 && number == std::floor(number))
        m_motion = static_cast<int>(number);
    else if (is('M', 3) || is('M', 4))
        m_on = true;
    else if (is('M', 5))
        m_on = false;
    else if (is('G', 90) || is('G', 91))
        m_relative = number == 91;
    else if (is('G', 20) || is('G', 21))
        m_unit = number == 20 ? kMmPerInch : 1;
    else if (std::find(kWithoutTrace.begin(), kWithoutTrace.end(), std::pair(letter, number)) == kWithoutTrace.end())
        ++m_ignored[QString("%1%2").arg(QChar(letter)).arg(number)];
}

QPointF GcodeMoves::Target(const Words& words) const
{
    const auto along = [&](char letter, double place) {
        return words[letter] ? *words[letter] * m_unit + (m_relative ? place : 0) : place;
    };
    return {along('X', m_place.x()), along('Y', m_place.y())};
}

void GcodeMoves::Go(const Words& words)
{
    m_end = Target(words);
    m_move.power = m_on && m_motion > 0 ? m_power : 0;
    m_move.feed = m_motion > 0 ? m_feed : 0;
    m_move.height = m_height;
    m_piece = 0;
    m_pieces = IsFinite(m_end) && m_end != m_place ? 1 : 0;
    if (m_motion < 2 || (!words['I'] && !words['J']))
        return;
    m_centre = m_place + QPointF(words['I'].value_or(0), words['J'].value_or(0)) * m_unit;
    const QPointF start = m_place - m_centre, end = m_end - m_centre;
    m_sweep = std::atan2(end.y(), end.x()) - std::atan2(start.y(), start.x());
    constexpr double kTurn = 2 * std::numbers::pi;
    if (m_motion == 3 && m_sweep <= 0)
        m_sweep += kTurn;
    else if (m_motion == 2 && m_sweep >= 0)
        m_sweep -= kTurn;
    m_pieces = IsFinite(m_end) && IsFinite(m_centre) ? std::max(1, static_cast<int>(std::abs(m_sweep) / kArcStep)) : 0;
}

} // namespace shapedocument
