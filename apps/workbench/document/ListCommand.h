/// The undo command for all edits: removes shapes from the drawing and adds others.
#pragma once

#include "document/NumberedCommand.h"

#include <vector>

class CShape;
class WorkDocument;

/// A shape and its place in the drawing.
struct PlacedShape
{
    int place = 0; ///< index in the list
    CShape* shape = nullptr;
};

/// The change that a command makes. A shape in both lists only changes its place.
struct ListChange
{
    std::vector<PlacedShape> out; ///< places before the change, ascending
    std::vector<PlacedShape> in;  ///< places after it, ascending
    bool inPlace = false;         ///< each added shape replaces the removed one at its place
};

/// Keeps only the shapes that it removes and adds, not the drawing. Undo puts the same objects back, so that the
/// drawing has its former bytes.
class ListCommand : public NumberedCommand
{
public:
    /// From now on owns those of its shapes that are not in the drawing: at first the ones to be added.
    ListCommand(WorkDocument& document, const QString& name, ListChange change);
    ~ListCommand() override;
    ListCommand(const ListCommand&) = delete;
    ListCommand& operator=(const ListCommand&) = delete;

    void undo() override;
    void redo() override;

private:
    WorkDocument& m_document;
    ListChange m_change;
    bool m_done = false;
};
