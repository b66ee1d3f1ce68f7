/// The program's own icons, in the colours of the palette.
#pragma once

#include <QIconEngine>

namespace look {

/// Draws an SVG file whose currentColor is the palette's colour for buttons, so that it fits light and dark windows,
/// and is redrawn for every size and resolution.
class DrawnIcon : public QIconEngine
{
public:
    /// The file may be a resource. One that cannot be read draws nothing.
    explicit DrawnIcon(const QString& file);

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State state) override;
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override;
    QIconEngine* clone() const override { return new DrawnIcon(*this); }
    bool isNull() override { return m_svg.isEmpty(); }

private:
    QByteArray m_svg;
};

} // namespace look
