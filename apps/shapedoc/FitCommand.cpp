/// shapedoc fit: refits flattened outlines through the curve-fitting plug-in and tells what that saved.
#include "Arguments.h"
#include "Commands.h"
#include "FittingNote.h"
#include "Messages.h"
#include "OutlineDistance.h"
#include "document/Failure.h"
#include "document/ShapeWalk.h"

#include "vector/ShapeVector.h"

#include "OpenDocument.h"

#include <algorithm>
#include <map>

using namespace shapedocument;

namespace {

struct FitOptions
{
    QString document;
    Target output;
    StreamFormat format;
};

struct Outline
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
};

Outline OutlineOf(CShape& shape)
{
    Outline outline;
    shape.GetShapePathData(outline.points, outline.types);
    return outline;
}

/// The parts between separators; fitting leaves their number and order.
std::vector<Outline> Runs(const Outline& outline)
{
    std::vector<Outline> runs(1);
    for (size_t i = 0; i < std::min(outline.points.size(), outline.types.size()); ++i) {
        if (outline.types[i] == ELINE_SEGMENT_SEPARATOR) {
            runs.emplace_back();
            continue;
        }
        runs.back().points.push_back(outline.points[i]);
        runs.back().types.push_back(outline.types[i]);
    }
    return runs;
}

double Deviation(const Outline& before, const Outline& after)
{
    const std::vector<Outline> from = Runs(before), to = Runs(after);
    double deviation = 0.0;
    for (size_t i = 0; i < std::min(from.size(), to.size()); ++i) {
        if (from[i].points.size() > 1 && to[i].points.size() > 1 && from[i].points != to[i].points)
            deviation = std::max(deviation, OutlineDistance(from[i].points, DrawnRun(to[i].points, to[i].types)));
    }
    return deviation;
}

struct Totals
{
    size_t shapes = 0, before = 0, after = 0;
    double deviation = 0.0;
    std::map<QString, size_t> left; ///< why shapes stay as they are, and how many

    void Print(std::FILE* report, const QString& what) const
    {
        PrintLine(report, QString("%1: %2 points before, %3 after, largest deviation %4")
                              .arg(what)
                              .arg(before)
                              .arg(after)
                              .arg(deviation, 0, 'f', 6));
    }

    void PrintLeft(std::FILE* report) const
    {
        QStringList parts;
        for (const auto& [reason, count] : left)
            parts << QString("%1 x %2").arg(count).arg(reason);
        if (!parts.isEmpty())
            PrintLine(report, "left as they are: " + parts.join(", "));
    }
};

bool DrawsCurves(CShapeVector& shape)
{
    const QPainterPath* path = shape.GetPath(false);
    for (int i = 0; path && i < path->elementCount(); ++i)
        if (path->elementAt(i).isCurveTo())
            return true;
    return false;
}

/// Whether the outline has been replaced by a shorter one. Of whatever type, straight pieces are a polyline's.
bool Refit(CShapeVector& shape, size_t points)
{
    const EVECTOR_TYPE type = shape.GetVectorType();
    shape.SetVectorType(EVECTOR_POLYLINE);
    shape.GetPath(true);
    if (OutlineOf(shape).points.size() < points)
        return true;
    shape.SetVectorType(type);
    shape.GetPath(true);
    return false;
}

void FitShape(CShapeVector& shape, Totals& totals, std::FILE* report)
{
    const bool polyline = shape.GetVectorType() == EVECTOR_POLYLINE || shape.GetVectorType() == EVECTOR_POLYLINE_B;
    if (!polyline && DrawsCurves(shape)) { // not asked of polylines, for asking fits them
        ++totals.left["outline of curves"];
        return;
    }
    const Outline before = OutlineOf(shape);
    if (!Refit(shape, before.points.size()))
        ++totals.left["outline that nothing shorter fits"];
    const Outline after = OutlineOf(shape);
    const Totals own{1, before.points.size(), after.points.size(), Deviation(before, after), {}};
    ++totals.shapes;
    totals.before += own.before;
    totals.after += own.after;
    totals.deviation = std::max(totals.deviation, own.deviation);
    own.Print(report, QString("shape %1").arg(totals.shapes));
}

int Fit(const FitOptions& options)
{
    const Document document = OpenDocument(options.document, options.format);
    if (!IsFittingOn())
        throw Failure{"curve fitting", "is off: the plug-in is not beside the library, or KEY_OPTIMIZATION is 0"};
    std::FILE* report = ReportStream(options.output.file);
    Totals totals;
    ForEachShape(*document, [&](CShape& shape, int) {
        auto* vector = dynamic_cast<CShapeVector*>(&shape);
        if (vector && shape.GetShapeType() == ESHAPE_VECTOR)
            FitShape(*vector, totals, report);
        else if (!MembersOf(shape))
            ++totals.left[vector ? "text" : "picture"];
    });
    totals.Print(report, "all");
    totals.PrintLeft(report);
    WriteDocument(options.output, *document, options.format);
    return 0;
}

} // namespace

void AddFit(CommandLine& program)
{
    CommandArguments& command =
        program.AddCommand("fit", "Refit outlines of straight pieces through the curve-fitting plug-in");
    const auto options = std::make_shared<FitOptions>();
    AddDocument(command, options->document);
    AddOutput(command, options->output).Required();
    AddStreamFormat(command, options->format);
    command.Runs([options] { return Fit(*options); });
}
