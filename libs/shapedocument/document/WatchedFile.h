/// A file that reports the progress of the shape library's reads and writes.
#pragma once

#include "document/WorkProgress.h"

#include <QFile>

namespace shapedocument {

/// Wraps another file and shares its position. No exception may pass through the shape library and Qt's files, so after
/// the progress has returned false all reads and writes fail, which soon ends the work.
class WatchedFile : public QFile
{
public:
    /// Borrows file, which must be open, and progress. Errors are reported by file.
    WatchedFile(QFile& file, const WorkProgress& progress, WorkStep step);
    WatchedFile(const WatchedFile&) = delete;
    WatchedFile& operator=(const WatchedFile&) = delete;
    ~WatchedFile() override;

    /// Throws Stopped if the progress has returned false.
    void ExpectGoesOn() const;

    qint64 size() const override { return m_file.size(); }
    bool seek(qint64 position) override;
    bool atEnd() const override { return m_file.atEnd(); }
    bool isSequential() const override { return m_file.isSequential(); }

protected:
    qint64 readData(char* data, qint64 most) override;
    qint64 writeData(const char* data, qint64 length) override;

private:
    template <class Move>
    qint64 InBlocks(qint64 length, const Move& move);

    QFile& m_file;
    WorkWatch m_watch;
    bool m_stopped = false;
};

} // namespace shapedocument
