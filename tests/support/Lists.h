/// Lists that clean up after themselves.
#pragma once

#include "list/ShapeListOwner.h"
#include "support/StubShape.h"
#include "vector/ShapeVector.h"

#include <memory>

namespace test {

struct ReleaseView
{
    void operator()(CShapeList* list) const { CShapeList::Release(list); }
};
/// Frees the list alone.
using View = std::unique_ptr<CShapeList, ReleaseView>;
/// Frees the list and its shapes.
using Document = ShapeListOwner;

template <class Holder = View>
Holder MakeList(const std::vector<CShape*>& shapes = {})
{
    Holder list(CShapeList::New());
    for (CShape* shape : shapes)
        list->AddTail(shape);
    return list;
}

inline CShapeVector* NewRect(QRectF rect)
{
    auto* shape = new CShapeVector;
    shape->SetShapeRect(rect);
    return shape;
}

/// The names of the list's stubs, "-" for null, "?" for other shapes, separated by blanks.
inline std::string Names(CShapeList& list)
{
    std::string names;
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        CShape* shape = list.GetShape(i);
        const auto* stub = dynamic_cast<StubShape*>(shape);
        names += (i ? " " : "") + (stub ? stub->name : std::string(shape ? "?" : "-"));
    }
    return names;
}

} // namespace test
