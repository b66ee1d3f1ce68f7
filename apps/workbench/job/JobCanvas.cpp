#include "job/JobCanvas.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr double kLeastScale = 0.02, kMostScale = 2000; // pixels per mm
constexpr double kZoomStep = 1.25;

} // namespace

JobCanvas::JobCanvas(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Job"));
    setMinimumSize(240, 160);
}

void JobCanvas::SetJob(std::shared_ptr<const MadeJob> job)
{
    m_job = std::move(job);
    m_marked.reset();
    m_rows = {};
    if (m_job)
        SetBed(m_job->Settings().Sheet());
    Renew();
}

void JobCanvas::SetBed(const QRectF& bed)
{
    if (std::exchange(m_bed, bed) != bed && m_fits)
        Fit();
}

void JobCanvas::SetTime(double seconds)
{
    m_seconds = seconds;
    update();
}

void JobCanvas::SetShowsTravel(bool shows)
{
    m_showsTravel = shows;
    Renew();
}

void JobCanvas::GoTo(const QRectF& place)
{
    constexpr double kLeastShown = 30; // mm
    m_marked = place;
    const double side = std::max({kLeastShown, place.width() * 2, place.height() * 2});
    m_scale = std::clamp(std::min(width(), height()) / side, kLeastScale, kMostScale);
    m_corner = place.center() - QPointF(width(), height()) / (2 * m_scale);
    m_fits = false;
    Renew();
}

void JobCanvas::Fit()
{
    constexpr double kMargin = 24; // pixels
    m_scale = std::clamp(std::min((width() - 2 * kMargin) / m_bed.width(), (height() - 2 * kMargin) / m_bed.height()),
                         kLeastScale, kMostScale);
    m_corner = m_bed.center() - QPointF(width(), height()) / (2 * m_scale);
    m_fits = true;
    Renew();
}

JobPlacement JobCanvas::Placement() const
{
    return {QTransform::fromScale(m_scale, m_scale).translate(-m_corner.x(), -m_corner.y()), rect(), m_showsTravel,
            m_rows};
}

/// In the screen's own pixels.
QImage JobCanvas::Layer() const
{
    QImage layer(size() * devicePixelRatioF(), QImage::Format_ARGB32_Premultiplied);
    layer.setDevicePixelRatio(devicePixelRatioF());
    layer.fill(Qt::transparent);
    return layer;
}

void JobCanvas::Renew()
{
    m_base = {};
    update();
}

void JobCanvas::PaintLayers()
{
    if (m_job && m_rows.isNull())
        m_rows = RowsInColor(*m_job);
    m_base = Layer();
    QPainter painter(&m_base);
    PaintSheet(painter, m_bed, Placement());
    if (m_job)
        PaintSteps(painter, *m_job, Placement(), 0, m_job->Steps().size(), StepLook::Waiting);
    m_done = Layer();
    m_doneSteps = 0;
}

/// Draws only what has come since; going back in time begins anew.
void JobCanvas::PaintDone(const HeadPlace& head)
{
    if (head.step < m_doneSteps) {
        m_done.fill(Qt::transparent);
        m_doneSteps = 0;
    }
    QPainter painter(&m_done);
    PaintSteps(painter, *m_job, Placement(), m_doneSteps, head.step, StepLook::Done);
    m_doneSteps = head.step;
}

void JobCanvas::paintEvent(QPaintEvent*)
{
    if (m_base.isNull() || m_base.devicePixelRatio() != devicePixelRatioF())
        PaintLayers();
    QPainter painter(this);
    painter.drawImage(QPointF(), m_base);
    if (m_job && !m_job->Steps().empty()) {
        const HeadPlace head = m_job->PlaceAt(m_seconds);
        PaintDone(head);
        painter.drawImage(QPointF(), m_done);
        painter.setRenderHint(QPainter::Antialiasing);
        PaintStepAtWork(painter, *m_job, Placement(), head);
        PaintHead(painter, Placement().toPixels.map(head.place));
    }
    if (m_marked)
        PaintMark(painter, Placement().toPixels.mapRect(*m_marked));
}

void JobCanvas::resizeEvent(QResizeEvent*)
{
    if (m_fits)
        Fit();
    Renew();
}

void JobCanvas::Zoom(double factor, QPointF pixel)
{
    const QPointF place = m_corner + pixel / m_scale;
    m_scale = std::clamp(m_scale * factor, kLeastScale, kMostScale);
    m_corner = place - pixel / m_scale;
    m_fits = false;
    Renew();
}

void JobCanvas::wheelEvent(QWheelEvent* event)
{
    constexpr double kNotch = 120;
    Zoom(std::pow(kZoomStep, event->angleDelta().y() / kNotch), event->position());
}

void JobCanvas::mousePressEvent(QMouseEvent* event)
{
    m_drag = event->position();
    setCursor(Qt::ClosedHandCursor);
}

void JobCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (!m_drag)
        return;
    m_corner -= (event->position() - *m_drag) / m_scale;
    m_drag = event->position();
    m_fits = false;
    Renew();
}

void JobCanvas::mouseReleaseEvent(QMouseEvent*)
{
    m_drag.reset();
    unsetCursor();
}

void JobCanvas::mouseDoubleClickEvent(QMouseEvent*)
{
    Fit();
}

void JobCanvas::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)
        Zoom(kZoomStep);
    else if (event->key() == Qt::Key_Minus)
        Zoom(1 / kZoomStep);
    else if (event->key() == Qt::Key_Home)
        Fit();
    else
        QWidget::keyPressEvent(event);
}

void JobCanvas::changeEvent(QEvent* event)
{
    if (event->type() == QEvent::PaletteChange) {
        m_rows = {};
        Renew();
    }
    QWidget::changeEvent(event);
}
