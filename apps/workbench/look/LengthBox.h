/// Fields for lengths and feeds in the user's unit.
#pragma once

#include <QDoubleSpinBox>

namespace look {

/// Holds millimetres, or millimetres per minute, and shows them in the user's unit. The value keeps its precision,
/// although it is shown rounded, until the user changes it.
class LengthBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    enum class Of
    {
        Length,
        Feed
    };

    /// Accepts least to most millimetres; decimals: shown for millimetres.
    LengthBox(double least, double most, int decimals, Of of = Of::Length, QWidget* parent = nullptr);

    double Millimetres() const { return m_millimetres; }
    /// Sets the length without emitting Edited.
    void SetMillimetres(double millimetres);

signals:
    /// The user has changed the length.
    void Edited(double millimetres);

private:
    void ShowUnit();
    void SetShown(double shown);

    double m_least, m_most;
    int m_decimals;
    Of m_of;
    double m_millimetres = 0;
};

} // namespace look
