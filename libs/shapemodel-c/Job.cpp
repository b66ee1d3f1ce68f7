/// Makes jobs from documents.
#include "Job.h"

#include "Arguments.h"
#include "Clones.h"
#include "Entry.h"
#include "Home.h"
#include "Structs.h"
#include "machine/JobNotes.h"
#include "machine/RunJoining.h"

#include <algorithm>

using namespace capi;
using namespace shapedocument;

namespace capi {

const char kJobName[] = "job";

namespace {

constexpr size_t kMostColors = 100'000;

sm_job_options DefaultJob()
{
    const JobOptions options;
    const EngraveOptions engraving;
    sm_job_options job{};
    job.struct_size = sizeof job;
    job.order = SM_ORDER_FAST;
    job.join = options.join;
    job.lines_per_mm = engraving.linesPerMm;
    return job;
}

sm_color_setting DefaultColor()
{
    return {sizeof(sm_color_setting), 0, 0, -1, 0, ColorSetting::kLastOrder};
}

ColorSetting SettingOf(const sm_color_setting& given)
{
    ColorSetting setting;
    if (given.feed != 0) {
        ExpectBetween(given.feed, kLeastFeed, kMostFeed, "the feed of a colour");
        setting.feed = given.feed;
    }
    if (!(given.power < 0)) {
        ExpectBetween(given.power, 0, kMostPower, "the power of a colour");
        setting.power = given.power;
    }
    if (given.passes != 0) {
        ExpectBetween(given.passes, 1, kMostPasses, "the passes of a colour");
        setting.passes = given.passes;
    }
    setting.order = given.order;
    return setting;
}

/// The caller's array of settings. Their size is that in the caller's header, which may be of another version.
ColorSettings ColorsOf(const sm_job_options& options)
{
    ColorSettings colors;
    if (options.color_count == 0)
        return colors;
    ExpectGiven(options.colors, "colors");
    Expect(options.color_count <= kMostColors, SM_BAD_ARGUMENT, "so many colours cannot be");
    const size_t size = options.colors->struct_size;
    Expect(size >= sizeof(uint32_t) && size <= kLargestStruct, SM_BAD_ARGUMENT, "struct_size of a colour is not set");
    Expect(size % alignof(sm_color_setting) == 0, SM_BAD_ARGUMENT, "struct_size of a colour cannot be that");
    const auto* bytes = reinterpret_cast<const unsigned char*>(options.colors);
    for (size_t i = 0; i < options.color_count; ++i) {
        const auto* given = reinterpret_cast<const sm_color_setting*>(bytes + i * size);
        Expect(given->struct_size == size, SM_BAD_ARGUMENT, "the colours' struct_size differ");
        const sm_color_setting setting = WithDefaults(given, DefaultColor());
        Expect(setting.color <= 0xFFFFFFU, SM_BAD_ARGUMENT, "a colour is beyond 0xFFFFFF");
        Expect(colors.emplace(setting.color, SettingOf(setting)).second, SM_BAD_ARGUMENT, "a colour comes twice");
    }
    return colors;
}

} // namespace

JobSetting SettingOf(const sm_job_options* given)
{
    const sm_job_options options = WithDefaults(given, DefaultJob());
    ExpectBetween(options.order, SM_ORDER_FAST, SM_ORDER_READING, "order");
    ExpectBetween(options.join, 0, kWidestJoin, "join");
    ExpectBetween(options.grey_step, 0, kMostGreyStep, "grey_step");
    ExpectBetween(options.lines_per_mm, kFewestLines, kMostLines, "lines_per_mm");
    Expect(!options.mix_colors || options.order == SM_ORDER_FAST, SM_BAD_ARGUMENT,
           "mix_colors goes with SM_ORDER_FAST");
    JobSetting setting;
    setting.options.fastOrder = options.order == SM_ORDER_FAST;
    setting.options.mixColors = options.mix_colors != 0;
    setting.options.leads = options.leads != 0;
    setting.options.frames = options.frames != 0;
    setting.options.arcs = options.arcs != 0;
    setting.options.keepDoubles = options.keep_doubles != 0;
    setting.options.engraved = options.engrave != 0;
    setting.options.join = options.join;
    setting.options.colors = ColorsOf(options);
    setting.engraving = {options.lines_per_mm, options.one_way != 0, options.grey_step, options.dither != 0};
    return setting;
}

Job::Job(Document document, const JobSetting& setting, Progress& progress)
    : Workplace(Kind::Job), m_setting(setting), m_document(std::move(document)),
      m_prepared(PrepareJob(*m_document, setting.options, kJobName, progress.OfWork()))
{
    if (setting.options.engraved)
        m_engraving = std::make_unique<Engraving>(*m_document, setting.engraving, kJobName);
}

MachineWork Job::Work() const
{
    MachineWork work(m_prepared.job);
    work.engraving = m_engraving.get();
    work.colors = m_setting.options.colors;
    return work;
}

MachineWork Job::Work(Progress& progress) const
{
    MachineWork work = Work();
    work.progress = [&progress](size_t rows, size_t all) { progress.At("engraving", rows, all); };
    work.pathProgress = [&progress](size_t paths, size_t all) { progress.At("writing", paths, all); };
    return work;
}

std::optional<double> Job::LinesPerMm() const
{
    return m_engraving ? std::optional(m_setting.engraving.linesPerMm) : std::nullopt;
}

bool Job::IsEmpty() const
{
    return m_prepared.job.PathCount() == 0 && (!m_engraving || m_engraving->ShapeCount() == 0);
}

DoubledLines Job::Doubles(Progress& progress) const
{
    DoubledLines doubled = m_prepared.doubled;
    if (m_setting.options.keepDoubles)
        LeaveOutDoubles(m_prepared.job, DoublesOf::Everything, kJobName, doubled, progress.OfWork());
    return doubled;
}

JobUse::JobUse(sm_job handle) : m_job(std::static_pointer_cast<Job>(ObjectOf(handle, Kind::Job))), m_work(m_job) {}

} // namespace capi

sm_status sm_color_setting_defaults(sm_color_setting* setting, size_t size)
{
    return Enter([=] { Fill(setting, size, DefaultColor()); });
}

sm_status sm_job_options_defaults(sm_job_options* options, size_t size)
{
    return Enter([=] { Fill(options, size, DefaultJob()); });
}

sm_status sm_job_new(sm_document document, const sm_job_options* options, sm_progress progress, void* context,
                     sm_job* job)
{
    return Enter([=] {
        Clear(job, "job");
        const JobSetting setting = SettingOf(options);
        Progress told(progress, context);
        Document copy = CopyOf(DocumentUse(document).List(), told);
        std::shared_ptr<Job> made;
        Making([&] { made = std::make_shared<Job>(std::move(copy), setting, told); });
        Warn(MakingNotes(made->Prepared()));
        Warn(ColorNotes(setting.options.colors, made->Prepared().job));
        Warn(DoublesNotes(made->Prepared().doubled));
        if (setting.options.engraved && made->Work().EngravedShapes() == 0)
            Warn(QString("nothing to engrave: no picture and no outline with a fill marker"));
        const TableLock table;
        *job = table->Give(made);
    });
}

sm_status sm_job_describe(sm_job job, sm_job_info* info)
{
    return Enter([=] {
        ExpectAnswerable(info);
        const JobUse use(job);
        const MachineWork work = use->Work();
        Answer(info, sm_job_info{0, 0, work.job.PathCount(), work.job.ShapeCount(), work.EngravedShapes(),
                                 RectOf(work.Rect())});
    });
}
