/// What is engraved, and the G-code of a machine.
#pragma once

#include "machine/Engraving.h"
#include "machine/GcodeOptions.h"

#include <optional>
#include <string>
#include <vector>

namespace CLI {
class App;
}

struct EngraveArguments
{
    bool engrave = false;
    shapedocument::EngraveOptions options;
    std::vector<double> powers; ///< least and most; of the dialect when empty
    std::optional<double> feed; ///< that of lines when there is none
};

/// --engrave and what belongs to it; those that concern G-code go to gcode.
void AddEngraveOptions(CLI::App& command, EngraveArguments& engraving, shapedocument::GcodeOptions& gcode);

struct GcodeArguments
{
    std::string dialect = "grbl";
    std::string colors; ///< a file; empty for none
    std::optional<double> power;
};

/// --dialect, --passes, --step, --colors and --air; --feed and --power.
void AddGcodeOptions(CLI::App& command, GcodeArguments& arguments, shapedocument::GcodeOptions& gcode);

/// Completes gcode by what depends on several options. Throws CLI::ValidationError where they do not fit together.
void Complete(const EngraveArguments& engraving, const GcodeArguments& arguments, shapedocument::GcodeOptions& gcode);
