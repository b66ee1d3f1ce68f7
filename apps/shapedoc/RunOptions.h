/// Options of how outlines become runs.
#pragma once

namespace CLI {
class App;
} // namespace CLI
namespace shapedocument {
struct JobOptions;
} // namespace shapedocument

/// --arcs, --join and --keep-doubles.
void AddRunOptions(CLI::App& command, shapedocument::JobOptions& options);
