/// A machine job, and what its G-code is written with.
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

/// What a job is made with.
struct JobSetting
{
    shapedocument::JobOptions options;
    shapedocument::EngraveOptions engraving; ///< where options.engraved
};

/// Throws Refusal.
JobSetting SettingOf(const sm_job_options* given);

/// Owns the document that it was made of.
class Job : public Workplace
{
public:
    /// Throws Failure and Stopped.
    Job(shapedocument::Document document, const JobSetting& setting, Progress& progress);

    CShapeList& Shapes() const { return *m_document; }
    const shapedocument::PreparedJob& Prepared() const { return m_prepared; }

    /// The work.
    shapedocument::MachineWork Work() const;
    /// The work, which tells progress, borrowed, while it is gone through.
    shapedocument::MachineWork Work(Progress& progress) const;

    /// Rows and dots in a mm; nothing without engraving.
    std::optional<double> LinesPerMm() const;
    bool IsEmpty() const;
    /// The doubled lines that were left out, or else would have been. Throws Failure.
    shapedocument::DoubledLines Doubles() const;

private:
    JobSetting m_setting;
    shapedocument::Document m_document;
    shapedocument::PreparedJob m_prepared;
    std::unique_ptr<shapedocument::Engraving> m_engraving;
};

/// A job for as long as a call works on it.
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

/// Throws Refusal, also for powers that the firmware of the dialect does not take, those of the colours included.
shapedocument::GcodeOptions GcodeOf(const sm_gcode_options* given, const shapedocument::ColorSettings& colors);

/// "job", its name in messages.
extern const char kJobName[];

} // namespace capi
