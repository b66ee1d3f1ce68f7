/// RulerBar: the ruler above or beside the canvas.
#pragma once

#include <QWidget>

class CanvasView;

/// Shows lengths on a canvas in the user's unit.
class RulerBar : public QWidget
{
    Q_OBJECT

public:
    /// The view must outlive the ruler.
    RulerBar(CanvasView& view, Qt::Orientation orientation, QWidget* parent = nullptr);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent*) override;

private:
    CanvasView& m_view;
    Qt::Orientation m_orientation;
    double m_marked = 0; ///< mm: the pointer's place
};
