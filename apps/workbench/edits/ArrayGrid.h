/// The grid that an array is laid out with.
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

/// Lays the array out. @return false where the library makes no such cells, or they lie out of reach
bool LayOut(CShapeArray& array, const ArrayGrid& grid);

/// The grid that an array was laid out with, read off the places of its cells; nothing where they are no such grid any
/// more. Cost: O(cells).
std::optional<ArrayGrid> GridOf(CShapeArray& array);

/// The cells that are left out of the array, in a grid of other rows and columns: those that it has.
std::vector<int> LeftOutIn(const ArrayGrid& grid, CShapeArray& array);
