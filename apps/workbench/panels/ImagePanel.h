/// The panel for cropping and inverting the selected pictures.
#pragma once

#include "panels/Panel.h"

#include <array>

class CShapeImage;
class QLabel;
class QPushButton;

/// Fields for the widths to cut off each side, and a button that inverts.
class ImagePanel : public Panel
{
    Q_OBJECT

public:
    explicit ImagePanel(WorkDocument& document, QWidget* parent = nullptr);

    /// Whether any of the shapes is a picture.
    static bool IsFor(const std::vector<CShape*>& shapes);

protected:
    void Renew() override;

private:
    void Crop();

    QLabel* m_facts;
    std::array<look::LengthBox*, 4> m_sides; ///< left, top, right, bottom
    QPushButton* m_crop;
};
