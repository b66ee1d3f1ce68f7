/// shapedoc lines: a document becomes lines for the machine.
#include "Arguments.h"
#include "Commands.h"
#include "FittingNote.h"
#include "LineOutput.h"
#include "MachinePaths.h"
#include "OutputFile.h"

#include <CLI/CLI.hpp>
#include <QFile>

#include <cstdio>

namespace {

struct LinesOptions
{
    std::string document;
    std::string output;
    StreamFormat format;
    bool leads = false;
    GcodeOptions gcode;
};

void WriteJob(QFile& file, const QString& ending, const MachineJob& job, const GcodeOptions& gcode)
{
    if (ending == "csv")
        WriteCsv(file, job);
    else if (ending == "svg")
        WriteSvg(file, job);
    else
        WriteGcode(file, job, gcode);
}

int Lines(const LinesOptions& options)
{
    const QString name = FileName(options.document);
    const QString output = FileName(options.output);
    const Document document = ReadDocument(name, options.format);
    const MachineJob job = PrepareJob(*document, options.leads, name);
    SayWhetherFitted();
    if (job.unusable > 0)
        std::fprintf(stderr, "shapedoc: warning: %s: %zu unusable shapes left out\n", qPrintable(name), job.unusable);
    WriteFile(output, [&](QFile& file) { WriteJob(file, Ending(output), job, options.gcode); });
    return 0;
}

} // namespace

void AddLines(CLI::App& app, Command& chosen)
{
    CLI::App* command =
        app.add_subcommand("lines", "Write the machine lines of all shapes that are not hidden, in order");
    const auto options = std::make_shared<LinesOptions>();
    GcodeOptions& gcode = options->gcode;
    AddDocument(*command, options->document);
    AddOutput(*command, options->output, {"csv", "svg", "gcode"});
    AddStreamFormat(*command, options->format);
    command->add_flag("--leads", options->leads, "with lead-in and lead-out lines where shapes have them active");
    const CLI::Range feeds(0.001, 1e6);
    const CLI::Range powers(0.0, 1e6);
    command->add_option("--feed", gcode.feed, "G-code: mm per minute")->check(feeds)->capture_default_str();
    command->add_option("--power", gcode.power, "G-code: S word of the laser")->check(powers)->capture_default_str();
    command->add_flag("--constant-power", gcode.constantPower, "G-code: M3 instead of M4");
    CLI::Option* yDown = command->add_flag("--y-down", gcode.yDown, "G-code: y as in the document, not upwards");
    command
        ->add_option("--height", gcode.height, "G-code: the document's y that becomes 0 (default: the lowest line's)")
        ->check(CLI::Range(-1e6, 1e6))
        ->excludes(yDown);
    command->callback([&chosen, options] { chosen = [options] { return Lines(*options); }; });
}
