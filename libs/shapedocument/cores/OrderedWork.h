/// Work on several cores whose results are taken in order.
#pragma once

#include <condition_variable>
#include <cstddef>
#include <deque>
#include <exception>
#include <functional>
#include <mutex>
#include <thread>
#include <vector>

namespace shapedocument {

/// Cores that the calling thread may run on (taskset and containers leave it some of the machine's), 8 at most; 1 where
/// the system does not know.
size_t CoreCount();

/// Steps in two halves: `make` runs on any thread, `take` on the thread that adds the steps, one after the other and in
/// the order in which they were added. What `take` writes is therefore the same on any number of threads. Cost: two
/// locks a step, so that a step should last some 0.1 ms at least, and a small part of the 0.1 s within which a user may
/// stop long work. From the second step on, each step that waits starts one more thread, up to the number that is
/// wanted; where the system has none, the calling thread makes all steps.
class OrderedWork
{
public:
    using Half = std::function<void()>;

    /// threads: that make steps, the calling one included; 1 at least, which makes and takes each step at once.
    explicit OrderedWork(size_t threads = CoreCount());
    OrderedWork(const OrderedWork&) = delete;
    OrderedWork& operator=(const OrderedWork&) = delete;
    /// Drops the steps that have not been taken. Waits for those that are being made.
    ~OrderedWork();

    /// make must not touch anything that the calling thread changes before take, nor what another make changes. Takes
    /// steps whenever more than two for each thread are under way, and throws what their halves throw: of make where
    /// take would have run. No step may be added after that.
    void Add(Half make, Half take);

    /// Takes all steps that were added. Throws as Add does.
    void Finish();

private:
    struct Step
    {
        Half make, take;
        std::exception_ptr failure; ///< of make
        bool made = false;
    };

    void StartThread();
    void MakeSteps();
    void MakeNext(std::unique_lock<std::mutex>& lock);
    void TakeFirst();

    size_t m_size; ///< threads, the calling one included
    std::mutex m_mutex;
    std::condition_variable m_added; ///< or ended
    std::condition_variable m_made;
    std::deque<Step> m_steps; ///< its members stay where they are while others are added and taken
    size_t m_begun = 0;       ///< steps from the first on whose make has begun
    bool m_ended = false;
    std::vector<std::thread> m_threads;
};

} // namespace shapedocument
