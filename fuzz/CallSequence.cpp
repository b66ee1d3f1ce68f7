/// Calls of the C interface in any order, with any handles and numbers. What fails must answer no result, nothing may
/// be the library's own fault, and at the end no handle may be left.
#include "Target.h"

#include "shapemodel.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <limits>

namespace {

constexpr int kMostCalls = 80;
constexpr int kMostCopies = 8; ///< each may double what there is
constexpr int kMostArrays = 3;

[[noreturn]] void Fail(const char* what)
{
    std::fprintf(stderr, "%s: %s\n", what, sm_last_error());
    std::abort();
}

int32_t Stop(void* context, const char*, uint64_t, uint64_t)
{
    return --*static_cast<int*>(context) < 0;
}

/// Takes bytes from the input; zeros behind its end.
class Choices
{
public:
    explicit Choices(fuzz::Bytes input) : m_input(input) {}

    bool Any() const { return !m_input.empty(); }
    unsigned Byte()
    {
        const unsigned byte = Any() ? m_input.front() : 0;
        m_input = m_input.subspan(Any() ? 1 : 0);
        return byte;
    }
    double Number()
    {
        constexpr double kInfinity = std::numeric_limits<double>::infinity();
        constexpr std::array kNumbers{0.0,
                                      1.0,
                                      -1.0,
                                      3.5,
                                      10.0,
                                      37.0,
                                      99.5,
                                      -40.0,
                                      90.0,
                                      30.0,
                                      1e-9,
                                      250.0,
                                      1e6,
                                      1e7,
                                      -1e6,
                                      1e300,
                                      kInfinity,
                                      -kInfinity,
                                      std::numeric_limits<double>::quiet_NaN()};
        return kNumbers[Byte() % kNumbers.size()];
    }
    sm_rect Rect() { return {Number(), Number(), Number(), Number()}; }
    /// A result that is not asked for, now and then.
    template <class Result>
    Result* Room(Result& result)
    {
        return Byte() % 32 == 31 ? nullptr : &result;
    }

private:
    fuzz::Bytes m_input;
};

class Sequence
{
public:
    explicit Sequence(fuzz::Bytes input) : m_choices(input) {}

    void Play()
    {
        for (int i = 0; i < kMostCalls && m_choices.Any(); ++i)
            Call();
        for (sm_handle& handle : m_handles)
            sm_release(handle);
        if (sm_handle_count() != 0)
            Fail("handles are left");
    }

private:
    /// Mostly one that was given, which may be gone by now.
    sm_handle Any()
    {
        const unsigned choice = m_choices.Byte();
        return choice < 250 ? m_handles[choice % m_handles.size()] : choice * 0x100000001ULL;
    }

    /// Keeps a handle, which the call has set, in place of another.
    void Keep(sm_status status, const sm_handle& handle)
    {
        Check(status);
        if (status != SM_OK && handle != 0)
            Fail("a failure with a result");
        if (handle == 0)
            return;
        sm_handle& place = m_handles[m_next++ % m_handles.size()];
        sm_release(place);
        place = handle;
    }

    static void Check(sm_status status)
    {
        if (status < SM_OK || status >= SM_INTERNAL)
            Fail("a fault of the library");
        if ((status == SM_OK) != (*sm_last_error() == 0))
            Fail("words that do not fit the status");
    }

    void Call()
    {
        switch (m_choices.Byte() % 4) {
        case 0:
            return Make();
        case 1:
            return Edit();
        case 2:
            return Ask();
        default:
            return Bind();
        }
    }

    void Make()
    {
        static constexpr char kDrawing[] = "<svg xmlns='http://www.w3.org/2000/svg' width='99' height='99'>"
                                           "<path d='M1 1L50 9 20 70z'/><circle r='9'/></svg>";
        sm_handle made = 0;
        switch (m_choices.Byte() % 7) {
        case 0:
            return Keep(sm_document_new(&made), made);
        case 1: {
            std::array<double, 12> xy{};
            std::array<uint8_t, 6> types{};
            for (double& number : xy)
                number = m_choices.Number();
            for (uint8_t& type : types)
                type = static_cast<uint8_t>(m_choices.Byte() % 5);
            const bool typed = m_choices.Byte() % 2 != 0;
            return Keep(sm_vector_new(xy.data(), typed ? types.data() : nullptr, m_choices.Byte() % 7, &made), made);
        }
        case 2:
            return Keep(sm_vector_new_rectangle(m_choices.Rect(), &made), made);
        case 3:
            return Keep(sm_vector_new_ellipse(m_choices.Rect(), &made), made);
        case 4: {
            const std::array<char, 4> text{static_cast<char>(m_choices.Byte()), 'g',
                                           static_cast<char>(m_choices.Byte()), 0};
            return Keep(sm_text_new(text.data(), nullptr, &made), made);
        }
        case 5: {
            const std::array<uint8_t, 12> pixels{0, 9, 200, 255, 3, 128, 7, 7, 7, 9, 9, 9};
            const size_t width = m_choices.Byte() % 5, height = m_choices.Byte() % 4;
            return Keep(sm_image_new(pixels.data(), width, height, m_choices.Byte() % 5, m_choices.Rect(), &made),
                        made);
        }
        default:
            return Check(sm_document_import_drawing_bytes(Any(), kDrawing, sizeof kDrawing - m_choices.Byte() % 2 - 1,
                                                          nullptr, nullptr, nullptr));
        }
    }

    void Edit()
    {
        const sm_handle shape = Any();
        switch (m_choices.Byte() % 9) {
        case 0:
            return Check(sm_shape_move(shape, m_choices.Number(), m_choices.Number()));
        case 1:
            return Check(sm_shape_turn(shape, m_choices.Number(), m_choices.Number(), m_choices.Number()));
        case 2:
            return Check(sm_shape_resize(shape, m_choices.Rect()));
        case 3:
            return Check(sm_shape_mirror_x(shape, m_choices.Number()));
        case 4:
            return Check(sm_shape_mirror_y(shape, m_choices.Number()));
        case 5:
            return Check(sm_shape_set_state(shape, m_choices.Byte() % 9));
        case 6:
            return Check(sm_shape_set_text(shape, "ab\nc", nullptr));
        case 7:
            return Check(sm_array_delete_cell(shape, m_choices.Byte() % 8));
        default:
            return Check(sm_shape_set_color(shape, m_choices.Byte()));
        }
    }

    void Bind()
    {
        const std::array<sm_shape, 3> shapes{Any(), Any(), Any()};
        const size_t count = m_choices.Byte() % 4;
        sm_handle made = 0;
        switch (m_choices.Byte() % 8) {
        case 0:
            return Keep(sm_group_new(shapes.data(), count, &made), made);
        case 1: {
            if (++m_arrays > kMostArrays)
                return;
            constexpr uint32_t kSize = sizeof(sm_array_options);
            const uint32_t size = m_choices.Byte() % 2 ? kSize : m_choices.Byte() % kSize;
            const sm_array_options cells{
                size, int32_t(m_choices.Byte() % 4), 2, m_choices.Number(), 1, 0, m_choices.Number()};
            return Keep(sm_array_new(shapes.data(), count, &cells, &made), made);
        }
        case 2:
            return Check(sm_group_dissolve(shapes[0]));
        case 3:
            return Check(sm_shape_remove(shapes[0]));
        case 4:
            if (++m_copies > kMostCopies)
                return;
            return Keep(sm_shape_clone(shapes[0], &made), made);
        case 5:
            if (sm_retain(shapes[0]) == SM_OK && sm_release(shapes[0]) != SM_OK)
                Fail("a handle that was retained is gone");
            return;
        default:
            return Check(
                sm_document_add(shapes[0], shapes[1], m_choices.Byte() % 3 ? size_t(SM_END) : m_choices.Byte() % 4));
        }
    }

    void Ask()
    {
        const sm_handle handle = Any();
        sm_handle made = 0, second = 0;
        size_t count = 0;
        int patience = static_cast<int>(m_choices.Byte());
        switch (m_choices.Byte() % 9) {
        case 0:
            return Keep(sm_document_shape(handle, m_choices.Byte() % 4, &made), made);
        case 1:
            return Keep(sm_shape_member(handle, m_choices.Byte() % 4, &made), made);
        case 2:
            return Keep(sm_shape_document(handle, &made), made);
        case 3: {
            const sm_status status = sm_shape_lines(handle, &made, &second);
            Keep(status, made);
            return Keep(status, second);
        }
        case 4:
            return Keep(sm_job_new(handle, nullptr, Stop, &patience, &made), made);
        case 5:
            return Keep(sm_job_write_bytes(handle, patience % 4 - 1, nullptr, Stop, &patience, &made), made);
        case 6:
            return Keep(sm_document_save_bytes(handle, nullptr, &made), made);
        case 7:
            return ReadBack(handle);
        default: {
            std::array<double, 8> xy{};
            std::array<uint8_t, 4> types{};
            return Check(sm_shape_points(handle, xy.data(), types.data(), xy.size() / 2, m_choices.Room(count)));
        }
        }
    }

    /// A buffer as a document, whatever it holds.
    void ReadBack(sm_buffer buffer)
    {
        const uint8_t* data = nullptr;
        size_t size = 0;
        sm_handle made = 0;
        const sm_status status = sm_buffer_view(buffer, m_choices.Room(data), &size);
        Check(status);
        if (status == SM_OK)
            Keep(sm_document_open_bytes(data, size - (m_choices.Byte() % 8 == 7 && size > 0), nullptr, &made), made);
    }

    Choices m_choices;
    std::array<sm_handle, 12> m_handles{};
    size_t m_next = 0;
    int m_copies = 0, m_arrays = 0;
};

} // namespace

int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size)
{
    Sequence({data, size}).Play();
    return 0;
}
