/// One line of progress on a terminal.
#pragma once

#include <QString>

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
#include <thread>

class QFile;

/// Shows on standard error how far a step has come that takes more than half a second; shows nothing when standard error
/// is no terminal. The line goes with the object.
class Progress
{
public:
    explicit Progress(const QString& work);
    /// Of reading the file from its start to its end, whoever reads it.
    Progress(const QString& work, const QFile& file);
    ~Progress();
    Progress(const Progress&) = delete;
    Progress& operator=(const Progress&) = delete;

    /// total 0: not known. Costs next to nothing.
    void At(size_t done, size_t total);

    /// Makes room for another line, where a line of progress stands.
    static void Clear();

private:
    void Show();
    QString Line(int seconds) const;

    QString m_work;
    int m_file = -1; ///< whose place tells how far the reading has come
    std::atomic<size_t> m_done = 0;
    std::atomic<size_t> m_total = 0;
    std::mutex m_mutex;
    std::condition_variable m_wake;
    bool m_over = false;
    std::thread m_shower; ///< on terminals; last, for it uses the others
};
