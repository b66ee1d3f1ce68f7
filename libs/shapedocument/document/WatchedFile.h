/// A file that tells how far the shape library's reading or writing of it has come.
#pragma once

#include "document/WorkProgress.h"

#include <QFile>

namespace shapedocument {

/// Stands in front of another file, at its position, which moves along. No exception may pass the shape library and
/// Qt's files: once the progress has answered false all reads and writes fail, which soon ends the work.
class WatchedFile : public QFile
{
public:
    /// Borrows both; the file is open. Its errors stay with it.
    WatchedFile(QFile& file, const WorkProgress& progress, WorkStep step);
    WatchedFile(const WatchedFile&) = delete;
    WatchedFile& operator=(const WatchedFile&) = delete;
    ~WatchedFile() override;

    /// Throws Stopped where the progress has answered false.
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
