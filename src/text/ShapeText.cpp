/// Parameters, copies and units of the text shape.
#include "text/ShapeText.h"

#include "geometry/Tolerances.h"

using namespace shapes;

namespace {

constexpr double kDefaultSize = 20.0;
constexpr double kPixelBias = 0.49; ///< added to a centre in pixels; the sum is not truncated

/// Neither 0 nor NaN, by which points must not be divided.
bool IsFactor(double k)
{
    return k < 0 || k > 0;
}

} // namespace

CShapeText::CShapeText()
{
    m_text.font.dSize = kDefaultSize;
}

CShapeText::CShapeText(const CShapeText&) = default;
CShapeText& CShapeText::operator=(const CShapeText&) = default;
CShapeText::~CShapeText() = default;

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
    BuildDeferredPath(); // A path that is built later would show what the caller changes.
    m_text.Lend();
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

/// Adopts the converted centre, scales and mirror lines: a pending mirror is carried out in the new units. Nothing
/// changes when a value is not finite or a scale has become 0.
template <class Convert>
void CShapeText::AdoptPlace(double scaleX, double scaleY, Convert convert)
{
    const QPointF centre = convert(m_text.ptCenter);
    if (!IsFinite(centre) || !AllFinite({scaleX, scaleY}) || (scaleX == 0 && m_text.dScaleX != 0))
        return;
    BuildDeferredPath();
    m_text.ptCenter = centre;
    m_text.dScaleX = scaleX;
    m_text.dScaleY = scaleY;
    const QPointF attach = convert({dAttachLine, dAttachLine});
    dAttachLine = bAttachLineFlag ? attach.x() : attach.y();
    m_mirrorAxis = {convert(m_mirrorAxis.p1()), convert(m_mirrorAxis.p2())};
}

void CShapeText::PixToMm(double k, QPointF origin)
{
    if (IsFactor(k))
        AdoptPlace(m_text.dScaleX * k, m_text.dScaleY * k, [=](QPointF p) { return p * k + origin; });
}

void CShapeText::MmToPix(double k, QPointF origin)
{
    const QPointF bias(kPixelBias, kPixelBias);
    if (IsFactor(k))
        AdoptPlace(m_text.dScaleX / k, m_text.dScaleY / k, [=](QPointF p) { return (p - origin) / k + bias; });
}

bool CShapeText::IsClose()
{
    return true;
}
