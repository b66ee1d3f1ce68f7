/// Options of the order in which a job's paths are followed.
#pragma once

#include "CommandLine.h"

namespace shapedocument {
struct JobOptions;
struct PreparedJob;
} // namespace shapedocument

struct OrderOptions
{
    std::string order = "fast";
    bool mixColors = false;
};

/// --order and --mix-colors. Answers them for what else is to be said of them.
std::vector<CommandOption> AddOrderOptions(CommandArguments& command, OrderOptions& options);

/// Throws UsageError where they contradict each other.
void TakeOrder(const OrderOptions& options, shapedocument::JobOptions& job);

/// A line on standard error where the paths could not be put in order, and where the user's order of colours goes
/// against inside before outside.
void WarnOfOrder(const QString& file, const shapedocument::PreparedJob& prepared);
