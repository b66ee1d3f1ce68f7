/// shapedoc transform: moves, fits, turns and mirrors a whole document.
#include "Commands.h"
#include "DocumentArguments.h"
#include "document/Failure.h"
#include "document/InputFile.h"

#include "OpenDocument.h"
#include "Progress.h"

#include <algorithm>
#include <map>

using namespace shapedocument;

namespace {

struct TransformOptions
{
    QString document;
    Target output;
    StreamFormat format;
    std::vector<double> move;
    std::vector<double> fit;
    std::vector<double> rotate;
    std::vector<double> about;
    bool mirrorX = false;
    bool mirrorY = false;
};

using Step = std::function<void(CShapeList&)>;

QPointF Centre(CShapeList& document, const std::vector<double>& about)
{
    return about.empty() ? document.GetRectCenter() : QPointF(about[0], about[1]);
}

std::map<std::string, Step> Steps(const TransformOptions& o)
{
    return {
        {"--move", [&o](CShapeList& document) { document.Offset(o.move[0], o.move[1], true); }},
        {"--fit",
         [&o](CShapeList& document) {
             document.Resize({o.fit[0], o.fit[1], o.fit[2], o.fit[3]});
         }},
        {"--rotate",
         [&o](CShapeList& document) { document.Rotate(o.rotate[0], Centre(document, o.about), Qt::ZAxis); }},
        {"--mirror-x", [&o](CShapeList& document) { document.MirrorX(Centre(document, o.about).x()); }},
        {"--mirror-y", [&o](CShapeList& document) { document.MirrorY(Centre(document, o.about).y()); }},
    };
}

/// The steps in the order of the command line; an option appears there once per value.
std::vector<Step> ChosenSteps(const TransformOptions& options, const std::vector<std::string>& given)
{
    std::map<std::string, Step> offered = Steps(options);
    std::vector<Step> steps;
    for (const std::string& option : given)
        if (const auto step = offered.extract(option))
            steps.push_back(step.mapped());
    return steps;
}

void ApplySteps(CShapeList& document, const std::vector<Step>& steps)
{
    Progress progress("transforming, step");
    for (size_t i = 0; i < steps.size(); ++i) {
        progress.At(i + 1, steps.size());
        steps[i](document);
    }
}

int Transform(const TransformOptions& options, const std::vector<std::string>& given)
{
    constexpr double kShortest = 1e-3; // mm
    if (!options.fit.empty() && (options.fit[2] < kShortest || options.fit[3] < kShortest))
        throw UsageError{"--fit: width and height must be a thousandth of a millimetre at least"};
    const std::vector<Step> steps = ChosenSteps(options, given);
    const Document document = OpenDocument(options.document, options.format);
    const bool reached = WithinReach(document->GetRect(false)); // documents beyond may be moved back
    ApplySteps(*document, steps);
    if (reached && !steps.empty() && !WithinReach(document->GetRect(false)))
        throw Failure{InputName(options.document), "would go beyond a kilometre"};
    SaveDocument(options.output, *document, options.format);
    return 0;
}

} // namespace

void AddTransform(CommandLine& program)
{
    CommandArguments& command = program.AddCommand(
        "transform", "Move, fit, turn and mirror all shapes",
        "The steps follow each other in the order of the options; without any the document is just written anew.");
    const auto options = std::make_shared<TransformOptions>();
    AddDocument(command, options->document);
    AddOutput(command, options->output).Required();
    AddStreamFormat(command, options->format);
    command.AddNumbers("--move=DX,DY", options->move, 2, kPlaces, "mm, y down");
    command.AddNumbers("--fit=X,Y,WIDTH,HEIGHT", options->fit, 4, kPlaces, "mm: the rectangle to fill");
    command.AddNumbers("--rotate=DEGREES", options->rotate, 1, kPlaces, "clockwise");
    command.AddFlag("--mirror-x", options->mirrorX, "swap left and right");
    command.AddFlag("--mirror-y", options->mirrorY, "swap top and bottom");
    command.AddNumbers("--about=X,Y", options->about, 2, kPlaces,
                       "turning point and place of the mirror axes, instead of the centre");
    command.AddExample("transform badge.shapes -o turned.shapes --rotate 30 --move 10,0", "turned, then moved right");
    command.Runs([options, &command] { return Transform(*options, command.Given()); });
}
