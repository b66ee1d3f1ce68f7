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
    struct Path
    {
        const MachinePath& path;
        std::span<const JobPoint> points;
    };

    /// Throws Failure where the file cannot be mapped.
    explicit JobView(const MachineJob& job);
    ~JobView();
    JobView(const JobView&) = delete;
    JobView& operator=(const JobView&) = delete;

    const std::vector<Path>& Paths() const { return m_paths; }
    /// Frees the list of paths. Spans of points taken from it stay valid.
    void ForgetPaths() { m_paths = std::vector<Path>(); }

private:
    UnnamedFile& m_file;
    unsigned char* m_bytes = nullptr;
    std::vector<Path> m_paths;
};

} // namespace shapedocument
