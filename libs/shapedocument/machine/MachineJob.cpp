#include "machine/MachineJob.h"

#include "machine/Bulge.h"

#include "document/CheckedFile.h"
#include "document/Failure.h"

#include <QDir>

#include <algorithm>

namespace shapedocument {

namespace {

template <class Record>
void Put(QIODevice& file, const Record* records, size_t count)
{
    static_assert(std::is_trivially_copyable_v<Record>);
    file.write(reinterpret_cast<const char*>(records), static_cast<qint64>(count * sizeof(Record)));
}

template <class Record>
void ReadRecords(QIODevice& file, Record* records, size_t count)
{
    const auto bytes = static_cast<qint64>(count * sizeof(Record));
    if (file.read(reinterpret_cast<char*>(records), bytes) != bytes)
        throw Failure{QDir::tempPath(), "a temporary file cannot be read: " + file.errorString()};
}

/// Exact: Qt's own comparison treats near points as equal.
bool AreSame(QPointF a, QPointF b)
{
    return a.x() == b.x() && a.y() == b.y();
}

} // namespace

MachineJob::MachineJob(const QString& file) : m_file(std::make_unique<UnnamedFile>(file)) {}

MachineJob::MachineJob(MachineJob&&) noexcept = default;

MachineJob& MachineJob::operator=(MachineJob&&) noexcept = default;

MachineJob::~MachineJob() = default;

void MachineJob::Append(MachinePath path, const std::vector<JobPoint>& points)
{
    path.points = points.size();
    path.closed = AreSame(points.front().point, points.back().point);
    Put(*m_file, &path, 1);
    Put(*m_file, points.data(), points.size());
    if (m_paths++ == 0) {
        m_left = m_right = points.front().point.x();
        m_top = m_bottom = points.front().point.y();
    }
    m_shapes = std::max(m_shapes, path.shape);
    for (size_t i = 0; i + 1 < points.size(); ++i) {
        m_arcs = m_arcs || points[i].bulge != 0;
        Include(SegmentRect(points[i].point, points[i + 1].point, points[i].bulge));
    }
}

void MachineJob::Include(const QRectF& rect)
{
    m_left = std::min(m_left, rect.left());
    m_right = std::max(m_right, rect.right());
    m_top = std::min(m_top, rect.top());
    m_bottom = std::max(m_bottom, rect.bottom());
}

void MachineJob::Finish(const QString& file)
{
    if (!m_file->WroteAll())
        throw Failure{file, QString("no room for its lines in %1: %2").arg(QDir::tempPath(), m_file->Reason())};
}

QRectF MachineJob::Rect() const
{
    return {QPointF(m_left, m_top), QPointF(m_right, m_bottom)};
}

JobReader::JobReader(const MachineJob& job) : m_file(*job.m_file), m_paths(job.PathCount())
{
    m_file.seek(0);
}

std::optional<MachinePath> JobReader::NextPath()
{
    if (m_unread > 0 || m_next < m_block.size())
        GoTo(m_nextPlace, m_paths);
    if (m_paths == 0)
        return std::nullopt;
    --m_paths;
    MachinePath path;
    ReadRecords(m_file, &path, 1);
    m_unread = path.points;
    m_place = m_nextPlace;
    m_nextPlace += static_cast<qint64>(sizeof path + path.points * sizeof(JobPoint));
    return path;
}

std::optional<JobPoint> JobReader::NextPoint()
{
    if (m_next == m_block.size())
        Fill();
    return m_next < m_block.size() ? std::optional(m_block[m_next++]) : std::nullopt;
}

void JobReader::GoTo(qint64 place, size_t paths)
{
    m_unread = 0;
    m_block.clear();
    m_next = 0;
    m_paths = paths;
    m_nextPlace = place;
    m_file.seek(place);
}

std::vector<JobPoint> JobReader::Run()
{
    std::vector<JobPoint> points;
    points.reserve(m_unread + m_block.size() - m_next);
    while (const auto point = NextPoint())
        points.push_back(*point);
    return points;
}

QPolygonF JobReader::Points()
{
    QPolygonF points;
    points.reserve(static_cast<qsizetype>(m_unread + m_block.size() - m_next));
    while (const auto point = NextPoint())
        points.append(point->point);
    return points;
}

void JobReader::Fill()
{
    constexpr size_t kMost = 4096;
    m_next = 0;
    m_block.resize(std::min(m_unread, kMost));
    ReadRecords(m_file, m_block.data(), m_block.size());
    m_unread -= m_block.size();
}

} // namespace shapedocument
