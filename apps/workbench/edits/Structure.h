/// Groups, arrays and their cells, order in the drawing; each as one undo command.
#pragma once

class WorkDocument;

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

// False when nothing that is selected can be changed so; the reason is told where it is not plain.

/// Binds the selected shapes into one group.
bool GroupSelection(WorkDocument& document);
/// Puts the members of selected groups, and the shapes of all cells of selected arrays, in their place.
bool UngroupSelection(WorkDocument& document);
/// Repeats the selected shapes over a grid.
bool ArraySelection(WorkDocument& document, const ArrayGrid& grid);
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
