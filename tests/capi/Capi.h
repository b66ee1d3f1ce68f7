/// Handles that give themselves back, and what tests ask again and again.
#pragma once

#include "shapemodel.h"

#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace test {

/// Fails the test with the library's own words.
inline void Ok(sm_status status)
{
    ASSERT_EQ(status, SM_OK) << sm_last_error();
}

class Handle
{
public:
    Handle() = default;
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() { Give(); }

    void Give() { sm_release(std::exchange(m_handle, 0)); }
    sm_handle* Room() { return &m_handle; }
    operator sm_handle() const { return m_handle; }

private:
    sm_handle m_handle = 0;
};

inline std::string Bytes(sm_buffer buffer)
{
    const uint8_t* data = nullptr;
    size_t size = 0;
    Ok(sm_buffer_view(buffer, &data, &size));
    return {reinterpret_cast<const char*>(data), size};
}

inline std::string Saved(sm_document document)
{
    Handle bytes;
    Ok(sm_document_save_bytes(document, nullptr, bytes.Room()));
    return Bytes(bytes);
}

inline std::vector<double> Rect(sm_shape shape)
{
    sm_rect rect{};
    Ok(sm_shape_rect(shape, &rect));
    return {rect.x, rect.y, rect.width, rect.height};
}

/// All points of a shape's lines.
inline std::vector<std::pair<double, double>> LinePoints(sm_shape shape)
{
    Handle xy, starts;
    Ok(sm_shape_lines(shape, nullptr, nullptr, xy.Room(), starts.Room()));
    const uint8_t* data = nullptr;
    size_t size = 0;
    Ok(sm_buffer_view(xy, &data, &size));
    const auto* numbers = reinterpret_cast<const double*>(data);
    std::vector<std::pair<double, double>> points;
    for (size_t i = 0; i + 1 < size / sizeof(double); i += 2)
        points.emplace_back(numbers[i], numbers[i + 1]);
    return points;
}

/// A document with one shape of each kind: outline, ellipse, text, picture, code, a group in a group, an array.
void FillWithEveryKind(sm_document document);

} // namespace test
