/// The grid of an array, and which of its cells are left out.
#pragma once

#include "panels/Panel.h"

#include "edits/Structure.h"

#include <optional>

class CShapeArray;
class QPushButton;
class QTableWidget;

/// Makes an array of what is selected, or changes the one that is.
class ArrayPanel : public Panel
{
    Q_OBJECT

public:
    explicit ArrayPanel(WorkDocument& document, QWidget* parent = nullptr);

    /// The grid that an array was laid out with, read off the places of its cells; nothing where they are no such grid
    /// any more.
    static std::optional<ArrayGrid> GridOf(CShapeArray& array);

protected:
    void Renew() override;

private:
    CShapeArray* Selected();
    ArrayGrid Fields() const;
    void ShowGrid(const ArrayGrid& grid);
    void ShowCells();
    void Apply();
    void LayOut(const ArrayGrid& grid);
    std::vector<int> LeftOut(const ArrayGrid& grid);

    bool m_inGrid = true; ///< whether the array's cells lie in one, so that the fields are about them
    QDoubleSpinBox* m_rows;
    QDoubleSpinBox* m_columns;
    QDoubleSpinBox* m_columnGap;
    QDoubleSpinBox* m_rowGap;
    QDoubleSpinBox* m_rowShift;
    QDoubleSpinBox* m_columnShift;
    QTableWidget* m_cells; ///< a check for each cell that is there
    QPushButton* m_make;
};
