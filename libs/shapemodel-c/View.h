/// A list with a single shape, for functions that take lists.
#pragma once

#include "list/ShapeList.h"

namespace capi {

/// A list that does not own its shapes.
class View
{
public:
    View() : m_list(CShapeList::New()) {}
    explicit View(CShape& shape) : View() { m_list->AddTail(&shape); }
    View(const View&) = delete;
    View& operator=(const View&) = delete;
    ~View() { CShapeList::Release(m_list); }

    CShapeList& List() const { return *m_list; }

private:
    CShapeList* m_list;
};

} // namespace capi
