#include "panels/Panel.h"

#include "look/LengthUnit.h"

Panel::Panel(WorkDocument& document, QWidget* parent) : QWidget(parent), m_document(document)
{
    m_soon.setSingleShot(true);
    m_soon.setInterval(0);
    connect(&m_soon, &QTimer::timeout, this, [this] {
        if (!isVisible())
            return;
        m_shows = true;
        Renew();
        m_shows = false;
    });
    connect(&document, &WorkDocument::Changed, this, &Panel::RenewSoon);
    connect(&document, &WorkDocument::SelectionChanged, this, &Panel::RenewSoon);
    connect(&look::LengthUnit::Shown(), &look::LengthUnit::Changed, this, &Panel::RenewSoon);
}

void Panel::RenewSoon()
{
    m_soon.start();
}

void Panel::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    RenewSoon();
}

namespace {

void Name(QDoubleSpinBox& field, const QString& name)
{
    constexpr int kWidth = 80; // pixels
    field.setAccessibleName(name);
    field.setToolTip(name);
    field.setKeyboardTracking(false);
    field.setMinimumWidth(kWidth);
}

} // namespace

QDoubleSpinBox* NumberBox(const QString& name, double least, double most, int decimals, const QString& unit)
{
    auto* field = new QDoubleSpinBox;
    field->setRange(least, most);
    field->setDecimals(decimals);
    field->setSuffix(unit);
    Name(*field, name);
    return field;
}

look::LengthBox* LengthField(const QString& name, double least, double most, int decimals)
{
    auto* field = new look::LengthBox(least, most, decimals);
    Name(*field, name);
    return field;
}
