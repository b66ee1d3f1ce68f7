/// The player of JobPreview: time, speed and the row of buttons for them.
#include "job/JobPreview.h"

#include "job/JobCanvas.h"
#include "look/Buttons.h"
#include "look/Look.h"

#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QSlider>
#include <QToolButton>

#include <algorithm>
#include <cmath>

namespace {

constexpr int kSliderSteps = 10'000;
constexpr double kWholeJob = 20; // seconds in which the fitting speed plays a whole job

} // namespace

QString JobPreview::Clock(double seconds)
{
    constexpr int kMinute = 60, kHour = 3600;
    const auto whole = static_cast<int>(std::lround(seconds));
    const QString tail = QString("%1:%2")
                             .arg(whole % kHour / kMinute, whole >= kHour ? 2 : 1, 10, QChar('0'))
                             .arg(whole % kMinute, 2, 10, QChar('0'));
    return whole >= kHour ? QString("%1:").arg(whole / kHour) + tail : tail;
}

QWidget* JobPreview::MakePlayer()
{
    auto* player = new QWidget;
    auto* row = new QHBoxLayout(player);
    row->setContentsMargins(8, 4, 8, 4);
    auto* begin = look::IconButton("media-skip-backward", tr("To the begin"));
    auto* end = look::IconButton("media-skip-forward", tr("To the end"));
    m_play = look::IconButton("media-playback-start", tr("Play"));
    m_play->setCheckable(true);
    m_play->setShortcut(Qt::Key_Space);
    m_slider = new QSlider(Qt::Horizontal);
    m_slider->setRange(0, kSliderSteps);
    m_slider->setPageStep(kSliderSteps / 50);
    m_slider->setAccessibleName(tr("Time"));
    m_times = new QLabel;
    m_times->setMinimumWidth(fontMetrics().horizontalAdvance("0:00:00 / 0:00:00"));
    m_times->setAlignment(Qt::AlignCenter);
    m_speed = new QComboBox;
    m_speed->setToolTip(tr("Speed"));
    m_speed->setAccessibleName(tr("Speed"));
    m_speed->addItem(tr("whole job in 20 s"), 0);
    for (const int times : {1, 4, 16, 64})
        m_speed->addItem(tr("%1 × as fast").arg(times), times);
    auto* travel = new QCheckBox(tr("Travel"));
    travel->setToolTip(tr("Moves of the head without burning, dashed"));
    travel->setChecked(true);
    for (QWidget* widget : std::initializer_list<QWidget*>{begin, m_play, end, m_slider, m_times, m_speed, travel})
        row->addWidget(widget, widget == m_slider ? 1 : 0);
    connect(begin, &QToolButton::clicked, this, [this] { SetTime(0); });
    connect(end, &QToolButton::clicked, this, [this] { SetTime(HUGE_VAL); });
    connect(m_play, &QToolButton::toggled, this, &JobPreview::Play);
    connect(m_slider, &QSlider::valueChanged, this,
            [this](int value) { SetTime(m_job ? m_job->Seconds() * value / kSliderSteps : 0); });
    connect(travel, &QCheckBox::toggled, m_canvas, &JobCanvas::SetShowsTravel);
    m_needJob.insert(m_needJob.end(), {begin, m_play, end, m_slider});
    return player;
}

void JobPreview::SetTime(double seconds)
{
    m_seconds = std::clamp(seconds, 0.0, m_job ? m_job->Seconds() : 0.0);
    m_canvas->SetTime(m_seconds);
    ShowTimes();
}

void JobPreview::ShowTimes()
{
    const double all = m_job ? m_job->Seconds() : 0;
    const QSignalBlocker quiet(m_slider);
    m_slider->setValue(all > 0 ? int(std::lround(m_seconds / all * kSliderSteps)) : 0);
    m_times->setText(Clock(m_seconds) + " / " + Clock(all));
}

double JobPreview::Speed() const
{
    const int times = m_speed->currentData().toInt();
    return times > 0 || !m_job ? times : m_job->Seconds() / kWholeJob;
}

void JobPreview::Play(bool play)
{
    const QSignalBlocker quiet(m_play);
    play = play && m_job;
    m_play->setChecked(play);
    m_play->setIcon(look::Icon(play ? "media-playback-pause" : "media-playback-start"));
    if (!play) {
        m_ticks.stop();
        return;
    }
    if (m_seconds >= m_job->Seconds())
        SetTime(0);
    m_sinceTick.start();
    m_ticks.start();
}

void JobPreview::GoOn()
{
    constexpr double kSecond = 1000; // ms
    if (!m_job)
        return Play(false);
    SetTime(m_seconds + static_cast<double>(m_sinceTick.restart()) / kSecond * Speed());
    if (m_seconds >= m_job->Seconds())
        Play(false);
}
