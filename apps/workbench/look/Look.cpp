#include "look/Look.h"

#include "look/DrawnIcon.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QStyleFactory>

#include <array>
#include <cmath>

/// Links the resources of this static library. The macro must be used in the global namespace.
static void LinkIcons()
{
    Q_INIT_RESOURCE(icons);
}

namespace look {

namespace {

Theme g_theme = Theme::System; // of the application, set before its windows are made

struct Colors
{
    QRgb window, base, alternate, text, faintText, button, highlight;
};

constexpr Colors kLight{0xfff3f4f5, 0xffffffff, 0xfff7f8f9, 0xff1d2429, 0xff8a949b, 0xffeceef0, 0xff1877c9};
constexpr Colors kDark{0xff2a2e32, 0xff1f2226, 0xff262a2e, 0xffe8eaec, 0xff7d858b, 0xff363b40, 0xff3d93e0};

QPalette PaletteOf(const Colors& colors)
{
    QPalette palette(QColor(colors.button), QColor(colors.window));
    const std::array<std::pair<QPalette::ColorRole, QRgb>, 12> roles{{{QPalette::WindowText, colors.text},
                                                                      {QPalette::Base, colors.base},
                                                                      {QPalette::AlternateBase, colors.alternate},
                                                                      {QPalette::Text, colors.text},
                                                                      {QPalette::ButtonText, colors.text},
                                                                      {QPalette::ToolTipBase, colors.base},
                                                                      {QPalette::ToolTipText, colors.text},
                                                                      {QPalette::PlaceholderText, colors.faintText},
                                                                      {QPalette::Highlight, colors.highlight},
                                                                      {QPalette::HighlightedText, 0xffffffff},
                                                                      {QPalette::Link, colors.highlight},
                                                                      {QPalette::BrightText, 0xffffffff}}};
    for (const auto& [role, color] : roles)
        palette.setColor(role, QColor(color));
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, QColor(colors.faintText));
    palette.setColor(QPalette::Disabled, QPalette::Highlight, QColor(colors.faintText));
    return palette;
}

QColor Pick(QRgb light, QRgb dark)
{
    return IsDark() ? QColor::fromRgba(dark) : QColor::fromRgba(light);
}

/// Perceived lightness, 0 to 1.
double Lightness(const QColor& color)
{
    return (0.299 * color.redF()) + (0.587 * color.greenF()) + (0.114 * color.blueF());
}

} // namespace

void Apply(QApplication& application, Theme theme)
{
    g_theme = theme;
    if (theme == Theme::System) {
        application.setPalette(QPalette());
        return;
    }
    QApplication::setStyle(QStyleFactory::create("Fusion"));
    application.setPalette(PaletteOf(theme == Theme::Dark ? kDark : kLight));
}

bool IsDark()
{
    const QPalette palette = QApplication::palette();
    return Lightness(palette.color(QPalette::WindowText)) > Lightness(palette.color(QPalette::Window));
}

QIcon Icon(const QString& name)
{
    LinkIcons();
    const QIcon drawn(new DrawnIcon(":/workbench/icons/" + name + ".svg"));
    return g_theme == Theme::System ? QIcon::fromTheme(name, drawn) : drawn;
}

QIcon ProgramIcon()
{
    LinkIcons();
    return QIcon(new DrawnIcon(":/workbench/icons/shapebench.svg"));
}

QIcon Swatch(QRgb color)
{
    constexpr int kSize = 32;
    QPixmap pixmap(kSize, kSize);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(QApplication::palette().color(QPalette::Mid), 2));
    painter.setBrush(QColor(color));
    painter.drawRoundedRect(QRectF(3, 3, kSize - 6, kSize - 6), 5, 5);
    return {pixmap};
}

QColor Outside()
{
    return Pick(0xffdfe3e6, 0xff17191c);
}

QColor Bed()
{
    return Pick(0xffffffff, 0xff24282c);
}

QColor BedEdge()
{
    return Pick(0xff9aa5ad, 0xff545c63);
}

QColor Grid()
{
    return Pick(0xffeef1f3, 0xff2d3237);
}

QColor CoarseGrid()
{
    return Pick(0xffdbe1e5, 0xff3a4046);
}

QColor RulerBack()
{
    return Pick(0xfff3f4f5, 0xff2a2e32);
}

QColor RulerText()
{
    return Pick(0xff5b666e, 0xffa7b0b7);
}

QColor Marker()
{
    return Pick(0xff1877c9, 0xff54a8ef);
}

QColor Burned()
{
    return Pick(0xff000000, 0xffdfe3e6);
}

QColor Card()
{
    return Pick(0xffffffff, 0xffb9b3a7);
}

QColor Travel()
{
    return Pick(0xff78909c, 0xff8a9aa5);
}

QColor Head()
{
    return Pick(0xffd84315, 0xffff8a50);
}

QColor Problem()
{
    return Pick(0xffc62828, 0xffff6b61);
}

QColor Hint()
{
    return Pick(0xffb26a00, 0xffffb74d);
}

QColor LineColor(QRgb color)
{
    constexpr double kLeastContrast = 0.22;
    const QColor wanted(color | 0xff000000U);
    if (std::abs(Lightness(wanted) - Lightness(Bed())) >= kLeastContrast)
        return wanted;
    constexpr double kGrey = 0.1;                                  // saturation
    constexpr float kBright = 0.68F, kPale = 0.94F, kDeep = 0.42F; // lightness
    const QColor hsl = wanted.toHsl();
    const float bright = hsl.hslSaturationF() < kGrey ? kPale : kBright;
    return QColor::fromHslF(std::max(hsl.hslHueF(), 0.0F), hsl.hslSaturationF(),
                            IsDark() ? std::max(hsl.lightnessF(), bright) : std::min(hsl.lightnessF(), kDeep));
}

} // namespace look
