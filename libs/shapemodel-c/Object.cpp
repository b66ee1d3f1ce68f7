#include "Object.h"

#include "Refusal.h"

namespace capi {

void Workplace::Enter()
{
    if (m_worker.load() == std::this_thread::get_id())
        throw Refusal{SM_BUSY, "is being worked on by the call that this one came from"};
    m_mutex.lock();
    m_worker = std::this_thread::get_id();
}

void Workplace::Leave()
{
    m_worker = std::thread::id();
    m_mutex.unlock();
}

} // namespace capi
