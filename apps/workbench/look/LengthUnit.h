/// The unit in which the user reads and writes lengths.
#pragma once

#include <QObject>

namespace look {

/// Millimetres or inches, one choice for the whole application, as its theme is. Drawings, files and settings are in
/// millimetres whatever is shown.
class LengthUnit : public QObject
{
    Q_OBJECT

public:
    /// The application's.
    static LengthUnit& Shown();

    bool IsInch() const { return m_inch; }
    void ShowInches(bool inch);
    /// Of one unit.
    double Millimetres() const;
    /// "mm" or "in".
    QString Name() const;
    /// "mm/min" or "in/min".
    QString FeedName() const;
    /// A length as a number in the unit, to about a hundredth of a millimetre.
    QString Number(double millimetres) const;

signals:
    /// The other unit is shown.
    void Changed();

private:
    bool m_inch = false;
};

} // namespace look
