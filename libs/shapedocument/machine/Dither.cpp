#include "machine/Dither.h"

#include "machine/EngraveRow.h"

#include <algorithm>

namespace shapedocument {

namespace {

constexpr int kShares = 16;

int DividedByShares(int sum)
{
    return (sum + (sum < 0 ? -kShares / 2 : kShares / 2)) / kShares;
}

} // namespace

Dither::Dither(size_t dots) : m_errors(dots + 2), m_next(dots + 2) {}

void Dither::Apply(std::span<unsigned char> dots, DotRange range)
{
    const size_t count = range.end - range.begin;
    const std::ptrdiff_t ahead = m_fromRight ? -1 : 1;
    for (size_t i = 0; i < count; ++i) {
        const size_t dot = m_fromRight ? range.end - 1 - i : range.begin + i;
        const auto place = static_cast<std::ptrdiff_t>(dot) + 1;
        const int wanted = dots[dot] + DividedByShares(m_errors[static_cast<size_t>(place)]);
        const int made = 2 * wanted > kWhite ? kWhite : 0;
        const int error = wanted - made;
        dots[dot] = static_cast<unsigned char>(made);
        m_errors[static_cast<size_t>(place + ahead)] += 7 * error;
        m_next[static_cast<size_t>(place - ahead)] += 3 * error;
        m_next[static_cast<size_t>(place)] += 5 * error;
        m_next[static_cast<size_t>(place + ahead)] += error;
    }
    m_errors.swap(m_next);
    std::fill(m_next.begin(), m_next.end(), 0);
    m_fromRight = !m_fromRight;
}

} // namespace shapedocument
