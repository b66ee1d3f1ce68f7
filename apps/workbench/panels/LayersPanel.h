/// The panel for the colours of the drawing and their settings.
#pragma once

#include "panels/Panel.h"

class QTableWidget;

/// A line for each colour of the drawing, with its feed, power and passes, in the order of cutting; above it colours
/// for the selection. When nothing is selected, a colour or a line that is chosen is that of what is drawn next.
class LayersPanel : public Panel
{
    Q_OBJECT

public:
    explicit LayersPanel(WorkDocument& document, QWidget* parent = nullptr);

    /// The colours of the drawing, each with its number of shapes (members count, groups do not); those with an order
    /// first. Cost: O(shapes).
    static std::vector<std::pair<unsigned int, size_t>> ColorsOf(CShapeList& shapes, const ColorLayers& layers);

protected:
    void Renew() override;

private:
    QWidget* MakePalette();
    QWidget* MakeDrawColor();
    QWidget* MakeButtons();
    void ShowRow(int row, unsigned int color, size_t count);
    void Paint(unsigned int color);
    void ApplyCell(int row, int column);
    void MoveRow(int by);
    void ChooseLayer(int row, int column);
    void SelectShapes();
    unsigned int ColorAt(int row) const;

    QTableWidget* m_table;
};
