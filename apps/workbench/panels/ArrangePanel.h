/// The panel for aligning, distributing and ordering the selection.
#pragma once

#include "panels/Panel.h"

class QGridLayout;
class QToolButton;

/// A button for each operation.
class ArrangePanel : public Panel
{
    Q_OBJECT

public:
    explicit ArrangePanel(WorkDocument& document, QWidget* parent = nullptr);

protected:
    void Renew() override;

private:
    void Add(QGridLayout* grid, int row, const char* icon, const QString& name, size_t fewest,
             const std::function<void()>& done);

    struct Button
    {
        QToolButton* button;
        size_t fewest; ///< selected shapes that it needs
    };
    std::vector<Button> m_buttons;
};
