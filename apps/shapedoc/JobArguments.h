/// What makes a machine's work of a document, for every command that writes such work or looks at it.
#pragma once

#include "EngraveOptions.h"
#include "OrderOptions.h"
#include "machine/MachinePaths.h"
#include "machine/MachineSettings.h"
#include "machine/MachineWork.h"

#include <QRectF>

struct JobArguments
{
    shapedocument::JobOptions job;
    OrderOptions order;
    EngraveArguments engraving;
    GcodeArguments machine;
    std::string bedText;
    bool strict = false;

    // Complete by CompleteJob.
    shapedocument::GcodeOptions gcode;
    shapedocument::MachineSettings settings;
    std::optional<QRectF> bed; ///< mm, as the machine counts
};

/// All options of a job, its machine and the machine's bed.
void AddJobOptions(CommandArguments& command, JobArguments& arguments);

/// Reads the files that the arguments name. Throws UsageError where they cannot be understood or do not fit together.
void CompleteJob(JobArguments& arguments);

/// The work of a document. What is left out, and the paths' order if it is not that which was asked for, is told on
/// standard error. Throws Failure, naming file.
class PreparedWork
{
public:
    PreparedWork(CShapeList& document, const JobArguments& arguments, const QString& file);
    PreparedWork(const PreparedWork&) = delete;
    PreparedWork& operator=(const PreparedWork&) = delete;

    shapedocument::MachineWork& Work() { return m_work; }

    /// Those that were left out, or else would have been.
    shapedocument::DoubledLines Doubles() const;

    /// One line on standard error where some were left out.
    void WarnOfDoubles() const;

private:
    QString m_file;
    bool m_keepsDoubles;
    shapedocument::PreparedJob m_prepared;
    std::unique_ptr<shapedocument::Engraving> m_engraving;
    shapedocument::MachineWork m_work;
};
