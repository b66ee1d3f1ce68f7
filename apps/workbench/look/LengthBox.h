/// Fields for lengths and feeds in the user's unit.
#pragma once

#include <QDoubleSpinBox>

namespace look {

/// Holds millimetres, or millimetres per minute, and shows them in the user's unit. What it was given stays as exact as
/// it was, however it is rounded for display: only the user's own change replaces it.
class LengthBox : public QDoubleSpinBox
{
    Q_OBJECT

public:
    enum class Of
    {
        Length,
        Feed
    };

    /// Numbers between least and most millimetres are taken; decimals are those of millimetres.
    LengthBox(double least, double most, int decimals, Of of = Of::Length, QWidget* parent = nullptr);

    double Millimetres() const { return m_millimetres; }
    /// Shows another length, without telling.
    void SetMillimetres(double millimetres);

signals:
    /// The user has given another length.
    void Edited(double millimetres);

private:
    void ShowUnit();
    void Take(double shown);

    double m_least, m_most;
    int m_decimals;
    Of m_of;
    double m_millimetres = 0;
};

} // namespace look
