/// The grid of an array, and which of its cells are left out.
#pragma once

#include "panels/Panel.h"

#include "edits/Structure.h"

class CShapeArray;
class QPushButton;
class QTableWidget;

/// Makes an array of what is selected, or changes the one that is.
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

    bool m_inGrid = true; ///< whether the array's cells lie in one, so that the fields are about them
    QDoubleSpinBox* m_rows;
    QDoubleSpinBox* m_columns;
    look::LengthBox* m_columnGap;
    look::LengthBox* m_rowGap;
    look::LengthBox* m_rowShift;
    look::LengthBox* m_columnShift;
    QTableWidget* m_cells; ///< a check for each cell that is there
    QPushButton* m_make;
};
