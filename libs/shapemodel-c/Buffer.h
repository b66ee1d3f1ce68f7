/// Bytes that are lent to callers.
#pragma once

#include "Handles.h"

#include <QByteArray>

#include <span>

namespace capi {

/// Bytes and a reference to their owner, which keeps it alive.
class Buffer : public Object
{
public:
    Buffer(std::shared_ptr<const void> owner, const void* data, size_t size)
        : Object(Kind::Buffer), m_owner(std::move(owner)), m_bytes(static_cast<const uint8_t*>(data), data ? size : 0)
    {}

    std::span<const uint8_t> Bytes() const { return m_bytes; }

private:
    std::shared_ptr<const void> m_owner;
    std::span<const uint8_t> m_bytes;
};

/// A handle of a container's elements, which must be contiguous. The container is moved into the buffer.
template <class Container>
sm_buffer Lent(Container container)
{
    const auto owner = std::make_shared<const Container>(std::move(container));
    auto buffer = std::make_shared<Buffer>(owner, std::data(*owner),
                                           static_cast<size_t>(std::size(*owner)) * sizeof(*std::data(*owner)));
    const TableLock table;
    return table->Give(std::move(buffer));
}

} // namespace capi
