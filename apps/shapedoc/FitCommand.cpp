/// shapedoc fit: refits flattened outlines through the curve-fitting plug-in and tells what that saved.
#include "Arguments.h"
#include "Commands.h"
#include "OutlineDistance.h"
#include "ShapeWalk.h"

#include "vector/ShapeVector.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <cstdio>

namespace {

struct FitOptions
{
    std::string document;
    std::string output;
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

    void Print(const char* what) const
    {
        std::printf("%s: %zu points before, %zu after, largest deviation %.6f\n", what, before, after, deviation);
    }
};

void FitShape(CShapeVector& shape, Totals& totals)
{
    const Outline before = OutlineOf(shape);
    shape.GetPath(true);
    const Outline after = OutlineOf(shape);
    const Totals own{1, before.points.size(), after.points.size(), Deviation(before, after)};
    ++totals.shapes;
    totals.before += own.before;
    totals.after += own.after;
    totals.deviation = std::max(totals.deviation, own.deviation);
    own.Print(("shape " + std::to_string(totals.shapes)).c_str());
}

int Fit(const FitOptions& options)
{
    const Document document = ReadDocument(FileName(options.document), options.format);
    Totals totals;
    ForEachShape(*document, [&totals](CShape& shape, int) {
        auto* vector = dynamic_cast<CShapeVector*>(&shape);
        if (vector && shape.GetShapeType() == ESHAPE_VECTOR && vector->GetVectorType() == EVECTOR_POLYLINE)
            FitShape(*vector, totals);
    });
    totals.Print("all");
    if (totals.shapes > 0 && totals.before == totals.after)
        std::fprintf(stderr, "shapedoc: nothing fitted; plug-in missing or KEY_OPTIMIZATION 0?\n");
    WriteDocument(FileName(options.output), *document, options.format);
    return 0;
}

} // namespace

void AddFit(CLI::App& app, Command& chosen)
{
    CLI::App* command = app.add_subcommand("fit", "Refit polylines through the curve-fitting plug-in");
    const auto options = std::make_shared<FitOptions>();
    AddDocument(*command, options->document);
    AddOutput(*command, options->output);
    AddStreamFormat(*command, options->format);
    command->callback([&chosen, options] { chosen = [options] { return Fit(*options); }; });
}
