#include "JobArguments.h"

#include "DocumentArguments.h"
#include "Messages.h"
#include "Progress.h"
#include "document/Failure.h"
#include "machine/JobNotes.h"
#include "machine/RunJoining.h"

#include <QRegularExpression>
#include <QStringList>

using namespace shapedocument;

namespace {

constexpr Range kBeds{1, kFarthest}; // mm

/// "300x200", "300,200" or "300x200-10+5".
QRectF BedOf(const QString& text)
{
    static const QRegularExpression kForm(R"(^(\d+\.?\d*)[xX×, ](\d+\.?\d*)(?:([+-]\d+\.?\d*)([+-]\d+\.?\d*))?$)");
    const QRegularExpressionMatch match = kForm.match(text.trimmed());
    const QRectF bed(match.captured(3).toDouble(), match.captured(4).toDouble(), match.captured(1).toDouble(),
                     match.captured(2).toDouble());
    if (!match.hasMatch() || std::min(bed.width(), bed.height()) < kBeds.low || !WithinReach(bed))
        throw UsageError{QString("--bed: \"%1\" is no bed as 300x200 or 300x200-300-200, of %2 mm at least")
                             .arg(text)
                             .arg(kBeds.low)
                             .toStdString()};
    return bed;
}

MachineSettings SettingsIn(const QString& file)
{
    try {
        return ReadMachineSettings(file);
    } catch (const Failure& failure) {
        throw UsageError{("--machine: " + failure.file + ": " + failure.reason).toStdString()};
    }
}

void WarnOf(const QString& file, const QStringList& notes, const char* ending = "")
{
    for (const QString& note : notes)
        Warn(file + ": " + note + ending);
}

/// How outlines become runs.
void AddRunOptions(CommandArguments& command, JobOptions& options)
{
    command.AddFlag("--arcs", options.arcs, "curves become arcs (G2, G3), not lines");
    command.AddNumber("--join=MM", options.join, {0, kWidestJoin},
                      "ends of one colour that are no farther apart become one run; 0 joins none");
    command.AddFlag("--keep-doubles", options.keepDoubles, "lines that lie on each other are cut as often as drawn");
}

} // namespace

void AddJobOptions(CommandArguments& command, JobArguments& arguments)
{
    command.AddFlag("--leads", arguments.job.leads, "with lead-in and lead-out lines where shapes have them active");
    command.AddFlag("--frames", arguments.job.frames,
                    "with the frames of pictures and the outlines of what is engraved");
    AddRunOptions(command, arguments.job);
    AddOrderOptions(command, arguments.order);
    AddEngraveOptions(command, arguments.engraving, arguments.gcode);
    AddGcodeOptions(command, arguments.machine, arguments.gcode);
    const CommandOption bed =
        command.AddText("--bed=WIDTHxHEIGHT[+X+Y]", arguments.bedText,
                        "the machine's bed in mm, where G-code counts from 0,0 or X,Y: warns of what lies outside");
    command.AddFlag("--strict", arguments.strict, "what lies outside the bed is an error").Needs(bed);
}

void CompleteJob(JobArguments& arguments)
{
    ApplyOrder(arguments.order, arguments.job);
    arguments.job.engraved = arguments.engraving.engrave;
    if (!arguments.machine.settings.isEmpty())
        arguments.settings = SettingsIn(arguments.machine.settings);
    Complete(arguments.engraving, arguments.machine, arguments.settings, arguments.gcode);
    arguments.job.colors = ColorsOf(arguments.machine, arguments.gcode);
    if (!arguments.bedText.empty())
        arguments.bed = BedOf(QString::fromStdString(arguments.bedText));
}

PreparedWork::PreparedWork(CShapeList& document, const JobArguments& arguments, const QString& file)
    : m_file(file), m_keepsDoubles(arguments.job.keepDoubles),
      m_prepared(PrepareJob(document, arguments.job, file, ShownSteps())),
      m_engraving(EngravingOf(document, arguments.engraving, file)), m_work(m_prepared.job)
{
    m_work.colors = arguments.job.colors;
    m_work.engraving = m_engraving.get();
    WarnOf(file, MakingNotes(m_prepared));
    WarnOf(file, ColorNotes(arguments.job.colors, m_prepared.job), " of --colors");
}

DoubledLines PreparedWork::Doubles() const
{
    DoubledLines doubled = m_prepared.doubled;
    if (m_keepsDoubles)
        LeaveOutDoubles(m_prepared.job, DoublesOf::Everything, m_file, doubled);
    return doubled;
}

void PreparedWork::WarnOfDoubles() const
{
    WarnOf(m_file, DoublesNotes(m_prepared.doubled));
}
