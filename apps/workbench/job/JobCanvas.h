/// The canvas of the preview, which shows the job and its head.
#pragma once

#include "canvas/ViewInput.h"
#include "canvas/ViewTransform.h"
#include "job/JobTiles.h"

#include <QImage>
#include <QWidget>

#include <memory>
#include <optional>

/// Shows a job at a moment of its time. The wheel zooms at the pointer, dragging pans, a double click and Home show the
/// whole bed.
class JobCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit JobCanvas(QWidget* parent = nullptr);

    /// Null shows the empty bed. The view does not change.
    void SetJob(std::shared_ptr<const MadeJob> job);
    /// The bed (mm) that is shown without a job.
    void SetBed(const QRectF& bed);
    /// Sets the time that is shown (seconds from the job's start).
    void SetTime(double seconds);
    /// Whether moves without burning are shown.
    void SetShowsTravel(bool shows);
    /// Marks a place (mm) and shows it.
    void GoTo(const QRectF& place);
    /// Shows the whole bed.
    void Fit();
    /// Zooms about the middle of the widget.
    void Zoom(double factor) { Zoom(factor, QRectF(rect()).center()); }
    /// Moves the view (pixels).
    void Pan(QPoint pixels);

    QSize sizeHint() const override { return {760, 520}; }

protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    JobPlacement Placement() const;
    void Renew();
    void KeepFormer();
    void Look(const ViewTransform& view);
    void Zoom(double factor, QPointF pixel);
    void PaintPicture(size_t doneSteps);
    void PaintFormer(QPainter& painter);

    std::shared_ptr<const MadeJob> m_job;
    QRectF m_bed{0, 0, 400, 300}; ///< mm
    double m_seconds = 0;
    bool m_showsTravel = true;
    bool m_fits = true; ///< the view follows the window's size
    ViewTransform m_view;
    std::optional<QRectF> m_marked; ///< mm
    PanHand m_hand;
    QImage m_rows;    ///< the engraving, in the palette's colours
    JobTiles m_tiles; ///< of the view at JobTiles::Begin
    QPoint m_corner;  ///< the tiles' pixel at the widget's top left: panning changes only this
    QImage m_picture; ///< the view without the head
    ViewTransform m_formerView;
    QImage m_former; ///< the view before the last change, shown while tiles are missing
};
