#include "panels/ImagePanel.h"

#include "look/Look.h"

#include "image/ShapeImage.h"

#include <QGridLayout>
#include <QLabel>
#include <QPushButton>

#include <algorithm>

namespace {

constexpr double kWidest = 1e6;    // mm
constexpr double kLeastLeft = 0.1; // mm of a picture that must remain

CShapeImage* PictureOf(CShape* shape)
{
    return shape->GetShapeType() == ESHAPE_IMAGE ? static_cast<CShapeImage*>(shape) : nullptr;
}

/// What a cut leaves of a picture, given what goes from its sides (mm).
QRectF Remaining(const QRectF& rect, const std::array<double, 4>& sides)
{
    return rect.adjusted(sides[0], sides[1], -sides[2], -sides[3]);
}

bool Cut(CShapeImage& picture, const std::array<double, 4>& sides)
{
    const QRectF rect = picture.GetRect(true), left = Remaining(rect, sides);
    const cv::Mat shown = picture.GetImage(false);
    if (shown.empty() || left.width() < kLeastLeft || left.height() < kLeastLeft)
        return false;
    const double across = shown.cols / rect.width(), down = shown.rows / rect.height(); // pixels per mm
    picture.UpdateCropImage(QRectF((left.left() - rect.left()) * across, (left.top() - rect.top()) * down,
                                   left.width() * across, left.height() * down),
                            left);
    picture.GetRect(true);
    return true;
}

/// The edits so far become part of the picture, so that it stays where it is.
bool InvertPixels(CShapeImage& picture)
{
    cv::Mat pixels = picture.GetImage(true);
    if (pixels.empty())
        return false;
    cv::bitwise_not(pixels, pixels);
    picture.SetImage(pixels, true);
    picture.RemoveImageCache();
    picture.GetRect(true);
    return true;
}

} // namespace

ImagePanel::ImagePanel(WorkDocument& document, QWidget* parent)
    : Panel(document, parent),
      m_facts(new QLabel), m_sides{NumberBox(tr("Cut off the left"), 0, kWidest, 2, tr(" mm")),
                                   NumberBox(tr("Cut off the top"), 0, kWidest, 2, tr(" mm")),
                                   NumberBox(tr("Cut off the right"), 0, kWidest, 2, tr(" mm")),
                                   NumberBox(tr("Cut off the bottom"), 0, kWidest, 2, tr(" mm"))},
      m_crop(new QPushButton(look::Icon("image-crop"), tr("C&rop")))
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(6, 6, 6, 6);
    grid->addWidget(m_facts, 0, 0, 1, 4);
    const std::array<QString, 4> names{tr("&Left"), tr("&Top"), tr("&Right"), tr("&Bottom")};
    for (int i = 0; i < 4; ++i) {
        auto* label = new QLabel(names.at(static_cast<size_t>(i)));
        label->setBuddy(m_sides.at(static_cast<size_t>(i)));
        grid->addWidget(label, 1 + i / 2, i % 2 * 2);
        grid->addWidget(m_sides.at(static_cast<size_t>(i)), 1 + i / 2, i % 2 * 2 + 1);
    }
    auto* invert = new QPushButton(look::Icon("image-invert"), tr("&Invert"));
    grid->addWidget(m_crop, 3, 0, 1, 2);
    grid->addWidget(invert, 3, 2, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setColumnStretch(3, 1);
    connect(m_crop, &QPushButton::clicked, this, &ImagePanel::Crop);
    connect(invert, &QPushButton::clicked, this, &ImagePanel::Invert);
}

bool ImagePanel::IsFor(const std::vector<CShape*>& shapes)
{
    return std::ranges::any_of(shapes, PictureOf);
}

void ImagePanel::Crop()
{
    std::array<double, 4> sides{};
    std::ranges::transform(m_sides, sides.begin(), [](const QDoubleSpinBox* field) { return field->value(); });
    if (std::ranges::count(sides, 0) == 4)
        return;
    const bool cut = Document().Change(tr("Crop"), Document().Selection(), [&](CShape& shape) {
        CShapeImage* picture = PictureOf(&shape);
        return picture && Cut(*picture, sides);
    });
    for (QDoubleSpinBox* field : m_sides)
        field->setValue(cut ? 0 : field->value());
}

void ImagePanel::Invert()
{
    Document().Change(tr("Invert"), Document().Selection(), [](CShape& shape) {
        CShapeImage* picture = PictureOf(&shape);
        return picture && InvertPixels(*picture);
    });
}

void ImagePanel::Renew()
{
    const auto found = std::ranges::find_if(Document().Selection(), PictureOf);
    if (found == Document().Selection().end())
        return;
    const QSize pixels = PictureOf(*found)->GetOriginalPixelSize();
    const QRectF rect = (*found)->GetRect(false);
    m_facts->setText(tr("%1 × %2 pixels, %3 pixels per mm")
                         .arg(pixels.width())
                         .arg(pixels.height())
                         .arg(rect.width() > 0 ? pixels.width() / rect.width() : 0, 0, 'f', 1));
}
