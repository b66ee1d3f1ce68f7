#include "Progress.h"

#include <cstdio>
#include <unistd.h>

namespace {

constexpr int kIntervalMs = 200;

} // namespace

Progress::Progress(const char* work) : m_work(work), m_terminal(isatty(STDERR_FILENO) != 0)
{
    m_quiet.start();
}

Progress::~Progress()
{
    if (m_shown)
        std::fputs("\r\033[K", stderr);
}

void Progress::At(size_t done, size_t total)
{
    if (!m_terminal || m_quiet.elapsed() < kIntervalMs)
        return;
    m_quiet.restart();
    m_shown = true;
    if (total > 0)
        std::fprintf(stderr, "\r\033[K%s: %zu of %zu", m_work, done, total);
    else
        std::fprintf(stderr, "\r\033[K%s: %zu", m_work, done);
    std::fflush(stderr);
}
