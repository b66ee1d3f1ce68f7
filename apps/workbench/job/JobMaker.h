/// Makes jobs on another thread, while the window stays usable.
#pragma once

#include "job/MadeJob.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <thread>

/// Makes one job at a time; a new one replaces the one being made.
class JobMaker : public QObject
{
    Q_OBJECT

public:
    explicit JobMaker(QObject* parent = nullptr) : QObject(parent) {}
    /// Stops, and waits for the end of the work.
    ~JobMaker() override;

    /// Starts with a copy of a drawing that is used nowhere else, after the job under way has noticed that it is given
    /// up. Returns at once.
    void Make(ShapeListOwner copy, const JobSettings& settings);
    /// Cancels the job being made; no signal is emitted for it. Returns at once.
    void Stop();
    /// Whether a job is being made.
    bool IsAtWork() const { return m_atWork; }

signals:
    /// The present step in words, and how much of it is done (0 to 100; -1 where it is not known).
    void Progressed(const QString& words, int percent);
    /// The job is finished.
    void Made(const std::shared_ptr<const MadeJob>& job);
    /// The job could not be made, and why.
    void Failed(const QString& reason);

private:
    using Stops = std::shared_ptr<std::atomic<bool>>; ///< set to stop one job

    void Run(ShapeListOwner copy, const JobSettings& settings, int number, const Stops& stops);
    void Tell(int number, const std::function<void()>& tell);

    std::thread m_thread; ///< of the last job; it waits for the one before
    Stops m_stops;        ///< of the last job
    int m_number = 0;     ///< of the wanted job; results of others are dropped
    bool m_atWork = false;
};
