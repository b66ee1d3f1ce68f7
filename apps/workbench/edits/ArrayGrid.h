/// The grids of arrays.
#pragma once

#include <optional>
#include <vector>

class CShapeArray;

/// An array's grid.
struct ArrayGrid
{
    int rows = 2;
    int columns = 3;
    double columnGap = 5;   ///< mm between neighbours in a row
    double rowGap = 5;      ///< mm between rows
    double rowShift = 0;    ///< mm that odd rows move right
    double columnShift = 0; ///< mm that odd columns move down
};

/// Lays the array out. @return false where the library makes no such cells, or they lie beyond kFarthest
bool LayOut(CShapeArray& array, const ArrayGrid& grid);

/// The grid of an array, determined from the places of its cells; nothing where these form no grid. Cost: O(cells).
std::optional<ArrayGrid> GridOf(CShapeArray& array);

/// The cells that are left out of the array and that a grid with other rows and columns has, too; indices in that grid.
std::vector<int> LeftOutIn(const ArrayGrid& grid, CShapeArray& array);
