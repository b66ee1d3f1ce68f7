/// The part of the preview in which the head goes its way.
#pragma once

#include "canvas/ViewInput.h"
#include "canvas/ViewTransform.h"
#include "job/JobTiles.h"

#include <QImage>
#include <QWidget>

#include <memory>
#include <optional>

/// Shows a job at a time. The wheel zooms at the pointer, dragging pans, a double click and Home fit the bed in.
class JobCanvas : public QWidget
{
    Q_OBJECT

public:
    explicit JobCanvas(QWidget* parent = nullptr);

    /// Null shows the empty bed. The view stays.
    void SetJob(std::shared_ptr<const MadeJob> job);
    /// The bed while there is no job.
    void SetBed(const QRectF& bed);
    /// How far the head has come (seconds).
    void SetTime(double seconds);
    /// Whether moves without burning are shown.
    void SetShowsTravel(bool shows);
    /// Marks a place (mm) and goes there.
    void GoTo(const QRectF& place);
    /// Shows the whole bed.
    void Fit();
    /// About the middle.
    void Zoom(double factor) { Zoom(factor, QRectF(rect()).center()); }
    /// Moves the job (pixels).
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
    QImage m_rows;    ///< what is engraved, in the colours of the palette
    JobTiles m_tiles; ///< of the view as it was when they began
    QPoint m_corner;  ///< of the tiles' pixels, at the widget's top left: panning only moves that
    QImage m_picture; ///< what is shown, without the head
    ViewTransform m_formerView;
    QImage m_former; ///< what was shown before the view changed, while tiles are missing
};
