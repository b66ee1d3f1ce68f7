/// Parameters, copies and units of the text shape.
#include "text/ShapeText.h"

#include "geometry/Tolerances.h"

using namespace shapes;

namespace {

constexpr double kDefaultSize = 20.0;
constexpr double kPixelBias = 0.49; ///< added to a centre in pixels, not followed by any truncation

} // namespace

CShapeText::CShapeText()
{
    m_text.font.dSize = kDefaultSize;
}

ESHAPE_TYPE CShapeText::GetShapeType()
{
    return ESHAPE_TEXT;
}

bool CShapeText::Copy(CShape* src)
{
    auto* source = dynamic_cast<CShapeText*>(src);
    if (!source || !CShapeVector::Copy(source))
        return false;
    m_text = source->m_text;
    return true;
}

CShape* CShapeText::Clone()
{
    auto* clone = new CShapeText;
    clone->Copy(this);
    return clone;
}

SText CShapeText::GetText()
{
    return m_text;
}

SText* CShapeText::GetTextP()
{
    BuildWaitingPath(); // It shows the parameters as they are before the caller changes them.
    m_text.Widen();
    m_bTextLent = true;
    return &m_text;
}

void CShapeText::SetText(SText& text)
{
    m_text = text;
    UpdatePainterPath();
}

QSizeF CShapeText::MeasureSize(SText&)
{
    return {};
}

/// Takes the converted place over unless a factor of zero or without number has spoilt it.
void CShapeText::TakePlace(QPointF centre, double scaleX, double scaleY)
{
    BuildWaitingPath();
    if (!IsFinite(centre) || !AllFinite({scaleX, scaleY}) || (scaleX == 0 && m_text.dScaleX != 0))
        return;
    m_text.ptCenter = centre;
    m_text.dScaleX = scaleX;
    m_text.dScaleY = scaleY;
}

void CShapeText::PixToMm(double k, QPointF origin)
{
    TakePlace(m_text.ptCenter * k + origin, m_text.dScaleX * k, m_text.dScaleY * k);
}

void CShapeText::MmToPix(double k, QPointF origin)
{
    const QPointF bias(kPixelBias, kPixelBias);
    TakePlace((m_text.ptCenter - origin) / k + bias, m_text.dScaleX / k, m_text.dScaleY / k);
}

bool CShapeText::IsClose()
{
    return true;
}
