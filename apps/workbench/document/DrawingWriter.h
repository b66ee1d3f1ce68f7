/// Autosaver: writes copies of the drawing on another thread.
#pragma once

#include "list/ShapeListOwner.h"

#include <QObject>

#include <functional>
#include <thread>

/// Writes one copy at a time, each completely or not at all: the former file stays until then.
class Autosaver : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~Autosaver() override;

    /// Starts to write a copy that is used nowhere else, after before has written the files that belong to it; before
    /// may throw shapedocument::Failure. Call only while nothing is being written.
    void Write(ShapeListOwner copy, const QString& file, std::function<void()> before);
    /// Whether a copy is being written.
    bool IsAtWork() const { return m_atWork; }
    /// Waits until the copy is on the disk or has failed. Call before its file is moved or removed.
    void Wait();

signals:
    /// The copy could not be written, and why.
    void Failed(const QString& reason);

private:
    std::thread m_thread;
    bool m_atWork = false;
};
