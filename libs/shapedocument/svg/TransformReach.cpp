#include "svg/TransformReach.h"

#include "svg/SourceNumbers.h"

#include <array>
#include <cmath>
#include <numbers>

namespace shapedocument::drawing {

namespace {

bool TakesSoMany(std::string_view function, size_t count)
{
    if (function == "matrix")
        return count == 6;
    if (function == "translate" || function == "scale")
        return count == 1 || count == 2;
    return count == 1 || (count == 3 && function == "rotate");
}

/// Reads the numbers in parentheses behind a function's name, without their signs.
/// @return how many; none where the renderer does not read them
std::optional<size_t> ReadArguments(std::string_view& text, std::array<double, 6>& numbers)
{
    if (!text.starts_with('('))
        return {};
    text.remove_prefix(1);
    size_t count = 0;
    std::ptrdiff_t commas = SkipAndCountCommas(text);
    for (; !text.starts_with(')'); commas = SkipAndCountCommas(text)) {
        const auto number = ReadStrictNumber(text);
        if (!number || count == numbers.size() || commas > (count > 0 ? 1 : 0))
            return {};
        numbers[count++] = std::abs(*number);
    }
    if (commas > 0)
        return {};
    text.remove_prefix(1);
    return count;
}

std::optional<ReachFrame> FrameOf(std::string_view function, std::string_view& arguments)
{
    std::array<double, 6> n{};
    const std::optional<size_t> count = ReadArguments(arguments, n);
    if (!count || !TakesSoMany(function, *count))
        return {};
    constexpr double kDegree = std::numbers::pi / 180;
    const double turned = std::abs(std::cos(n[0] * kDegree)) + std::abs(std::sin(n[0] * kDegree));
    if (function == "matrix")
        return ReachFrame{std::max(n[0] + n[2], n[1] + n[3]), std::max(n[4], n[5])};
    if (function == "translate")
        return ReachFrame{1, std::max(n[0], n[1])};
    if (function == "scale")
        return ReachFrame{std::max(n[0], n[1]), 0};
    if (function == "rotate")
        return ReachFrame{turned, (1 + turned) * std::max(n[1], n[2])};
    if (function == "skewX" || function == "skewY")
        return ReachFrame{1 + std::abs(std::tan(n[0] * kDegree)), 0};
    return {};
}

} // namespace

std::optional<ReachFrame> FrameOfTransforms(std::string_view transforms)
{
    ReachFrame whole;
    if (SkipAndCountCommas(transforms) > 0)
        return {};
    while (!transforms.empty()) {
        const std::string_view function = ReadLetters(transforms);
        if (SkipAndCountCommas(transforms) > 0)
            return {};
        const std::optional<ReachFrame> frame = FrameOf(function, transforms);
        const std::ptrdiff_t commas = SkipAndCountCommas(transforms);
        if (!frame || commas > (transforms.empty() ? 0 : 1))
            return {};
        whole.Enter(*frame);
    }
    return whole;
}

} // namespace shapedocument::drawing
