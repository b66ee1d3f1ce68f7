/// Makes jobs beside the window: it goes on living while they are made.
#pragma once

#include "job/MadeJob.h"

#include <QObject>

#include <atomic>
#include <memory>
#include <thread>

/// One job at a time; a new one takes the place of that which is being made.
class JobMaker : public QObject
{
    Q_OBJECT

public:
    explicit JobMaker(QObject* parent = nullptr) : QObject(parent) {}
    /// Waits until the work that goes on has noticed.
    ~JobMaker() override;

    /// Starts with a copy of a drawing that is used nowhere else, after the job under way has noticed that it is given
    /// up. Returns at once.
    void Make(ShapeListOwner copy, const JobSettings& settings);
    /// Gives up what is being made; nothing is told of it. Returns at once.
    void Stop();
    /// Whether a job is being made.
    bool IsAtWork() const { return m_atWork; }

signals:
    /// What is being done: words, and how much of it (0 to 100; -1 where it is not known).
    void Progressed(const QString& words, int percent);
    /// The job is there.
    void Made(const std::shared_ptr<const MadeJob>& job);
    /// There is none, and why.
    void Failed(const QString& reason);

private:
    using Stops = std::shared_ptr<std::atomic<bool>>; ///< of one job

    void Run(ShapeListOwner copy, const JobSettings& settings, int number, const Stops& stops);
    void Tell(int number, const std::function<void()>& tell);

    std::thread m_thread; ///< of the last job; it waits for the one before
    Stops m_stops;        ///< of the last job
    int m_number = 0;     ///< of the job that is wanted; what comes of others is dropped
    bool m_atWork = false;
};
