#include "document/WatchedFile.h"

#include <algorithm>

namespace shapedocument {

namespace {

constexpr qint64 kWatchedBlock = qint64{1} << 20; // a few milliseconds

/// The total of a read in bytes; 0 (unknown) for a write.
size_t AllOf(const QFile& file, WorkStep step)
{
    return step == WorkStep::Reading ? static_cast<size_t>(file.size()) : 0;
}

} // namespace

WatchedFile::WatchedFile(QFile& file, const WorkProgress& progress, WorkStep step)
    : m_file(file), m_watch(progress, step, AllOf(file, step))
{
    setOpenMode(file.openMode() | Unbuffered); // the wrapped file is buffered already
    QIODevice::seek(file.pos());
}

WatchedFile::~WatchedFile()
{
    setOpenMode(NotOpen); // the base class must not close the wrapped file
}

void WatchedFile::ExpectGoesOn() const
{
    if (m_stopped)
        throw Stopped();
}

bool WatchedFile::seek(qint64 position)
{
    return QIODevice::seek(position) && m_file.seek(position);
}

/// move(done, count) returns how many bytes it has moved, as QIODevice::read does.
template <class Move>
qint64 WatchedFile::InBlocks(qint64 length, const Move& move)
{
    qint64 done = 0;
    while (done < length) {
        m_stopped = m_stopped || !m_watch.GoesOn(static_cast<size_t>(m_file.pos()));
        const qint64 moved = m_stopped ? -1 : move(done, std::min(length - done, kWatchedBlock));
        if (moved <= 0)
            return done > 0 ? done : moved;
        done += moved;
    }
    return done;
}

qint64 WatchedFile::readData(char* data, qint64 most)
{
    return InBlocks(most, [&](qint64 done, qint64 count) { return m_file.read(data + done, count); });
}

qint64 WatchedFile::writeData(const char* data, qint64 length)
{
    return InBlocks(length, [&](qint64 done, qint64 count) { return m_file.write(data + done, count); });
}

} // namespace shapedocument
