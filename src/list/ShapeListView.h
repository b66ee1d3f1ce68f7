/// Shapes of others as a list, for functions that take lists.
#pragma once

#include "list/ShapeList.h"

#include <memory>
#include <vector>

/// A list that owns none of its shapes: they must live as long as it is used. Freed without them.
class ShapeListView
{
public:
    /// An empty list.
    ShapeListView() : m_list(CShapeList::New()) {}
    /// Of one shape.
    explicit ShapeListView(CShape& shape) : ShapeListView() { m_list->AddTail(&shape); }
    /// Of several, in their order.
    explicit ShapeListView(const std::vector<CShape*>& shapes) : ShapeListView()
    {
        for (CShape* shape : shapes)
            m_list->AddTail(shape);
    }

    /// To be read, changed or filled; borrowed.
    CShapeList& List() const { return *m_list; }

private:
    struct Deleter
    {
        void operator()(CShapeList* list) const { CShapeList::Release(list); }
    };

    std::unique_ptr<CShapeList, Deleter> m_list;
};
