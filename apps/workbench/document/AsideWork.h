/// AsideWork, what takes long and goes on beside the window.
#pragma once

#include <QString>

#include <functional>
#include <future>
#include <vector>

class Questions;

/// Runs one piece of work at a time on a thread of its own, while the window goes on being painted.
class AsideWork
{
public:
    /// questions must outlive the work.
    explicit AsideWork(Questions& questions) : m_questions(questions) {}
    AsideWork(const AsideWork&) = delete;
    AsideWork& operator=(const AsideWork&) = delete;
    /// Waits for work that was given up: the libraries cannot stop in the middle of a file.
    ~AsideWork() = default;

    /// Waits for the end of work, and shows words ("Opening a.shapes") and a way to give up meanwhile. What work throws
    /// comes out here, a std::exception (no memory) as shapedocument::Failure. Work that is given up
    /// goes on to its end unseen, so it must own all that it uses.
    /// @return false when the user gave up, or when other work goes on
    bool Run(const QString& words, std::function<void()> work);

private:
    Questions& m_questions;
    std::vector<std::future<void>> m_givenUp;
    bool m_runs = false;
};
