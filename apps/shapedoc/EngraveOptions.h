/// What is engraved, and the G-code of a machine.
#pragma once

#include "machine/ColorSettings.h"
#include "machine/Engraving.h"
#include "machine/GcodeOptions.h"
#include "machine/MachineSettings.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

class CommandArguments;

struct EngraveArguments
{
    bool engrave = false;
    shapedocument::EngraveOptions options;
    std::vector<double> powers; ///< least and most; those of lines when empty
    std::optional<double> feed; ///< that of lines when there is none
};

/// --engrave and what belongs to it; those that concern G-code go to gcode.
void AddEngraveOptions(CommandArguments& command, EngraveArguments& engraving, shapedocument::GcodeOptions& gcode);

struct GcodeArguments
{
    std::string dialect = "grbl";
    std::string air = "off";
    QString colors;   ///< a file; empty for none
    QString settings; ///< of the machine, the same
    std::optional<double> feed, power;
};

/// What concerns G-code alone, --colors and --machine.
void AddGcodeOptions(CommandArguments& command, GcodeArguments& arguments, shapedocument::GcodeOptions& gcode);

/// Completes gcode by what depends on several options. Throws UsageError where they do not fit together.
void Complete(const EngraveArguments& engraving, const GcodeArguments& arguments,
              const shapedocument::MachineSettings& settings, shapedocument::GcodeOptions& gcode);

/// What the file of colours says. Throws UsageError where it cannot be understood, or gcode asks for a depth and
/// neither for a second pass.
shapedocument::ColorSettings ColorsOf(const GcodeArguments& arguments, const shapedocument::GcodeOptions& gcode);

/// Null when nothing is asked to be engraved. Throws Failure, naming file.
std::unique_ptr<shapedocument::Engraving> EngravingOf(CShapeList& document, const EngraveArguments& arguments,
                                                      const QString& file);
