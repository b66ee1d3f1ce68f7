/// Autosaver, copies of the drawing written beside the window.
#pragma once

#include "list/ShapeListOwner.h"

#include <QObject>

#include <functional>
#include <thread>

/// Writes one copy at a time, each whole or not at all: what was written before stays until then.
class Autosaver : public QObject
{
    Q_OBJECT

public:
    using QObject::QObject;
    ~Autosaver() override;

    /// Starts to write a copy that is used nowhere else, after before has written what belongs to it; before may throw
    /// shapedocument::Failure. To be called while nothing is being written.
    void Write(ShapeListOwner copy, const QString& file, std::function<void()> before);
    /// Whether a copy is being written.
    bool IsAtWork() const { return m_atWork; }
    /// Until the copy is on the disk, or has failed. Before its file is moved or removed.
    void Wait();

signals:
    /// The copy could not be written, and why.
    void Failed(const QString& reason);

private:
    std::thread m_thread;
    bool m_atWork = false;
};
