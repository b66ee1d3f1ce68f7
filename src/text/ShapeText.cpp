/// Parameters, copies and units of the text shape.
#include "text/ShapeText.h"

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

void CShapeText::PixToMm(double k, QPointF origin)
{
    m_text.ptCenter = m_text.ptCenter * k + origin;
    m_text.dScaleX *= k;
    m_text.dScaleY *= k;
}

void CShapeText::MmToPix(double k, QPointF origin)
{
    m_text.ptCenter = (m_text.ptCenter - origin) / k + QPointF(kPixelBias, kPixelBias);
    m_text.dScaleX /= k;
    m_text.dScaleY /= k;
}

bool CShapeText::IsClose()
{
    return true;
}
