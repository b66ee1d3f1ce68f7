/// The base of all undo commands of a drawing.
#pragma once

#include <QUndoStack>

/// Has a number of its own, so that states of the drawing can be told apart: QUndoStack can mark only its present state
/// as saved, but a drawing may have been edited while it was written.
class NumberedCommand : public QUndoCommand
{
public:
    explicit NumberedCommand(const QString& name) : QUndoCommand(name), m_number(++s_last) {}

    /// The number of the stack's present state: of the command that led to it, 0 for none.
    static quint64 StateOf(const QUndoStack& stack)
    {
        const auto* last = static_cast<const NumberedCommand*>(stack.command(stack.index() - 1));
        return last ? last->m_number : 0;
    }

private:
    inline static quint64 s_last = 0; // of the window's thread

    const quint64 m_number;
};
