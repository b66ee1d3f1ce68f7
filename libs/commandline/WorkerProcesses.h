/// Work done in child processes.
#pragma once

#include <cstddef>
#include <functional>

/// How a process ended.
struct ProcessEnd
{
    int exitCode = 0; ///< 1 when a signal ended it
    int signal = 0;
};

/// Calls work for 0 to count - 1, each in a fork of this process, at most jobs at the same time; calls ended in this
/// process whenever one of them ends. What work prints is printed as a whole before that. Failures that work throws are
/// reported as the program's own are. Child processes end with this process. Throws Failure if fork fails.
void RunInProcesses(size_t count, size_t jobs, const std::function<int(size_t)>& work,
                    const std::function<void(size_t, const ProcessEnd&)>& ended);
