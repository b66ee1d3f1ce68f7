#include "look/DrawnIcon.h"

#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPalette>
#include <QPixmap>
#include <QSvgRenderer>

namespace look {

namespace {

QColor ColorOf(QIcon::Mode mode)
{
    const QPalette palette = QApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    case QIcon::Selected:
        return palette.color(QPalette::HighlightedText);
    case QIcon::Normal:
    case QIcon::Active:
        break;
    }
    return palette.color(QPalette::ButtonText);
}

} // namespace

DrawnIcon::DrawnIcon(const QString& file)
{
    QFile source(file);
    if (source.open(QIODevice::ReadOnly))
        m_svg = source.readAll();
}

void DrawnIcon::paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State)
{
    QByteArray colored = m_svg;
    QSvgRenderer(colored.replace("currentColor", ColorOf(mode).name().toLatin1())).render(painter, rect);
}

QPixmap DrawnIcon::pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state)
{
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect({}, size), mode, state);
    return pixmap;
}

} // namespace look
