/// AsideWork: long work on another thread.
#pragma once

#include <QString>

#include <functional>
#include <future>
#include <vector>

class Questions;

/// Runs one piece of work at a time on another thread, while the window is still painted.
class AsideWork
{
public:
    /// questions must outlive the work.
    explicit AsideWork(Questions& questions) : m_questions(questions) {}
    AsideWork(const AsideWork&) = delete;
    AsideWork& operator=(const AsideWork&) = delete;
    /// Waits for cancelled work: the libraries cannot stop in the middle of a file.
    ~AsideWork() = default;

    /// Waits for the end of work and meanwhile shows words ("Opening a.shapes") and a way to cancel. Exceptions of work
    /// are thrown here, a std::exception (no memory) as shapedocument::Failure. Cancelled work runs to its end in the
    /// background, so it must own all that it uses.
    /// @return false when the user has cancelled, or while other work runs
    bool Run(const QString& words, std::function<void()> work);

private:
    Questions& m_questions;
    std::vector<std::future<void>> m_givenUp;
    bool m_runs = false;
};
