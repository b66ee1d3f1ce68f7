/// The panel for the grid of an array and its left out cells.
#pragma once

#include "panels/Panel.h"

#include "edits/Structure.h"

class CShapeArray;
class QPushButton;
class QTableWidget;

/// Makes an array of the selection, or changes the selected array.
class ArrayPanel : public Panel
{
    Q_OBJECT

public:
    explicit ArrayPanel(WorkDocument& document, QWidget* parent = nullptr);

protected:
    void Renew() override;

private:
    CShapeArray* Selected();
    ArrayGrid Fields() const;
    void ShowGrid(const ArrayGrid& grid);
    void ShowCells();
    void Apply();
    std::vector<int> LeftOut(const ArrayGrid& grid);

    bool m_inGrid = true; ///< the array's cells lie in a grid, which the fields show
    QDoubleSpinBox* m_rows;
    QDoubleSpinBox* m_columns;
    look::LengthBox* m_columnGap;
    look::LengthBox* m_rowGap;
    look::LengthBox* m_rowShift;
    look::LengthBox* m_columnShift;
    QTableWidget* m_cells; ///< a check for each cell that is there
    QPushButton* m_make;
};
