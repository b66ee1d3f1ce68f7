#include "machine/JobText.h"

#include <QRegularExpression>
#include <QStringList>

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

MachineJob JobOf(const QString& text)
{
    static const QRegularExpression kForm(R"(^\s*([*<>=]*)\s*(?:(\d+):)?(.*)$)"),
        kPoint(R"(([^ ,]+),([^ ,(]+)(?:\((.+?)\))?)");
    std::vector<TestRun> runs;
    for (const QString& part : text.split(u';', Qt::SkipEmptyParts)) {
        const QRegularExpressionMatch form = kForm.match(part);
        const QString marks = form.captured(1);
        TestRun run{marks.contains('*'), {}};
        run.kind = marks.contains('>') ? PathKind::LeadIn : marks.contains('<') ? PathKind::LeadOut : PathKind::Cut;
        run.exact = marks.contains('=');
        run.shape = form.captured(2).toULongLong();
        for (const QRegularExpressionMatch& point : kPoint.globalMatch(form.captured(3)))
            run.points.push_back(
                {{point.captured(1).toDouble(), point.captured(2).toDouble()}, point.captured(3).toDouble()});
        runs.push_back(run);
    }
    return JobOf(runs);
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
