// Pictures of the guides: fields side by side, each with a title above and millimetres of its own.
#pragma once

#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <cstdio>

class Board
{
public:
    Board(QSize field, int columns, int count)
        : m_field(field), m_columns(columns),
          m_image(columns * Cell().width(), (count + columns - 1) / columns * Cell().height(), QImage::Format_RGB32),
          m_painter(&m_image)
    {
        m_image.fill(Qt::white);
        m_painter.setRenderHint(QPainter::Antialiasing);
    }

    /// The next field, in which millimetre origin lies at the upper left corner.
    void Next(const QString& title, QPointF origin = {})
    {
        m_painter.setClipping(false);
        m_painter.resetTransform();
        m_painter.translate(m_next % m_columns * Cell().width() + kAir, m_next / m_columns * Cell().height() + kTitle);
        m_painter.scale(kScale, kScale);
        m_painter.translate(-origin);
        ++m_next;
        Say(title, origin - QPointF(0, 1.2), Qt::black);
        m_painter.setClipRect(QRectF(origin, m_field));
    }

    void Draw(const QPainterPath& path, const QColor& color, double width = 0.35, Qt::PenStyle style = Qt::SolidLine)
    {
        m_painter.setPen(QPen(color, width, style, Qt::FlatCap));
        m_painter.setBrush(Qt::NoBrush);
        m_painter.drawPath(path);
    }

    void Dot(QPointF place, const QColor& color, double radius = 0.7)
    {
        m_painter.setPen(Qt::NoPen);
        m_painter.setBrush(color);
        m_painter.drawEllipse(place, radius, radius);
    }

    /// In pixels of the picture, because fonts of a few millimetres are drawn badly.
    void Say(const QString& text, QPointF place, const QColor& color)
    {
        const QPointF pixel = m_painter.transform().map(place);
        m_painter.save();
        m_painter.resetTransform();
        QFont font("Liberation Sans");
        font.setPixelSize(14);
        m_painter.setFont(font);
        m_painter.setPen(color);
        m_painter.drawText(pixel, text);
        m_painter.restore();
    }

    QPainter& Painter() { return m_painter; }

    /// 0, or 1 when the file cannot be written; for the program's end.
    int Save(const char* file)
    {
        m_painter.end();
        if (m_image.save(QString::fromLocal8Bit(file)))
            return 0;
        std::fprintf(stderr, "%s: cannot be written\n", file);
        return 1;
    }

private:
    QSize Cell() const { return {m_field.width() * kScale + kAir, m_field.height() * kScale + kTitle}; }

    static constexpr int kScale = 6; ///< pixels a millimetre
    static constexpr int kAir = 14, kTitle = 28;
    QSize m_field; ///< mm
    int m_columns;
    int m_next = 0;
    QImage m_image;
    QPainter m_painter;
};
