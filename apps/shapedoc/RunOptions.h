/// Options of how outlines become runs.
#pragma once

class CommandArguments;
namespace shapedocument {
struct JobOptions;
} // namespace shapedocument

/// --arcs, --join and --keep-doubles.
void AddRunOptions(CommandArguments& command, shapedocument::JobOptions& options);
