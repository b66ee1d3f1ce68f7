/// Options of the order in which a job's paths are followed.
#pragma once

#include "CommandLine.h"

namespace shapedocument {
struct JobOptions;
} // namespace shapedocument

struct OrderOptions
{
    std::string order = "fast";
    bool mixColors = false;
};

/// --order and --mix-colors. Returns them, so that the caller can add conditions.
std::vector<CommandOption> AddOrderOptions(CommandArguments& command, OrderOptions& options);

/// Throws UsageError if they contradict each other.
void ApplyOrder(const OrderOptions& options, shapedocument::JobOptions& job);
