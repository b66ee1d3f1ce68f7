/// shapedoc transform: moves, fits, turns and mirrors a whole document.
#include "Arguments.h"
#include "Commands.h"
#include "document/Failure.h"
#include "document/InputFile.h"

#include "OpenDocument.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <map>

using namespace shapedocument;

namespace {

struct TransformOptions
{
    std::string document;
    Target output;
    StreamFormat format;
    std::vector<double> move;
    std::vector<double> fit;
    std::vector<double> rotate;
    std::vector<double> about;
};

using Step = std::function<void(CShapeList&)>;

QPointF Centre(CShapeList& document, const std::vector<double>& about)
{
    return about.empty() ? document.GetRectCenter() : QPointF(about[0], about[1]);
}

/// A flag that is only looked for in the order of the arguments.
CLI::Option* AddSwitch(CLI::App& command, const std::string& name, const std::string& description)
{
    return command.add_flag(name, description);
}

int Transform(const TransformOptions& options, const std::vector<Step>& steps)
{
    const QString name = FileName(options.document);
    const Document document = OpenDocument(name, options.format);
    const bool reached = WithinReach(document->GetRect(false)); // What lies farther off may be brought back.
    for (const Step& step : steps)
        step(*document);
    if (reached && !steps.empty() && !WithinReach(document->GetRect(false)))
        throw Failure{InputName(name), "would go beyond a kilometre"};
    WriteDocument(options.output, *document, options.format);
    return 0;
}

/// The chosen steps in the order of the command line.
std::vector<Step> ChosenSteps(const CLI::App& command, const std::map<const CLI::Option*, Step>& offered)
{
    std::vector<Step> steps;
    std::vector<const CLI::Option*> seen;
    for (const CLI::Option* option : command.parse_order()) {
        const auto step = offered.find(option);
        if (step == offered.end() || std::find(seen.begin(), seen.end(), option) != seen.end())
            continue;
        seen.push_back(option);
        steps.push_back(step->second);
    }
    return steps;
}

} // namespace

void AddTransform(CLI::App& app, Command& chosen)
{
    CLI::App* command = app.add_subcommand(
        "transform",
        "Transform all shapes, in the order of the options; without any the document is just written anew");
    const auto options = std::make_shared<TransformOptions>();
    AddDocument(*command, options->document);
    AddOutput(*command, options->output);
    AddStreamFormat(*command, options->format);
    TransformOptions* o = options.get();
    std::map<const CLI::Option*, Step> steps;
    steps[AddNumbers(*command, "--move", o->move, 2, "DX,DY in mm, y down")] = [o](CShapeList& document) {
        document.Offset(o->move[0], o->move[1], true);
    };
    CLI::Option* fit = AddNumbers(*command, "--fit", o->fit, 4, "X,Y,WIDTH,HEIGHT in mm: the rectangle to fill");
    steps[fit] = [o](CShapeList& document) { document.Resize(QRectF(o->fit[0], o->fit[1], o->fit[2], o->fit[3])); };
    steps[AddNumbers(*command, "--rotate", o->rotate, 1, "degrees, clockwise")] = [o](CShapeList& document) {
        document.Rotate(o->rotate[0], Centre(document, o->about), Qt::ZAxis);
    };
    steps[AddSwitch(*command, "--mirror-x", "swap left and right")] = [o](CShapeList& document) {
        document.MirrorX(Centre(document, o->about).x());
    };
    steps[AddSwitch(*command, "--mirror-y", "swap top and bottom")] = [o](CShapeList& document) {
        document.MirrorY(Centre(document, o->about).y());
    };
    AddNumbers(*command, "--about", o->about, 2, "X,Y of the turning point and mirror axes, instead of the centre");
    command->callback([&chosen, options, command, steps] {
        constexpr double kShortest = 1e-3; // mm
        if (!options->fit.empty() && (options->fit[2] < kShortest || options->fit[3] < kShortest))
            throw CLI::ValidationError("--fit", "width and height must be a thousandth of a millimetre at least");
        chosen = [options, run = ChosenSteps(*command, steps)] { return Transform(*options, run); };
    });
}
