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
    std::vector<double> powers; ///< lowest and highest; empty: those of lines
    std::optional<double> feed; ///< empty: that of lines
};

/// --engrave and its options; those about G-code are stored in gcode.
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

/// Sets the values of gcode that depend on several options. Throws UsageError if the options contradict each other.
void Complete(const EngraveArguments& engraving, const GcodeArguments& arguments,
              const shapedocument::MachineSettings& settings, shapedocument::GcodeOptions& gcode);

/// The settings in the file of colours. Throws UsageError if the file has an error, or if a depth per pass is asked for
/// and nothing has a second pass.
shapedocument::ColorSettings ColorsOf(const GcodeArguments& arguments, const shapedocument::GcodeOptions& gcode);

/// Null without --engrave. Throws Failure, naming file.
std::unique_ptr<shapedocument::Engraving> EngravingOf(CShapeList& document, const EngraveArguments& arguments,
                                                      const QString& file);
