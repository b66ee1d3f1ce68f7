#include "OrderOptions.h"

#include "machine/MachinePaths.h"

using namespace shapedocument;

std::vector<CommandOption> AddOrderOptions(CommandArguments& command, OrderOptions& options)
{
    return {command.AddChoice("--order=ORDER", options.order, {"fast", "reading"},
                              "fast: inside before outside, with short moves; reading: as a text is read"),
            command.AddFlag("--mix-colors", options.mixColors,
                            "paths of different colours in turns where that makes moves shorter")};
}

void ApplyOrder(const OrderOptions& options, JobOptions& job)
{
    job.fastOrder = options.order == "fast";
    job.mixColors = options.mixColors;
    if (job.mixColors && !job.fastOrder)
        throw UsageError{"--mix-colors goes with --order fast only"};
}
