/// The panel with all sections for the selection, one below the other.
#pragma once

#include "panels/Panel.h"

/// Sections for place and size, arrangement, and, as the selection needs them, texts, pictures and arrays.
class ShapePanel : public Panel
{
    Q_OBJECT

public:
    explicit ShapePanel(WorkDocument& document, QWidget* parent = nullptr);

protected:
    void Renew() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    /// A heading and its panel.
    struct Section
    {
        QWidget* box;
        bool (*isFor)(const std::vector<CShape*>& shapes);
    };
    void Add(class QVBoxLayout* column, const QString& title, Panel* panel,
             bool (*isFor)(const std::vector<CShape*>& shapes));

    std::vector<Section> m_sections;
};
