#include "machine/OutlineRuns.h"

#include <QPainterPath>

namespace shapedocument {

void ForEachRun(const QPainterPath& outline, bool arcs,
                const std::function<void(const std::vector<JobPoint>& run, bool exact)>& take)
{
    RunBuilder run(arcs);
    const auto end = [&] {
        if (const std::vector<JobPoint>& points = run.End(); points.size() > 1)
            take(points, run.IsExact());
    };
    const int count = outline.elementCount();
    for (int i = 0; i < count; ++i) {
        const QPainterPath::Element element = outline.elementAt(i);
        if (i == 0) { // streams may hold paths that do not start with a move
            run.Begin(element);
        } else if (element.type == QPainterPath::MoveToElement) {
            if (run.Current() == element) // Qt compares to 12 digits
                continue;
            end();
            run.Begin(element);
        } else if (element.type == QPainterPath::LineToElement) {
            run.LineTo(element);
        } else if (i + 2 < count) {
            const QPointF control = outline.elementAt(++i);
            run.CurveTo(element, control, outline.elementAt(++i));
        }
    }
    if (count > 0)
        end();
}

} // namespace shapedocument
