#include "machine/JobText.h"

#include <cmath>
#include <sstream>

using namespace shapedocument;

MachineJob JobOf(const std::vector<TestRun>& runs)
{
    MachineJob job("test");
    for (size_t i = 0; i < runs.size(); ++i) {
        MachinePath path{runs[i].shape > 0 ? runs[i].shape : i + 1, runs[i].kind, runs[i].color};
        path.exact = runs[i].exact;
        job.Append(path, runs[i].points);
    }
    job.Finish("test");
    return job;
}

std::string TextOf(const MachineJob& job)
{
    const auto rounded = [](double value) { return std::round(value * 1000) / 1000 + 0.0; };
    std::ostringstream text;
    JobReader reader(job);
    for (const char* between = ""; const auto path = reader.NextPath(); between = "; ") {
        text << between << path->shape << ":";
        while (const auto point = reader.NextPoint()) {
            text << " " << rounded(point->point.x()) << "," << rounded(point->point.y());
            if (point->bulge != 0)
                text << "(" << rounded(point->bulge) << ")";
        }
    }
    return text.str();
}
