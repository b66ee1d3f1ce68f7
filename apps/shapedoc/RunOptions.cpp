#include "RunOptions.h"

#include "Arguments.h"
#include "machine/MachinePaths.h"

#include <CLI/CLI.hpp>

void AddRunOptions(CLI::App& command, shapedocument::JobOptions& options)
{
    constexpr double kWidestGap = 10;
    command.add_flag("--arcs", options.arcs, "curves become arcs (G2, G3), not lines");
    command.add_option("--join", options.join, "mm between ends of one colour that become one run; 0 joins none")
        ->check(NumberBetween(0, kWidestGap))
        ->capture_default_str();
    command.add_flag("--keep-doubles", options.keepDoubles, "lines that lie on each other are cut as often as drawn");
}
