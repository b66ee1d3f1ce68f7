#include "document/ListCommand.h"

#include "document/WorkDocument.h"

#include <unordered_set>

namespace {

/// Frees the shapes of outside that are not in inside.
void FreeOutside(const std::vector<PlacedShape>& outside, const std::vector<PlacedShape>& inside)
{
    std::unordered_set<const CShape*> kept;
    for (const PlacedShape& placed : inside)
        kept.insert(placed.shape);
    const ShapeListOwner doomed = NewShapeList();
    for (const PlacedShape& placed : outside)
        if (!kept.contains(placed.shape))
            doomed->AddTail(placed.shape);
}

} // namespace

ListCommand::ListCommand(WorkDocument& document, const QString& name, ListChange change)
    : NumberedCommand(name), m_document(document), m_change(std::move(change))
{}

ListCommand::~ListCommand()
{
    if (m_done)
        FreeOutside(m_change.out, m_change.in);
    else
        FreeOutside(m_change.in, m_change.out);
}

void ListCommand::undo()
{
    m_done = false;
    m_document.Apply(m_change.in, m_change.out, m_change.inPlace);
}

void ListCommand::redo()
{
    m_done = true;
    m_document.Apply(m_change.out, m_change.in, m_change.inPlace);
}
