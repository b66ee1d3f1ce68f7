/// One line of progress on a terminal.
#pragma once

#include <QElapsedTimer>

#include <cstddef>

/// Shows on standard error how far long work has come; shows nothing for short work or when standard error is no
/// terminal. The line goes with the object.
class Progress
{
public:
    explicit Progress(const char* work);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// total 0: not known.
    void At(size_t done, size_t total);

private:
    const char* m_work;
    bool m_terminal;
    bool m_shown = false;
    QElapsedTimer m_quiet;
};
