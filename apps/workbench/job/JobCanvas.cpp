#include "job/JobCanvas.h"

#include "look/LengthUnit.h"
#include "look/Look.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>

#include <algorithm>
#include <limits>
#include <utility>

namespace {

constexpr int kFrame = 12;          // ms of a frame for painting missing tiles
constexpr size_t kFewSteps = 5'000; // limit for jobs that are painted at once

} // namespace

JobCanvas::JobCanvas(QWidget* parent) : QWidget(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    setAccessibleName(tr("Job"));
    setMinimumSize(240, 160);
    setCursor(Qt::OpenHandCursor);
    connect(&look::LengthUnit::Shown(), &look::LengthUnit::Changed, this, &JobCanvas::Renew);
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
    if (std::exchange(m_bed, bed) == bed)
        return;
    if (m_fits)
        Fit();
    Renew();
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
    ViewTransform view = m_view;
    view.Fit(QRectF(place.center() - QPointF(side, side) / 2, QSizeF(side, side)), size());
    m_fits = false;
    Look(view);
}

void JobCanvas::Fit()
{
    ViewTransform view = m_view;
    view.Fit(m_bed, size());
    m_fits = true;
    Look(view);
}

JobPlacement JobCanvas::Placement() const
{
    return {m_view.Matrix(), rect(), m_showsTravel, m_rows};
}

void JobCanvas::Renew()
{
    m_tiles.End();
    m_former = {};
    update();
}

/// Keeps the present picture until the tiles of the next view are painted.
void JobCanvas::KeepFormer()
{
    if (!m_former.isNull())
        return;
    m_former = m_picture;
    m_formerView = m_view;
}

/// Switches to another scale.
void JobCanvas::Look(const ViewTransform& view)
{
    KeepFormer();
    m_view = view;
    m_tiles.End();
    update();
}

/// Moves by whole pixels of the screen, so that tiles stay valid.
void JobCanvas::Pan(QPoint pixels)
{
    KeepFormer();
    const QPoint moved = (QPointF(pixels) * devicePixelRatioF()).toPoint();
    m_view.Pan(QPointF(moved) / devicePixelRatioF());
    m_corner -= moved;
    m_fits = false;
    update();
}

void JobCanvas::PaintFormer(QPainter& painter)
{
    const QRectF mm = m_formerView.ToMm(QRectF(QPointF(), QSizeF(m_former.size()) / devicePixelRatioF()));
    const QRectF pixels = m_view.ToPixel(mm);
    painter.fillRect(m_picture.rect(), look::Outside());
    painter.drawImage(QRectF(pixels.topLeft() * devicePixelRatioF(), pixels.size() * devicePixelRatioF()), m_former);
}

void JobCanvas::PaintPicture(size_t doneSteps)
{
    const double density = devicePixelRatioF();
    const QSize pixels = (QSizeF(size()) * density).toSize();
    if (m_picture.size() != pixels || m_picture.devicePixelRatio() != density) {
        m_picture = QImage(pixels, QImage::Format_RGB32);
        m_tiles.End();
        m_former = {};
    }
    m_picture.setDevicePixelRatio(1);
    if (m_job && m_rows.isNull())
        m_rows = RowsInColor(*m_job);
    if (!m_tiles.HasBegun()) {
        m_tiles.Begin(m_job, m_bed, Placement(), density);
        m_corner = {};
    }
    QPainter painter(&m_picture);
    const bool atOnce = m_former.isNull() && (!m_job || m_job->Steps().size() < kFewSteps);
    if (!m_former.isNull())
        PaintFormer(painter);
    else if (!atOnce)
        painter.fillRect(m_picture.rect(), look::Outside());
    const int patience = atOnce ? std::numeric_limits<int>::max() : kFrame;
    if (m_tiles.Paint(painter, m_corner, pixels, doneSteps, patience))
        m_former = {};
    else
        update(); // the rest is painted in the next frames
    painter.end();
    m_picture.setDevicePixelRatio(density);
}

void JobCanvas::paintEvent(QPaintEvent*)
{
    const bool hasSteps = m_job && !m_job->Steps().empty();
    const HeadPlace head = hasSteps ? m_job->PlaceAt(m_seconds) : HeadPlace();
    PaintPicture(head.step);
    QPainter painter(this);
    painter.drawImage(QPointF(), m_picture);
    if (hasSteps) {
        painter.setRenderHint(QPainter::Antialiasing);
        PaintStepAtWork(painter, *m_job, Placement(), head);
        PaintHead(painter, m_view.ToPixel(head.place));
    }
    if (m_marked)
        PaintMark(painter, m_view.ToPixel(*m_marked));
}

void JobCanvas::resizeEvent(QResizeEvent*)
{
    if (m_fits)
        Fit();
    Renew();
}

void JobCanvas::Zoom(double factor, QPointF pixel)
{
    ViewTransform view = m_view;
    view.ZoomAt(pixel, factor);
    m_fits = false;
    Look(view);
}

void JobCanvas::wheelEvent(QWheelEvent* event)
{
    const WheelStep step = StepOf(*event);
    if (step.pan.isNull())
        Zoom(step.zoom, event->position());
    else
        Pan(step.pan);
    event->accept();
}

void JobCanvas::mousePressEvent(QMouseEvent* event)
{
    m_hand.Grab(event->position(), event->button());
    setCursor(Qt::ClosedHandCursor);
}

void JobCanvas::mouseMoveEvent(QMouseEvent* event)
{
    if (m_hand.Holds())
        Pan(m_hand.MoveTo(event->position()));
}

void JobCanvas::mouseReleaseEvent(QMouseEvent* event)
{
    if (m_hand.Release(event->button()))
        setCursor(Qt::OpenHandCursor);
}

void JobCanvas::mouseDoubleClickEvent(QMouseEvent*)
{
    Fit();
}

void JobCanvas::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Plus || event->key() == Qt::Key_Equal)
        Zoom(ViewTransform::kZoomStep);
    else if (event->key() == Qt::Key_Minus)
        Zoom(1 / ViewTransform::kZoomStep);
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
