/// What the C interface costs beyond the library.
#include "Goals.h"

#include "shapemodel.h"

#include "vector/ShapeVector.h"

#include <benchmark/benchmark.h>

#include <cstring>
#include <ctime>
#include <memory>
#include <vector>

namespace {

using namespace bench;

constexpr int kCalls = 1'000'000;
constexpr int kHandles = 100'000;
constexpr size_t kPoints = 1'000'000;

double CpuMicroseconds()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) * 1e6 + static_cast<double>(now.tv_nsec) * 1e-3;
}

template <class Call>
double Microseconds(const Call& call)
{
    const double start = CpuMicroseconds();
    for (int i = 0; i < kCalls; ++i)
        call(i);
    return (CpuMicroseconds() - start) / kCalls;
}

/// Rectangles in a document, each with a handle.
class Held
{
public:
    explicit Held(size_t count)
    {
        sm_document_new(&document);
        shapes.resize(count);
        for (sm_shape& shape : shapes) {
            sm_vector_new_rectangle({0, 0, 1, 1}, &shape);
            sm_document_add(document, shape, static_cast<size_t>(SM_END));
        }
    }
    Held(const Held&) = delete;
    Held& operator=(const Held&) = delete;
    ~Held()
    {
        for (const sm_shape shape : shapes)
            sm_release(shape);
        sm_release(document);
    }

    sm_document document = 0;
    std::vector<sm_shape> shapes;
};

/// A call that does nothing worth mentioning, beside the library's own.
Amounts CostOfCall(size_t handles)
{
    const Held held(handles);
    CShapeVector own;
    uint32_t color = 0;
    const double bare = Microseconds([&](int) { benchmark::DoNotOptimize(color = own.GetColor()); });
    const double called = Microseconds([&](int i) {
        sm_shape_color(held.shapes[static_cast<size_t>(i) % handles], &color);
        benchmark::DoNotOptimize(color);
    });
    return {called - bare, 1};
}

/// A handle given and given back.
Amounts CostOfHandle()
{
    const Held held(kHandles);
    return {Microseconds([&](int i) {
                sm_shape shape = 0;
                sm_document_shape(held.document, static_cast<size_t>(i) % kHandles, &shape);
                sm_release(shape);
            }),
            1};
}

/// Into memory that has been written to before, on both sides.
Sides CopyOfPoints()
{
    struct Memory
    {
        std::vector<double> xy = std::vector<double>(2 * kPoints, 1.0), to = xy;
        std::vector<uint8_t> types = std::vector<uint8_t>(kPoints, SM_POINT_STRAIGHT), toTypes = types;
        sm_shape shape = 0;

        Memory() { sm_vector_new(xy.data(), types.data(), kPoints, &shape); }
        Memory(const Memory&) = delete;
        Memory& operator=(const Memory&) = delete;
        ~Memory() { sm_release(shape); }
    };
    const auto memory = std::make_shared<Memory>();
    const auto copy = [memory] {
        size_t count = 0;
        sm_shape_points(memory->shape, memory->to.data(), memory->toTypes.data(), kPoints, &count);
        benchmark::DoNotOptimize(memory->to.data());
    };
    const auto plain = [memory] {
        std::memcpy(memory->to.data(), memory->xy.data(), memory->xy.size() * sizeof(double));
        std::memcpy(memory->toTypes.data(), memory->types.data(), memory->types.size());
        benchmark::DoNotOptimize(memory->to.data());
    };
    return {{copy}, {plain}};
}

const bool s_rows = Register({
    {.name = "Y1 a call from C, beyond the library's own, 1 handle",
     .against = "1 µs",
     .goal = AtMost(1),
     .amounts = [] { return CostOfCall(1); },
     .unit = "µs"},
    {.name = "Y1 the same, 100,000 handles",
     .against = "1 µs",
     .goal = AtMost(1),
     .amounts = [] { return CostOfCall(kHandles); },
     .unit = "µs"},
    {.name = "Y1 a handle given and given back",
     .against = "1 µs",
     .goal = AtMost(1),
     .amounts = [] { return CostOfHandle(); },
     .unit = "µs"},
    {.name = "Y2 1 M points copied to C", .against = "memcpy", .goal = AtMost(1.3), .sides = CopyOfPoints},
});

} // namespace
