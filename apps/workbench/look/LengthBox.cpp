#include "look/LengthBox.h"

#include "look/LengthUnit.h"

#include <QSignalBlocker>

#include <algorithm>

namespace look {

LengthBox::LengthBox(double least, double most, int decimals, Of of, QWidget* parent)
    : QDoubleSpinBox(parent), m_least(least), m_most(most), m_decimals(decimals), m_of(of)
{
    setKeyboardTracking(false);
    ShowUnit();
    connect(this, &QDoubleSpinBox::valueChanged, this, &LengthBox::SetShown);
    connect(&LengthUnit::Shown(), &LengthUnit::Changed, this, &LengthBox::ShowUnit);
}

void LengthBox::SetMillimetres(double millimetres)
{
    const QSignalBlocker silent(this);
    m_millimetres = millimetres;
    setValue(millimetres / LengthUnit::Shown().Millimetres());
}

void LengthBox::ShowUnit()
{
    constexpr int kMoreForInches = 2, kMostForInches = 4; // decimals
    constexpr double kInchStep = 0.05;
    const LengthUnit& unit = LengthUnit::Shown();
    const QSignalBlocker silent(this);
    setDecimals(unit.IsInch() ? std::min(m_decimals + kMoreForInches, kMostForInches) : m_decimals);
    setRange(m_least / unit.Millimetres(), m_most / unit.Millimetres());
    setSingleStep(unit.IsInch() && m_of == Of::Length ? kInchStep : 1);
    setSuffix(' ' + (m_of == Of::Feed ? unit.FeedName() : unit.Name()));
    setValue(m_millimetres / unit.Millimetres());
}

void LengthBox::SetShown(double shown)
{
    m_millimetres = std::clamp(shown * LengthUnit::Shown().Millimetres(), m_least, m_most);
    emit Edited(m_millimetres);
}

} // namespace look
