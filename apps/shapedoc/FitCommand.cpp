/// shapedoc fit: refits flattened outlines through the curve-fitting plug-in and reports the points saved.
#include "Commands.h"
#include "DocumentArguments.h"
#include "Messages.h"
#include "Progress.h"
#include "document/Failure.h"
#include "document/ShapeFacts.h"
#include "document/ShapeWalk.h"
#include "fit/OutlineFit.h"

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

struct FitTotals
{
    size_t shapes = 0, before = 0, after = 0;
    double deviation = 0.0;
    std::map<QString, size_t> left; ///< number of unchanged shapes, by reason

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

void FitShape(CShapeVector& shape, FitTotals& totals, std::FILE* report)
{
    const OutlineFit fit = FitOutline(shape);
    if (fit.outcome == FitOutcome::HasCurves) {
        ++totals.left["outline of curves"];
        return;
    }
    if (fit.outcome == FitOutcome::NotShorter)
        ++totals.left["outline that nothing shorter fits"];
    const FitTotals own{1, fit.before, fit.after, fit.deviation, {}};
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
    FitTotals totals;
    Progress progress("fitting outlines");
    size_t seen = 0;
    const size_t count = CountShapes(*document);
    ForEachShape(*document, [&](CShape& shape, int) {
        auto* vector = dynamic_cast<CShapeVector*>(&shape);
        if (vector && shape.GetShapeType() == ESHAPE_VECTOR)
            FitShape(*vector, totals, report);
        else if (!MembersOf(shape))
            ++totals.left[vector ? "text" : "picture"];
        progress.At(++seen, count);
    });
    totals.Print(report, "all");
    totals.PrintLeft(report);
    SaveDocument(options.output, *document, options.format);
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
    command.AddExample("fit flat.shapes -o fitted.shapes", "curves in place of fine straight pieces");
    command.Runs([options] { return Fit(*options); });
}
