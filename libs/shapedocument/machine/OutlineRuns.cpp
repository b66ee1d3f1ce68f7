#include "machine/OutlineRuns.h"

#include "geometry/PathSteps.h"

namespace shapedocument {

void ForEachRun(const QPainterPath& outline, bool arcs,
                const std::function<void(const std::vector<JobPoint>& run, bool exact)>& take)
{
    RunBuilder run(arcs);
    const auto end = [&] {
        if (const std::vector<JobPoint>& points = run.End(); points.size() > 1)
            take(points, run.IsExact());
    };
    bool begun = false;
    for (const shapes::PathStep& step : shapes::PathSteps(outline)) {
        if (!begun) { // streams may hold paths that do not start with a move
            run.Begin(step.End());
        } else if (step.IsMove()) {
            if (run.Current() == step.End()) // Qt compares to 12 digits
                continue;
            end();
            run.Begin(step.End());
        } else if (step.IsLine()) {
            run.LineTo(step.End());
        } else {
            run.CurveTo(step.points[0], step.points[1], step.points[2]);
        }
        begun = true;
    }
    if (begun)
        end();
}

} // namespace shapedocument
