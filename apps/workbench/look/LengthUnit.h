/// The user's unit of lengths.
#pragma once

#include <QObject>

namespace look {

/// Millimetres or inches: one choice for the whole application. Drawings, files and settings are always in millimetres.
class LengthUnit : public QObject
{
    Q_OBJECT

public:
    /// The application's unit.
    static LengthUnit& Shown();

    bool IsInch() const { return m_inch; }
    void ShowInches(bool inch);
    /// The millimetres of one unit.
    double Millimetres() const;
    /// "mm" or "in".
    QString Name() const;
    /// "mm/min" or "in/min".
    QString FeedName() const;
    /// A length as a number in the unit, to about a hundredth of a millimetre.
    QString Number(double millimetres) const;

signals:
    /// The unit has changed.
    void Changed();

private:
    bool m_inch = false;
};

} // namespace look
