#include "Progress.h"

#include "Escaped.h"

#include <QFile>

#include <chrono>
#include <cstdio>
#include <memory>
#include <optional>
#include <unistd.h>

using namespace shapedocument;

namespace {

using Clock = std::chrono::steady_clock;
constexpr std::chrono::milliseconds kPatience{500};
constexpr std::chrono::milliseconds kInterval{200};

std::atomic<bool> s_shown = false; ///< a line of progress is on the terminal

QString WordsOf(WorkStep step)
{
    switch (step) {
    case WorkStep::Lines:
        return "making lines of shapes";
    case WorkStep::Joining:
        return "joining lines";
    case WorkStep::Ordering:
        return "putting paths in order";
    case WorkStep::Doubles:
        return "looking for doubled lines";
    default: // of other work than the making of jobs
        return "working";
    }
}

} // namespace

Progress::Progress(const QString& work) : m_work(Escaped(work))
{
    if (isatty(STDERR_FILENO) != 0)
        m_shower = std::thread([this] { Show(); });
}

Progress::Progress(const QString& work, const QFile& file) : m_work(Escaped(work)), m_file(file.handle())
{
    m_total = static_cast<size_t>(file.size());
    if (isatty(STDERR_FILENO) != 0)
        m_shower = std::thread([this] { Show(); });
}

Progress::~Progress()
{
    if (!m_shower.joinable())
        return;
    {
        const std::lock_guard lock(m_mutex);
        m_over = true;
    }
    m_wake.notify_one();
    m_shower.join();
}

void Progress::At(size_t done, size_t total)
{
    m_done.store(done, std::memory_order_relaxed);
    m_total.store(total, std::memory_order_relaxed);
}

QString Progress::Line(int seconds) const
{
    if (m_file >= 0)
        return QString("%1: %2 of %3 MB")
            .arg(m_work)
            .arg(double(lseek(m_file, 0, SEEK_CUR)) / kMegabyte, 0, 'f', 1)
            .arg(double(m_total) / kMegabyte, 0, 'f', 1);
    if (m_total > 0)
        return QString("%1: %2 of %3").arg(m_work).arg(m_done).arg(m_total);
    return m_done > 0 ? QString("%1: %2").arg(m_work).arg(m_done) : QString("%1: %2 s").arg(m_work).arg(seconds);
}

void Progress::Show()
{
    const Clock::time_point start = Clock::now();
    std::unique_lock lock(m_mutex);
    bool shown = false;
    while (!m_wake.wait_for(lock, shown ? kInterval : kPatience, [this] { return m_over; })) {
        const auto elapsed = std::chrono::duration_cast<std::chrono::seconds>(Clock::now() - start);
        std::fprintf(stderr, "\r\033[K%s", qPrintable(Line(static_cast<int>(elapsed.count()))));
        std::fflush(stderr);
        shown = s_shown = true;
    }
    Clear();
}

void Progress::Clear()
{
    if (s_shown.exchange(false))
        std::fputs("\r\033[K", stderr);
}

WorkProgress ShownSteps()
{
    struct Shown
    {
        std::optional<WorkStep> step;
        std::optional<Progress> line;
    };
    return [shown = std::make_shared<Shown>()](WorkStep step, size_t done, size_t all) {
        if (shown->step != step)
            shown->line.emplace(WordsOf(step));
        shown->step = step;
        shown->line->At(done, all);
        return true; // signals end the program
    };
}
