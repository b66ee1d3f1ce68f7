#include "RunOptions.h"

#include "Arguments.h"
#include "machine/MachinePaths.h"

void AddRunOptions(CommandArguments& command, shapedocument::JobOptions& options)
{
    constexpr double kWidestGap = 10; // mm
    command.AddFlag("--arcs", options.arcs, "curves become arcs (G2, G3), not lines");
    command.AddNumber("--join=MM", options.join, {0, kWidestGap},
                      "ends of one colour that are no farther apart become one run; 0 joins none");
    command.AddFlag("--keep-doubles", options.keepDoubles, "lines that lie on each other are cut as often as drawn");
}
