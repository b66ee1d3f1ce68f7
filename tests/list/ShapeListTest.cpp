/// CShapeList: order, ownership, queries and copies.
#include "support/Lists.h"

#include <gtest/gtest.h>

using namespace test;

namespace {

/// Three stubs on the stack, for what frees nothing.
class ShapeListView : public testing::Test
{
protected:
    StubShape a{"a"}, b{"b"}, c{"c"}, d{"d"};
    View list = MakeList({&a, &b});
};

TEST_F(ShapeListView, insertion)
{
    EXPECT_TRUE(list->Insert(&c, 2));
    EXPECT_FALSE(list->Insert(&d, 4));
    EXPECT_TRUE(list->Insert(&d, 1));
    EXPECT_EQ(Names(*list), "a d b c");
    list->AddHead(&c);
    EXPECT_EQ(Names(*list), "c a d b c");
    EXPECT_EQ(list->FindShape(&c), 0);
    EXPECT_EQ(list->GetShape(5), nullptr);
    EXPECT_EQ(list->FindShape(nullptr), -1);
}

TEST_F(ShapeListView, insertion_of_lists_keeps_their_order)
{
    const View other = MakeList({&c, &d});
    list->AddHead(*other);
    EXPECT_EQ(Names(*list), "c d a b");
    list->AddTail(*other);
    EXPECT_EQ(Names(*list), "c d a b c d");
    EXPECT_EQ(Names(*other), "c d");
    const View self = MakeList({&a, &b});
    self->AddTail(*self);
    EXPECT_EQ(Names(*self), "a b a b");
    self->AddHead(*self);
    EXPECT_EQ(Names(*self), "a b a b a b a b");
}

TEST_F(ShapeListView, replacing_and_removing_frees_nothing)
{
    list->AddTail(&c);
    StubShape::TakeTrace();
    EXPECT_FALSE(list->Replace(&d, &a));
    EXPECT_FALSE(list->Replace(nullptr, &a));
    EXPECT_FALSE(list->Replace(&a, nullptr));
    EXPECT_TRUE(list->Replace(&c, &d));
    EXPECT_EQ(Names(*list), "a b d");
    list->AddTail(&a);
    EXPECT_TRUE(list->Remove(&a));
    EXPECT_EQ(Names(*list), "b d a");
    EXPECT_FALSE(list->Remove(&c));
    EXPECT_TRUE(list->Remove(1u));
    EXPECT_FALSE(list->Remove(2u));
    EXPECT_FALSE(list->Delete(2u));
    EXPECT_EQ(Names(*list), "b a");
    a.Select(true);
    list->RemoveSelectedShapes();
    EXPECT_EQ(Names(*list), "b");
    list->RemoveAll();
    EXPECT_TRUE(list->IsEmpty());
    EXPECT_EQ(StubShape::TakeTrace(), "");
}

TEST_F(ShapeListView, null_entries_are_skipped)
{
    a.rect = QRectF(1, 1, 2, 2);
    const View holes = MakeList({nullptr, &a, nullptr});
    holes->Select(true);
    holes->Lock(true);
    holes->Hide(true);
    holes->SetColor(5);
    EXPECT_EQ(a.GetStatus(), 7u);
    EXPECT_TRUE(holes->FindColor(5));
    EXPECT_FALSE(holes->FindColor(0));
    EXPECT_EQ(holes->GetSelectedCount(true), 1u);
    EXPECT_EQ(Rect(holes->GetRect(true)), "1,1,2,2");
    EXPECT_EQ(Rect(holes->GetSelectedRect()), "0,0,0,0");
    EXPECT_EQ(holes->GetFirstSelectedShape(), nullptr);
    const View out = MakeList();
    holes->GetSelectedShapes(out.get());
    holes->GetAllImageShapes(out.get());
    holes->GetShapesByColor(0, out.get());
    EXPECT_TRUE(out->IsEmpty());
    holes->Sort();
    holes->OptimizeShapeList(false);
    holes->RemoveSelectedShapes();
    EXPECT_EQ(holes->GetSelectedCount(true), 0u);
}

TEST_F(ShapeListView, selection_queries)
{
    a.Select(true);
    a.Lock(true);
    b.Select(true);
    list->AddTail(&c);
    EXPECT_EQ(list->GetFirstSelectedShape(), &b);
    EXPECT_EQ(list->GetSelectedCount(false), 1u);
    EXPECT_EQ(list->GetSelectedCount(true), 2u);
    list->GetSelectedShapes(list.get());
    EXPECT_EQ(Names(*list), "a b c b");
    list->GetSelectedShapes(nullptr);
    list->GetAllImageShapes(nullptr);
    list->GetShapesByColor(0, nullptr);

    d.type = ESHAPE_CODEIMAGE;
    d.SetColor(7);
    c.type = ESHAPE_IMAGE;
    const View other = MakeList({&c, &d});
    other->GetAllImageShapes(list.get());
    other->GetShapesByColor(7, other.get());
    EXPECT_EQ(Names(*list) + "; " + Names(*other), "a b c b c; c d d");

    // Counting asks the status bit, the other queries the virtual IsSelect.
    c.selected = true;
    const View virtually = MakeList({&c});
    EXPECT_EQ(virtually->GetSelectedCount(true), 0u);
    EXPECT_EQ(virtually->GetFirstSelectedShape(), &c);
    const View out = MakeList();
    virtually->GetSelectedShapes(out.get());
    EXPECT_EQ(Names(*out), "c");
    virtually->RemoveSelectedShapes();
    EXPECT_TRUE(virtually->IsEmpty());
}

TEST_F(ShapeListView, rectangles_join_by_their_edges_alone)
{
    EXPECT_TRUE(MakeList()->GetRect(false).isNull());
    a.rect = QRectF(10, 10, 5, 5);
    b.rect = QRectF(0, 0, 0, 0);
    EXPECT_EQ(Rect(list->GetRect(true)), "0,0,15,15");
    EXPECT_EQ(a.rectFlags, std::vector<bool>{true});
    EXPECT_EQ(Point(list->GetRectCenter()), "7.5,7.5");
    EXPECT_EQ(a.rectFlags.back(), false);

    b.rect = QRectF(-5, 30, 1, 1);
    c.rect = QRectF(50, 50, 1, 1);
    list->AddTail(&c);
    EXPECT_EQ(Rect(list->GetSelectedRect()), "0,0,0,0");
    EXPECT_EQ(Rect(list->GetUnSelectedRect()), "-5,10,56,41");
    a.Select(true);
    b.Select(true);
    b.Lock(true);
    c.Lock(true);
    EXPECT_EQ(Rect(list->GetSelectedRect()), "10,10,5,5");
    EXPECT_EQ(Rect(list->GetUnSelectedRect()), "50,50,1,1");
    c.Select(true);
    EXPECT_EQ(Rect(list->GetUnSelectedRect()), "0,0,0,0");
}

/// Lists of stubs on the heap, for what frees.
class ShapeListOwner : public testing::Test
{
protected:
    StubShape* a = new StubShape("a");
    StubShape* b = new StubShape("b");
    StubShape* c = new StubShape("c");
    Document list = MakeList<Document>({a, b, c});

    void SetUp() override { StubShape::TakeTrace(); }
};

TEST_F(ShapeListOwner, deletes_front_to_back_and_the_selected_back_to_front)
{
    a->Select(true);
    a->Lock(true); // no exemption
    c->Select(true);
    list->DeleteSelectedShapes();
    EXPECT_EQ(StubShape::TakeTrace(), "~c ~a");
    list->AddTail(new StubShape("d"));
    list->DeleteAll();
    EXPECT_EQ(StubShape::TakeTrace(), "~b ~d");
    EXPECT_TRUE(list->IsEmpty());
}

TEST_F(ShapeListOwner, frees_shapes_listed_twice_once)
{
    list->AddTail(a);
    list->AddHead(b);
    list->AddTail(static_cast<CShape*>(nullptr));
    EXPECT_EQ(Names(*list), "b a b c a -");
    EXPECT_TRUE(list->Delete(1));
    EXPECT_EQ(Names(*list), "b b c -");
    b->Select(true);
    list->AddTail(b);
    list->DeleteSelectedShapes();
    EXPECT_EQ(Names(*list), "c -");
    list->AddTail(c);
    list->DeleteAll();
    EXPECT_EQ(StubShape::TakeTrace(), "~a ~b ~c");
}

TEST_F(ShapeListOwner, frees_a_shape_at_both_ends_once)
{
    list->AddTail(a);
    list->DeleteAll();
    EXPECT_EQ(StubShape::TakeTrace(), "~a ~b ~c");
}

TEST_F(ShapeListOwner, releasing_a_list_frees_no_shape)
{
    CShapeList* view = CShapeList::New();
    view->AddTail(*list);
    CShapeList::Release(view);
    EXPECT_EQ(view, nullptr);
    CShapeList::Release(view);
    EXPECT_EQ(StubShape::TakeTrace(), "");
}

TEST_F(ShapeListOwner, copying_frees_the_own_shapes_and_clones_the_others)
{
    const Document source = MakeList<Document>({new StubShape("x"), nullptr, new StubShape("y")});
    EXPECT_FALSE(list->Copy(nullptr));
    EXPECT_TRUE(list->Copy(list.get()));
    EXPECT_EQ(StubShape::TakeTrace(), "");
    EXPECT_TRUE(list->Copy(source.get()));
    EXPECT_EQ(StubShape::TakeTrace(), "~a ~b ~c");
    EXPECT_EQ(Names(*list), "x' y'");
    EXPECT_EQ(Names(*source), "x - y");
    EXPECT_EQ(list->GetShape(1)->GetShapeId(), source->GetShape(2)->GetShapeId());
    const Document clone(list->Clone());
    EXPECT_EQ(Names(*clone), "x'' y''");
}

} // namespace
