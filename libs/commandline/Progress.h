/// One line of progress on a terminal.
#pragma once

#include "document/WorkProgress.h"

#include <QString>

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>

class QFile;

constexpr double kMegabyte = 1e6; ///< bytes

/// Shows on standard error how far a step has come if it takes more than half a second and standard error is a
/// terminal. The destructor removes the line.
class Progress
{
public:
    explicit Progress(const QString& work);
    /// Follows the position of a file that is read from start to end by any code.
    Progress(const QString& work, const QFile& file);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// total 0: not known. Cheap enough for every item.
    void At(size_t done, size_t total);

    /// Clears the line of progress, if one is shown, before another line is printed.
    static void Clear();

private:
    void Show();
    QString Line(int seconds) const;

    QString m_work;
    int m_file = -1; ///< descriptor of the file that is followed
    std::atomic<size_t> m_done = 0;
    std::atomic<size_t> m_total = 0;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_over = false;
    std::thread m_shower; ///< on terminals only; last member: it uses the others
};

/// Shows the steps of work in the document library, each as a Progress of its own that ends with the next one or with
/// the last copy of what is returned.
shapedocument::WorkProgress ShownSteps();
