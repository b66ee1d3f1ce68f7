#include "panels/Panel.h"

#include "look/Look.h"

#include <QToolButton>

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

QDoubleSpinBox* NumberBox(const QString& name, double least, double most, int decimals, const QString& unit)
{
    auto* field = new QDoubleSpinBox;
    field->setRange(least, most);
    field->setDecimals(decimals);
    field->setSuffix(unit);
    field->setAccessibleName(name);
    field->setToolTip(name);
    field->setKeyboardTracking(false);
    field->setMinimumWidth(80);
    return field;
}

QToolButton* IconButton(const char* icon, const QString& name)
{
    auto* button = new QToolButton;
    button->setIcon(look::Icon(icon));
    button->setToolTip(name);
    button->setAccessibleName(name);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::StrongFocus);
    return button;
}
