/// A machine job, and the options of its G-code.
#pragma once

#include "Object.h"
#include "Progress.h"
#include "document/DocumentFile.h"
#include "machine/Engraving.h"
#include "machine/GcodeOptions.h"
#include "machine/MachinePaths.h"
#include "machine/MachineWork.h"

#include <memory>
#include <optional>

namespace capi {

/// The options of a job.
struct JobSetting
{
    shapedocument::JobOptions options;
    shapedocument::EngraveOptions engraving; ///< used where options.engraved
};

/// Throws Refusal.
JobSetting SettingOf(const sm_job_options* given);

/// A machine job. Owns the document from which it was made.
class Job : public Workplace
{
public:
    /// Throws Failure and Stopped.
    Job(shapedocument::Document document, const JobSetting& setting, Progress& progress);

    CShapeList& Shapes() const { return *m_document; }
    const shapedocument::PreparedJob& Prepared() const { return m_prepared; }

    /// The work.
    shapedocument::MachineWork Work() const;
    /// The work, which calls progress (borrowed) while it is read.
    shapedocument::MachineWork Work(Progress& progress) const;

    /// Engraved rows, and dots, per mm; nothing without engraving.
    std::optional<double> LinesPerMm() const;
    bool IsEmpty() const;
    /// The doubled lines that were left out; for a job that keeps them, those that would have been. Throws Failure
    /// and Stopped.
    shapedocument::DoubledLines Doubles(Progress& progress) const;

private:
    JobSetting m_setting;
    shapedocument::Document m_document;
    shapedocument::PreparedJob m_prepared;
    std::unique_ptr<shapedocument::Engraving> m_engraving;
};

/// Gives a call sole use of a job while it lives.
class JobUse
{
public:
    /// Throws Refusal.
    explicit JobUse(sm_job handle);

    Job* operator->() const { return m_job.get(); }
    Job& operator*() const { return *m_job; }

private:
    std::shared_ptr<Job> m_job;
    Work m_work;
};

/// The options of G-code. Throws Refusal, also for powers (those of colours included) that the dialect's firmware does
/// not accept.
shapedocument::GcodeOptions GcodeOf(const sm_gcode_options* given, const shapedocument::ColorSettings& colors);

/// "job", its name in messages.
extern const char kJobName[];

} // namespace capi
