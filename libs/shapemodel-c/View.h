/// A shape as a list of its own, for functions that take lists.
#pragma once

#include "list/ShapeList.h"

namespace capi {

/// Owns none of its shapes.
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
