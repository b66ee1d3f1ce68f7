#include "machine/JobView.h"

#include "document/CheckedFile.h"
#include "document/Failure.h"

#include <QDir>

namespace shapedocument {

static_assert(sizeof(MachinePath) % alignof(JobPoint) == 0); // so that points are aligned in the mapped file

JobView::JobView(const MachineJob& job) : m_file(*job.m_file)
{
    if (job.PathCount() == 0)
        return;
    m_bytes = m_file.map(0, m_file.size());
    if (!m_bytes)
        throw Failure{QDir::tempPath(), "a temporary file cannot be read: " + m_file.errorString()};
    m_paths.reserve(job.PathCount());
    const unsigned char* next = m_bytes;
    for (size_t i = 0; i < job.PathCount(); ++i) {
        m_paths.push_back(reinterpret_cast<const MachinePath*>(next));
        next += sizeof(MachinePath) + PointsOf(*m_paths.back()).size_bytes();
    }
}

JobView::~JobView()
{
    if (m_bytes)
        m_file.unmap(m_bytes);
}

} // namespace shapedocument
