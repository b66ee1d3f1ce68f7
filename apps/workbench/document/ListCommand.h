/// The one undo command: shapes leave the drawing, others come into it.
#pragma once

#include <QUndoCommand>

#include <vector>

class CShape;
class WorkDocument;

/// A shape and its place in the drawing.
struct PlacedShape
{
    int place = 0; ///< index in the list
    CShape* shape = nullptr;
};

/// What a command does to the drawing. A shape may both leave and come: it only changes its place then.
struct ListChange
{
    std::vector<PlacedShape> out; ///< places before the change, ascending
    std::vector<PlacedShape> in;  ///< places after it, ascending
    bool inPlace = false;         ///< each that comes stands for the one that leaves at its place
};

/// Takes shapes out of the drawing and puts others in, and back again. Keeps these shapes only, not the drawing. Undo
/// puts the very objects back that were there before, so that the drawing has its former bytes.
class ListCommand : public QUndoCommand
{
public:
    /// Owns what stands outside the drawing from now on: at first what is to come in.
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
