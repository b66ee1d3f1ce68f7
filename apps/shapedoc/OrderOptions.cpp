#include "OrderOptions.h"

#include "Messages.h"
#include "machine/JobOrder.h"
#include "machine/MachinePaths.h"

using namespace shapedocument;

std::vector<CommandOption> AddOrderOptions(CommandArguments& command, OrderOptions& options)
{
    return {command.AddChoice("--order=ORDER", options.order, {"fast", "reading"},
                              "fast: inside before outside, with short moves; reading: as a text is read"),
            command.AddFlag("--mix-colors", options.mixColors,
                            "paths of different colours in turns where that makes moves shorter")};
}

void TakeOrder(const OrderOptions& options, JobOptions& job)
{
    job.fastOrder = options.order == "fast";
    job.mixColors = options.mixColors;
    if (job.mixColors && !job.fastOrder)
        throw UsageError{"--mix-colors goes with --order fast only"};
}

void WarnOfOrder(const QString& file, const PreparedJob& prepared)
{
    if (prepared.tooManyToOrder)
        Warn(file + QString(": its paths are more than %1: they stay in reading order").arg(kMostOrderedPaths));
    if (const size_t count = prepared.againstInside)
        Warn(file + QString(": %1 path%2 behind one that is cut around %3, as the order of colours asks")
                        .arg(count)
                        .arg(count == 1 ? " comes" : "s come")
                        .arg(count == 1 ? "it" : "them"));
}
