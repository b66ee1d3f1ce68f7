#include "OutlineCheck.h"

#include "Refusal.h"
#include "document/Reach.h"

#include "vector/OutlinePath.h"

#include <algorithm>
#include <string>

namespace capi {

namespace {

constexpr size_t kMostPoints = 100'000'000; ///< limit for an outline

[[noreturn]] void Refuse(size_t point, const char* words)
{
    throw Refusal{SM_BAD_ARGUMENT, "point " + std::to_string(point) + " " + words};
}

/// The points from begin to end, without a separator.
struct Run
{
    const double* xy;
    const uint8_t* types;
    size_t begin;
    size_t end;

    bool RepeatsFirst(size_t i) const { return xy[2 * i] == xy[2 * begin] && xy[2 * i + 1] == xy[2 * begin + 1]; }
    bool HasTriple(size_t i) const
    {
        return i + shapes::kTriple <= end && types[i + 1] == SM_POINT_CURVE && types[i + 2] <= SM_POINT_CURVE;
    }
};

void ExpectRun(const Run& run)
{
    for (size_t i = run.begin, step = 1; i < run.end; i += step) {
        step = 1;
        if (run.types[i] == SM_POINT_FILL && (i + 1 != run.end || i == run.begin || !run.RepeatsFirst(i)))
            Refuse(i, "is a fill marker, but does not repeat its run's first point at its end");
        if (i == run.begin || run.types[i] != SM_POINT_CURVE)
            continue;
        if (!run.HasTriple(i))
            Refuse(i, "begins a curve of fewer than three points");
        step = shapes::kTriple;
    }
}

} // namespace

void ExpectOutline(const double* xy, const uint8_t* types, size_t count)
{
    ExpectGiven(xy, "xy");
    Expect(count >= 2 && count <= kMostPoints, SM_BAD_ARGUMENT, "an outline has 2 to 100 million points");
    const auto far =
        std::find_if_not(xy, xy + 2 * count, [](double number) { return shapedocument::WithinReach(number); });
    if (far != xy + 2 * count)
        Refuse(static_cast<size_t>(far - xy) / 2, "is no place within a kilometre");
    if (!types)
        return;
    const auto odd = std::find_if(types, types + count, [](uint8_t type) { return type > SM_POINT_FILL; });
    if (odd != types + count)
        Refuse(static_cast<size_t>(odd - types), "has a type that there is not");
    for (size_t begin = 0; begin < count;) {
        const auto end = static_cast<size_t>(std::find(types + begin, types + count, SM_POINT_SEPARATOR) - types);
        ExpectRun({xy, types, begin, end});
        begin = end + 1;
    }
}

} // namespace capi
