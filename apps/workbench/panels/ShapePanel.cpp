#include "panels/ShapePanel.h"

#include "panels/ArrangePanel.h"
#include "panels/ArrayPanel.h"
#include "panels/GeometryPanel.h"
#include "panels/ImagePanel.h"
#include "panels/TextPanel.h"

#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QGroupBox>
#include <QScrollArea>
#include <QVBoxLayout>

ShapePanel::ShapePanel(WorkDocument& document, QWidget* parent) : Panel(document, parent)
{
    auto* content = new QWidget;
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(4, 4, 4, 4);
    const auto always = [](const std::vector<CShape*>&) { return true; };
    Add(column, tr("Place and size"), new GeometryPanel(document), always);
    Add(column, tr("Text"), new TextPanel(document), TextPanel::IsFor);
    Add(column, tr("Picture"), new ImagePanel(document), ImagePanel::IsFor);
    Add(column, tr("Arrange"), new ArrangePanel(document), always);
    Add(column, tr("Array"), new ArrayPanel(document), always);
    column->addStretch();
    auto* scroll = new QScrollArea;
    scroll->setWidget(content);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus); // its fields take the focus
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->addWidget(scroll);
}

void ShapePanel::Add(QVBoxLayout* column, const QString& title, Panel* panel,
                     bool (*isFor)(const std::vector<CShape*>& shapes))
{
    auto* box = new QGroupBox(title);
    auto* inside = new QVBoxLayout(box);
    inside->setContentsMargins(0, 0, 0, 0);
    inside->addWidget(panel);
    column->addWidget(box);
    for (QWidget* field : panel->findChildren<QWidget*>())
        if (qobject_cast<QAbstractSpinBox*>(field) || qobject_cast<QComboBox*>(field)) {
            field->setFocusPolicy(Qt::StrongFocus); // no focus by the wheel
            field->installEventFilter(this);
        }
    m_sections.push_back({box, isFor});
}

/// Lets the wheel scroll the panel; only a focused field takes it.
bool ShapePanel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Wheel || static_cast<QWidget*>(watched)->hasFocus())
        return Panel::eventFilter(watched, event);
    event->ignore();
    return true;
}

void ShapePanel::Renew()
{
    for (const Section& section : m_sections)
        section.box->setVisible(section.isFor(Document().Selection()));
}
