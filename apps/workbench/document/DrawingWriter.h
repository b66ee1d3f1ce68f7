/// DrawingWriter: writes copies of the drawing on another thread.
#pragma once

#include "list/ShapeListOwner.h"

#include <QObject>

#include <deque>
#include <functional>
#include <future>

/// Writes one copy after another, each completely or not at all: a former file stays until then.
class DrawingWriter : public QObject
{
    Q_OBJECT

public:
    /// Called on the window's thread at the end; reason: why nothing was written, empty where the copy is on the disk.
    using Done = std::function<void(const QString& reason)>;

    using QObject::QObject;
    /// Waits until everything is written; nobody is told any more.
    ~DrawingWriter() override;

    /// Starts to write a copy that is used nowhere else, after the copies before it. beside writes the files that
    /// belong to it, when only the renaming of the copy's file can still fail: if the drawing cannot be written they
    /// stay unchanged. It is called on the other thread, and may throw shapedocument::Failure.
    void Write(ShapeListOwner copy, const QString& file, std::function<void()> beside, Done done);
    /// Whether somebody has still to be told of an end.
    bool IsAtWork() const { return !m_works.empty(); }
    /// Whether all is written after waiting so long at most.
    bool IsWritten(int milliseconds) const;
    /// Waits until all is written, and tells of it. Call before a file of a copy is moved or removed.
    void Wait() { Settle(m_last); }

private:
    struct Work
    {
        int number;
        std::shared_future<QString> reason;
        Done done;
    };

    void Settle(int last);

    std::deque<Work> m_works;
    int m_last = 0; ///< number of the last work
};
