/// Pieces of work in processes of their own.
#pragma once

#include <cstddef>
#include <functional>

/// How a process ended.
struct ProcessEnd
{
    int exitCode = 0; ///< 1 when a signal ended it
    int signal = 0;
};

/// Calls work for 0 to count - 1, each in a copy of this process, at most jobs at the same time, and ended here as each of
/// them ends. What work prints comes out in one piece, before ended is called. Failures that work throws are told as the
/// program's own are. Ends with this process, however that ends. Throws Failure when there is no process to be had.
void RunInProcesses(size_t count, size_t jobs, const std::function<int(size_t)>& work,
                    const std::function<void(size_t, const ProcessEnd&)>& ended);
