#include "panels/ArrangePanel.h"

#include "edits/Structure.h"
#include "look/Buttons.h"

#include "document/Arrangement.h"

#include <QGridLayout>
#include <QToolButton>

using shapedocument::Alignment;

ArrangePanel::ArrangePanel(WorkDocument& document, QWidget* parent) : Panel(document, parent)
{
    auto* grid = new QGridLayout(this);
    grid->setContentsMargins(6, 6, 6, 6);
    grid->setSpacing(2);
    const auto align = [&](const char* icon, const QString& name, Alignment alignment) {
        Add(grid, 0, icon, name, 2, [this, name, alignment] {
            Document().ChangeTogether(name, Document().Selection(),
                                      [alignment](CShapeList& shapes) { return AlignShapes(shapes, alignment); });
        });
    };
    align("align-horizontal-left", tr("Align left edges"), Alignment::Left);
    align("align-horizontal-center", tr("Align middles, left to right"), Alignment::Center);
    align("align-horizontal-right", tr("Align right edges"), Alignment::Right);
    align("align-vertical-top", tr("Align top edges"), Alignment::Top);
    align("align-vertical-center", tr("Align middles, top to bottom"), Alignment::Middle);
    align("align-vertical-bottom", tr("Align bottom edges"), Alignment::Bottom);
    const auto distribute = [&](const char* icon, const QString& name, bool downwards) {
        Add(grid, 1, icon, name, 3, [this, name, downwards] {
            Document().ChangeTogether(name, Document().Selection(), [downwards](CShapeList& shapes) {
                return shapedocument::DistributeShapes(shapes, downwards);
            });
        });
    };
    distribute("distribute-horizontal", tr("Equal gaps, left to right"), false);
    distribute("distribute-vertical", tr("Equal gaps, top to bottom"), true);
    const auto order = [&](const char* icon, const QString& name, Order to) {
        Add(grid, 1, icon, name, 1, [this, to] { OrderSelection(Document(), to); });
    };
    order("object-order-front", tr("To the front"), Order::Front);
    order("object-order-raise", tr("Forward"), Order::Forward);
    order("object-order-lower", tr("Backward"), Order::Backward);
    order("object-order-back", tr("To the back"), Order::Back);
    grid->setColumnStretch(grid->columnCount(), 1);
}

void ArrangePanel::Add(QGridLayout* grid, int row, const char* icon, const QString& name, size_t fewest,
                       const std::function<void()>& done)
{
    QToolButton* button = look::IconButton(icon, name);
    int column = 0;
    while (grid->itemAtPosition(row, column))
        ++column;
    grid->addWidget(button, row, column);
    connect(button, &QToolButton::clicked, this, done);
    m_buttons.push_back({button, fewest});
}

void ArrangePanel::Renew()
{
    for (const Button& button : m_buttons)
        button.button->setEnabled(Document().Selection().size() >= button.fewest);
}
