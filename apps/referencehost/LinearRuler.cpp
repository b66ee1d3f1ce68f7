#include "referencehost/LinearRuler.h"

LinearRuler::LinearRuler(double pixelsPerMillimetre, QPointF origin) : m_scale(pixelsPerMillimetre), m_origin(origin) {}

QPointF LinearRuler::MM2PixPoint(const QPointF& point)
{
    return m_origin + point * m_scale;
}

QRectF LinearRuler::MM2PixRect(const QRectF& rect)
{
    return {MM2PixPoint(rect.topLeft()), rect.size() * m_scale};
}

QPointF LinearRuler::Pix2MMPoint(const QPointF& point)
{
    return (point - m_origin) / m_scale;
}

QRectF LinearRuler::Pix2MMRect(const QRectF& rect)
{
    return {Pix2MMPoint(rect.topLeft()), rect.size() / m_scale};
}

double LinearRuler::MM2PixLength(const double& length)
{
    return length * m_scale;
}

double LinearRuler::Pix2MMLength(const double& length)
{
    return length / m_scale;
}
