#include "cores/OrderedWork.h"

#include <QThread>

#include <algorithm>
#include <system_error>
#include <utility>

namespace shapedocument {

size_t CoreCount()
{
    constexpr int kMost = 8; // more wait for the one that takes, and for memory
    return static_cast<size_t>(std::clamp(QThread::idealThreadCount(), 1, kMost));
}

OrderedWork::OrderedWork(size_t threads) : m_size(threads) {}

OrderedWork::~OrderedWork()
{
    {
        const std::lock_guard lock(m_mutex);
        m_ended = true;
    }
    m_added.notify_all();
    for (std::thread& thread : m_threads)
        thread.join();
}

void OrderedWork::Add(Half make, Half take)
{
    if (m_size == 1) {
        Finish(); // what was added before no thread could be started
        make();
        take();
        return;
    }
    {
        const std::lock_guard lock(m_mutex);
        m_steps.push_back({std::move(make), std::move(take), nullptr});
    }
    if (m_steps.size() > m_threads.size() + 1 && m_threads.size() + 1 < m_size) // only this thread adds and takes
        StartThread();
    m_added.notify_one();
    while (m_steps.size() > 2 * m_size)
        TakeFirst();
}

void OrderedWork::Finish()
{
    while (!m_steps.empty())
        TakeFirst();
}

void OrderedWork::StartThread()
{
    try {
        m_threads.emplace_back([this] { MakeSteps(); });
    } catch (const std::system_error&) {
        m_size = m_threads.size() + 1;
    }
}

void OrderedWork::MakeSteps()
{
    std::unique_lock lock(m_mutex);
    while (true) {
        m_added.wait(lock, [this] { return m_ended || m_begun < m_steps.size(); });
        if (m_ended)
            return;
        MakeNext(lock);
    }
}

/// Makes the first step that nobody has begun.
void OrderedWork::MakeNext(std::unique_lock<std::mutex>& lock)
{
    Step& step = m_steps[m_begun++];
    lock.unlock();
    std::exception_ptr failure;
    try {
        step.make();
    } catch (...) {
        failure = std::current_exception();
    }
    lock.lock();
    step.failure = failure;
    step.made = true;
    m_made.notify_one();
}

/// While another thread makes the first step, this one makes a later one.
void OrderedWork::TakeFirst()
{
    std::unique_lock lock(m_mutex);
    while (!m_steps.front().made)
        if (m_begun < m_steps.size())
            MakeNext(lock);
        else
            m_made.wait(lock, [this] { return m_steps.front().made; });
    const Step first = std::move(m_steps.front());
    m_steps.pop_front();
    --m_begun;
    lock.unlock();
    if (first.failure)
        std::rethrow_exception(first.failure);
    first.take();
}

} // namespace shapedocument
