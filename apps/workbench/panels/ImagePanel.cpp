#include "panels/ImagePanel.h"

#include "edits/Pictures.h"
#include "look/LengthUnit.h"
#include "look/Look.h"

#include "image/ShapeImage.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr double kWidest = 1e6; // mm

} // namespace

ImagePanel::ImagePanel(WorkDocument& document, QWidget* parent)
    : Panel(document, parent), m_facts(new QLabel), m_sides{LengthField(tr("Cut off the left"), 0, kWidest, 2),
                                                            LengthField(tr("Cut off the top"), 0, kWidest, 2),
                                                            LengthField(tr("Cut off the right"), 0, kWidest, 2),
                                                            LengthField(tr("Cut off the bottom"), 0, kWidest, 2)},
      m_crop(new QPushButton(look::Icon("image-crop"), tr("Cro&p")))
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(6, 6, 6, 6);
    grid->addWidget(m_facts, 0, 0, 1, 4);
    const std::array<QString, 4> names{tr("Left"), tr("Top"), tr("Right"), tr("Bottom")};
    for (int i = 0; i < 4; ++i) {
        auto* label = new QLabel(names.at(static_cast<size_t>(i)));
        label->setBuddy(m_sides.at(static_cast<size_t>(i)));
        grid->addWidget(label, 1 + i / 2, i % 2 * 2);
        grid->addWidget(m_sides.at(static_cast<size_t>(i)), 1 + i / 2, i % 2 * 2 + 1);
    }
    auto* invert = new QPushButton(look::Icon("image-invert"), tr("I&nvert"));
    grid->addWidget(m_crop, 3, 0, 1, 2);
    grid->addWidget(invert, 3, 2, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    connect(m_crop, &QPushButton::clicked, this, &ImagePanel::Crop);
    connect(invert, &QPushButton::clicked, this, [this] { InvertPictures(Document()); });
}

bool ImagePanel::IsFor(const std::vector<CShape*>& shapes)
{
    return std::ranges::any_of(shapes, PictureOf);
}

void ImagePanel::Crop()
{
    const auto side = [this](size_t i) { return m_sides.at(i)->Millimetres(); };
    if (CropPictures(Document(), {side(0), side(1), side(2), side(3)}))
        for (look::LengthBox* field : m_sides)
            field->SetMillimetres(0);
}

void ImagePanel::Renew()
{
    const auto found = std::ranges::find_if(Document().Selection(), PictureOf);
    if (found == Document().Selection().end())
        return;
    const QSize pixels = PictureOf(*found)->GetOriginalPixelSize();
    const QRectF rect = (*found)->GetRect(false);
    const look::LengthUnit& unit = look::LengthUnit::Shown();
    const double density = rect.width() > 0 ? pixels.width() / rect.width() * unit.Millimetres() : 0;
    m_facts->setText(tr("%1 × %2 pixels, %3 pixels per %4")
                         .arg(pixels.width())
                         .arg(pixels.height())
                         .arg(density, 0, 'f', unit.IsInch() ? 0 : 1)
                         .arg(unit.Name()));
}
