/// Groups, arrays and their cells, order in the drawing; each edit is one undo command.
#pragma once

#include "edits/ArrayGrid.h"

class WorkDocument;

// The functions below return false when nothing selected can be changed; the reason is shown where it is not obvious.

/// Binds the selected shapes into one group.
bool GroupSelection(WorkDocument& document);
/// Replaces selected groups by their members, and selected arrays by the shapes of all their cells.
bool UngroupSelection(WorkDocument& document);
/// Repeats the selected shapes over a grid.
bool ArraySelection(WorkDocument& document, const ArrayGrid& grid);
/// Lays the selected arrays out again without these cells, which are indices in the grid, row by row.
bool ChangeArrays(WorkDocument& document, const ArrayGrid& grid, const std::vector<int>& leftOut);
/// Deletes the selected cells of selected arrays. False when no cell is selected.
bool DeleteSelectedCells(WorkDocument& document);

/// How selected shapes move in the order of drawing.
enum class Order
{
    Front,
    Forward,
    Backward,
    Back
};
bool OrderSelection(WorkDocument& document, Order order);
