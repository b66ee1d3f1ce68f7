/// The panel for place, size and rotation of the selection by numbers.
#pragma once

#include "panels/Panel.h"

class QCheckBox;

/// Left, top, width and height of the rectangle around the selection; turning and mirroring about its middle.
class GeometryPanel : public Panel
{
    Q_OBJECT

public:
    explicit GeometryPanel(WorkDocument& document, QWidget* parent = nullptr);

protected:
    void Renew() override;

private:
    void MoveTo();
    void ResizeTo(bool byWidth);
    void Turn(double degrees);

    QRectF m_rect; ///< shown, mm
    look::LengthBox* m_left;
    look::LengthBox* m_top;
    look::LengthBox* m_width;
    look::LengthBox* m_height;
    QDoubleSpinBox* m_angle;
    QCheckBox* m_proportional;
};
