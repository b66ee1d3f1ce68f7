/// Groups, arrays and their cells, order in the drawing; each as one undo command.
#pragma once

#include "edits/ArrayGrid.h"

class WorkDocument;

// False when nothing that is selected can be changed so; the reason is told where it is not plain.

/// Binds the selected shapes into one group.
bool GroupSelection(WorkDocument& document);
/// Puts the members of selected groups, and the shapes of all cells of selected arrays, in their place.
bool UngroupSelection(WorkDocument& document);
/// Repeats the selected shapes over a grid.
bool ArraySelection(WorkDocument& document, const ArrayGrid& grid);
/// Lays the selected arrays out anew without these cells, which the grid counts row by row.
bool ChangeArrays(WorkDocument& document, const ArrayGrid& grid, const std::vector<int>& leftOut);
/// Deletes the selected cells of selected arrays. False when no cell is selected.
bool DeleteSelectedCells(WorkDocument& document);

/// Where selected shapes go in the order of drawing.
enum class Order
{
    Front,
    Forward,
    Backward,
    Back
};
bool OrderSelection(WorkDocument& document, Order order);
