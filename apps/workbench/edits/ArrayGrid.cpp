#include "edits/ArrayGrid.h"

#include "document/Reach.h"
#include "group/ShapeArray.h"
#include "list/ShapeList.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double kNear = 1e-6; // mm
constexpr int kSampled = 3;    // rows and columns that are compared first: the second and third show gaps and shifts

using Cells = QList<ShapeArrayInfo>;

/// Lets the library lay out a grid of single lines, to learn where its cells lie.
class Trial
{
public:
    explicit Trial(const QRectF& cell)
    {
        auto* member = new CShapeVector;
        // works for flat cells, too
        member->SetShapePoints({cell.topLeft(), cell.bottomRight()}, ELINE_SEGMENT_STRAIGHT);
        m_array.GetShapeList()->AddTail(member); // the array owns it
    }

    Cells CellsOf(const ArrayGrid& grid)
    {
        LayOut(m_array, grid);
        return m_array.GetShapeArrayInfo();
    }

private:
    CShapeArray m_array;
};

/// The grid with that many columns whose first cells lie as the given ones.
ArrayGrid GridWith(int columns, const Cells& cells, const QSizeF& cell)
{
    ArrayGrid grid{int(cells.size()) / columns, columns, 0, 0, 0, 0};
    const QPointF first = cells[0].ptPos;
    if (columns > 1) {
        const QPointF next = cells[1].ptPos - first;
        grid.columnGap = next.x() - cell.width();
        grid.columnShift = next.y();
    }
    if (grid.rows > 1) {
        const QPointF below = cells[columns].ptPos - first;
        grid.rowShift = below.x();
        grid.rowGap = below.y() - cell.height();
    }
    return grid;
}

/// Whether the first rows and columns of cells lie as in a trial of the grid.
bool Agree(const Cells& cells, const ArrayGrid& grid, Trial& trial, int rows, int columns)
{
    ArrayGrid part = grid;
    part.rows = rows;
    part.columns = columns;
    const Cells laid = trial.CellsOf(part);
    for (int i = 0; i < int(laid.size()); ++i) {
        const QPointF place = cells[i / columns * grid.columns + i % columns].ptPos - cells[0].ptPos;
        const QPointF off = place - (laid[i].ptPos - laid[0].ptPos);
        if (std::abs(off.x()) > kNear || std::abs(off.y()) > kNear)
            return false;
    }
    return int(laid.size()) == rows * columns;
}

} // namespace

bool LayOut(CShapeArray& array, const ArrayGrid& grid)
{
    array.SetArrayInfo(grid.rows, grid.columns, grid.columnGap, grid.rowGap, grid.rowShift, grid.columnShift);
    return array.GetCount() > 0 && shapedocument::WithinReach(array.GetAllRect());
}

std::optional<ArrayGrid> GridOf(CShapeArray& array)
{
    const Cells cells = array.GetShapeArrayInfo();
    const QRectF cell = array.GetRect(true);
    Trial trial(cell);
    for (int columns = int(cells.size()); columns >= 1; --columns) {
        if (cells.size() % columns != 0)
            continue;
        const ArrayGrid grid = GridWith(columns, cells, cell.size());
        const int rows = std::min(grid.rows, kSampled), few = std::min(columns, kSampled);
        if (Agree(cells, grid, trial, rows, few) && Agree(cells, grid, trial, grid.rows, columns))
            return grid;
    }
    return std::nullopt;
}

std::vector<int> LeftOutIn(const ArrayGrid& grid, CShapeArray& array)
{
    std::vector<int> left;
    const auto old = GridOf(array);
    const Cells cells = array.GetShapeArrayInfo();
    for (int i = 0; old && i < int(cells.size()); ++i) {
        const int row = i / old->columns, column = i % old->columns;
        if (!cells[i].bValid && row < grid.rows && column < grid.columns)
            left.push_back(row * grid.columns + column);
    }
    return left;
}
