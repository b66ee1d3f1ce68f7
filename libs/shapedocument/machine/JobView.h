/// All paths of a finished job at once.
#pragma once

#include "machine/MachineJob.h"

#include <span>

namespace shapedocument {

/// Paths and points stay in the job's temporary file, which is mapped: they take no memory of their own. The job must
/// live as long as the view, and nothing may be appended to it.
class JobView
{
public:
    /// Throws Failure where the file cannot be mapped.
    explicit JobView(const MachineJob& job);
    ~JobView();
    JobView(const JobView&) = delete;
    JobView& operator=(const JobView&) = delete;

    /// Each in front of its points.
    const std::vector<const MachinePath*>& Paths() const { return m_paths; }
    /// The points of a path of a view.
    static std::span<const JobPoint> PointsOf(const MachinePath& path)
    {
        return {reinterpret_cast<const JobPoint*>(&path + 1), path.points};
    }
    /// Frees the list of paths. Spans of points taken from it stay valid.
    void ForgetPaths() { m_paths = decltype(m_paths)(); }

private:
    UnnamedFile& m_file;
    unsigned char* m_bytes = nullptr;
    std::vector<const MachinePath*> m_paths;
};

} // namespace shapedocument
