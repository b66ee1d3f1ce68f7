#include "look/LengthUnit.h"

#include "plane/Length.h"

#include <utility>

namespace look {

LengthUnit& LengthUnit::Shown()
{
    static LengthUnit s_unit;
    return s_unit;
}

void LengthUnit::ShowInches(bool inch)
{
    if (std::exchange(m_inch, inch) != inch)
        emit Changed();
}

double LengthUnit::Millimetres() const
{
    return m_inch ? shapedocument::kMmPerInch : 1;
}

QString LengthUnit::Name() const
{
    return m_inch ? tr("in") : tr("mm");
}

QString LengthUnit::FeedName() const
{
    return m_inch ? tr("in/min") : tr("mm/min");
}

QString LengthUnit::Number(double millimetres) const
{
    return QString::number(millimetres / Millimetres(), 'f', m_inch ? 3 : 2);
}

} // namespace look
