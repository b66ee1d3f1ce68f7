#include "job/JobPreview.h"

#include "document/Questions.h"
#include "job/FindingsList.h"
#include "job/JobCanvas.h"
#include "job/JobForm.h"
#include "look/LengthUnit.h"
#include "look/Look.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QPushButton>
#include <QScrollArea>
#include <QSplitter>
#include <QTabWidget>
#include <QThread>

using namespace shapedocument;

JobPreview::JobPreview(std::function<ShapeListOwner()> copy, QWidget* parent) : QWidget(parent), m_copy(std::move(copy))
{
    constexpr int kTick = 16, kPatience = 300; // ms
    m_canvas = new JobCanvas;
    auto* left = new QWidget;
    auto* column = new QVBoxLayout(left);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(m_canvas, 1);
    column->addWidget(MakePlayer());

    auto* splitter = new QSplitter;
    splitter->addWidget(left);
    splitter->addWidget(MakeSide());
    splitter->setStretchFactor(0, 1);
    splitter->setStretchFactor(1, 0);
    splitter->setChildrenCollapsible(false);
    auto* all = new QHBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(splitter);

    m_ticks.setInterval(kTick);
    m_soon.setInterval(kPatience);
    m_soon.setSingleShot(true);
    connect(&m_ticks, &QTimer::timeout, this, &JobPreview::GoOn);
    connect(&m_soon, &QTimer::timeout, this, &JobPreview::Refresh);
    connect(&m_maker, &JobMaker::Made, this, &JobPreview::ShowJob);
    connect(&m_maker, &JobMaker::Failed, this, &JobPreview::ShowFailure);
    connect(&m_maker, &JobMaker::Progressed, this, &JobPreview::ShowProgress);
    ShowJob(nullptr);
}

JobPreview::~JobPreview() = default;

QWidget* JobPreview::MakeSide()
{
    m_summary = new QLabel;
    connect(&look::LengthUnit::Shown(), &look::LengthUnit::Changed, this, [this] {
        if (m_job)
            ShowJob(m_job); // findings show lengths, too
    });
    m_summary->setWordWrap(true);
    m_summary->setTextInteractionFlags(Qt::TextSelectableByMouse);
    m_progress = new QProgressBar;
    m_progress->setTextVisible(false);
    m_progress->setMaximumHeight(6);
    m_findings = new FindingsList;
    m_form = new JobForm;
    auto* scroll = new QScrollArea;
    scroll->setWidget(m_form);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    auto* tabs = new QTabWidget;
    tabs->addTab(m_findings, tr("Findings"));
    tabs->addTab(scroll, tr("Settings"));

    auto* side = new QWidget;
    side->setMinimumWidth(300);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(8, 8, 8, 8);
    column->addWidget(m_summary);
    column->addWidget(m_progress);
    column->addWidget(tabs, 1);
    column->addWidget(MakeExports());
    connect(m_findings, &FindingsList::PlaceChosen, m_canvas, &JobCanvas::GoTo);
    connect(m_findings, &FindingsList::PlaceChosen, this, &JobPreview::ShowPlace);
    connect(m_form, &JobForm::Edited, this, [this] {
        emit SettingsChanged();
        m_canvas->SetBed(Settings().Sheet());
        RefreshSoon();
    });
    return side;
}

QWidget* JobPreview::MakeExports()
{
    auto* exports = new QWidget;
    auto* row = new QHBoxLayout(exports);
    row->setContentsMargins(0, 0, 0, 0);
    for (const auto& [format, words] : {std::pair(JobFormat::Gcode, tr("Export G-code…")),
                                        std::pair(JobFormat::Svg, tr("SVG…")), std::pair(JobFormat::Png, tr("PNG…"))}) {
        auto* button = new QPushButton(words);
        button->setDefault(format == JobFormat::Gcode);
        button->setIcon(format == JobFormat::Gcode ? look::Icon("document-export") : QIcon());
        connect(button, &QPushButton::clicked, this, [this, wanted = format] { emit ExportWanted(wanted); });
        row->addWidget(button, format == JobFormat::Gcode ? 1 : 0);
        m_needJob.push_back(button);
    }
    return exports;
}

const JobSettings& JobPreview::Settings() const
{
    return m_form->Settings();
}

void JobPreview::SetSettings(const JobSettings& settings)
{
    m_form->Show(settings);
    m_canvas->SetBed(settings.Sheet());
    RefreshSoon();
}

void JobPreview::SetColors(const ColorSettings& colors)
{
    JobSettings settings = Settings();
    settings.job.colors = colors;
    m_form->Show(settings);
    RefreshSoon();
}

void JobPreview::RefreshSoon()
{
    if (isVisible())
        m_soon.start();
}

void JobPreview::Refresh()
{
    m_soon.stop();
    ShowProgress(tr("Looking at the drawing"), -1);
    m_maker.Make(m_copy(), Settings());
}

bool JobPreview::MakeReady(Questions& questions)
{
    m_trouble.clear();
    if (!isVisible() || m_soon.isActive() || (!m_job && !m_maker.IsAtWork()))
        Refresh();
    const auto isMade = [this](int milliseconds) {
        QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents); // the maker tells by an event
        if (m_maker.IsAtWork())
            QThread::msleep(static_cast<unsigned long>(milliseconds));
        return !m_maker.IsAtWork();
    };
    if (m_maker.IsAtWork() && !questions.Await(tr("Making the job"), isMade)) {
        m_maker.Stop();
        ShowJob(nullptr);
        m_summary->setText(tr("Making the job was given up"));
        return false;
    }
    return m_job != nullptr;
}

void JobPreview::ShowProgress(const QString& words, int percent)
{
    m_progress->setVisible(true);
    m_progress->setRange(0, percent < 0 ? 0 : 100);
    m_progress->setValue(percent);
    m_summary->setText(words + "…");
}

void JobPreview::ShowFailure(const QString& reason)
{
    ShowJob(nullptr);
    m_trouble = tr("There is no job: %1").arg(reason);
    m_summary->setText(m_trouble.toHtmlEscaped());
}

void JobPreview::ShowJob(const std::shared_ptr<const MadeJob>& job)
{
    const double part = m_job && m_job->Seconds() > 0 ? m_seconds / m_job->Seconds() : 1;
    m_job = job;
    m_progress->setVisible(false);
    m_canvas->SetJob(job);
    m_findings->SetJob(job.get());
    for (QWidget* widget : m_needJob)
        widget->setEnabled(job != nullptr);
    ShowSummary();
    SetTime(job ? part * job->Seconds() : 0);
}

void JobPreview::ShowSummary()
{
    if (!m_job)
        return m_summary->clear();
    const GcodeTime& time = m_job->Report().time;
    const look::LengthUnit& unit = look::LengthUnit::Shown();
    const auto whole = [](double number) { return QString::number(number, 'f', 0); };
    QString text = tr("<b>%1</b> in the machine<br>%2 paths, %3 %5 to cut, %4 %5 of travel")
                       .arg(Clock(time.seconds))
                       .arg(m_job->Report().paths)
                       .arg(whole(time.cutLength / unit.Millimetres()), whole(time.travelLength / unit.Millimetres()),
                            unit.Name());
    if (time.engravedRows > 0)
        text += tr("<br>%1 %3 to engrave in %2 rows")
                    .arg(whole(time.engravedArea / unit.Millimetres() / unit.Millimetres()))
                    .arg(time.engravedRows)
                    .arg(unit.Name() + "²");
    m_summary->setText(text);
}

void JobPreview::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    Refresh();
}

void JobPreview::hideEvent(QHideEvent* event)
{
    QWidget::hideEvent(event);
    Play(false);
}
