/// Lists that clean up after themselves, what they are saved as and read from.
#pragma once

#include "group/ShapeGroup.h"
#include "list/ShapeListOwner.h"
#include "support/StreamFile.h"
#include "support/StubShape.h"
#include "vector/ShapeVector.h"

#include <gtest/gtest.h>

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

inline CShapeVector Vector(int type, const std::string& outline)
{
    CShapeVector shape;
    shape.SetVectorType(static_cast<EVECTOR_TYPE>(type));
    SetOutline(shape, outline);
    return shape;
}

/// A group, or an array without cells, that owns the members.
template <class Group = CShapeGroup>
std::unique_ptr<Group> MakeGroup(const std::vector<CShape*>& members)
{
    auto group = std::make_unique<Group>();
    for (CShape* member : members)
        group->GetShapeList()->AddTail(member);
    return group;
}

/// The member in `levels` groups inside each other.
inline CShape* Nested(int levels, CShape* member)
{
    return levels == 0 ? member : Nested(levels - 1, MakeGroup({member}).release());
}

/// What a list or a shape saves.
template <class Saved>
QByteArray StreamOf(Saved& saved)
{
    StreamFile stream;
    saved.Save(stream.File());
    return stream.Bytes();
}

/// The list that the bytes are.
inline Document ListFrom(const QByteArray& bytes, int version = 14)
{
    StreamFile stream;
    stream.Fill(bytes);
    Document list = MakeList<Document>();
    EXPECT_EQ(list->Read(stream.File(), version), 0);
    EXPECT_TRUE(stream.File()->atEnd());
    return list;
}

/// The names of the list's stubs, "-" for null, "?" for other shapes, separated by blanks.
inline std::string Names(CShapeList& list)
{
    std::string names;
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        const auto* stub = dynamic_cast<StubShape*>(list.GetShape(i));
        names += (i ? " " : "") + (stub ? stub->name : std::string(list.GetShape(i) ? "?" : "-"));
    }
    return names;
}

} // namespace test
