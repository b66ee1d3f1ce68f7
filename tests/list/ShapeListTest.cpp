/// CShapeList: order, ownership, queries and copies.
#include "group/ShapeArray.h"
#include "list/ShapeListOwner.h"
#include "support/Lists.h"
#include "support/StreamFile.h"

#include <gtest/gtest.h>

#include <functional>
#include <set>
#include <tuple>

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
class OwningList : public testing::Test
{
protected:
    StubShape* a = new StubShape("a");
    StubShape* b = new StubShape("b");
    StubShape* c = new StubShape("c");
    Document list = MakeList<Document>({a, b, c});

    void SetUp() override { StubShape::TakeTrace(); }
};

TEST_F(OwningList, deletes_front_to_back_and_the_selected_back_to_front)
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

TEST_F(OwningList, frees_shapes_listed_twice_once)
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

TEST_F(OwningList, finds_shapes_listed_twice_at_any_deletion_in_a_row)
{
    list->AddTail(a);
    for (const char* name : {"d", "e", "f", "g"})
        list->AddTail(new StubShape(name));
    list->AddHead(b);
    EXPECT_EQ(Names(*list), "b a b c a d e f g");
    EXPECT_TRUE(list->Delete(8) && list->Delete(7) && list->Delete(4)); // the whole list is known by now
    EXPECT_EQ(Names(*list), "b b c d e");
    EXPECT_TRUE(list->Delete(0));
    EXPECT_EQ(Names(*list), "c d e");
    EXPECT_TRUE(list->Delete(1));
    EXPECT_TRUE(list->Insert(c, 1)); // nothing is known any more
    EXPECT_TRUE(list->Delete(0));
    list->AddTail(*MakeList({list->GetShape(0), nullptr, nullptr}));
    EXPECT_TRUE(list->Delete(2) && list->Delete(1));
    EXPECT_EQ(Names(*list), "-");
    EXPECT_EQ(StubShape::TakeTrace(), "~g ~f ~a ~b ~d ~c ~e");
}

TEST_F(OwningList, frees_a_shape_at_both_ends_once)
{
    list->AddTail(a);
    list->DeleteAll();
    EXPECT_EQ(StubShape::TakeTrace(), "~a ~b ~c");
}

TEST_F(OwningList, releasing_a_list_frees_no_shape)
{
    CShapeList* view = CShapeList::New();
    view->AddTail(*list);
    CShapeList::Release(view);
    EXPECT_EQ(view, nullptr);
    CShapeList::Release(view);
    EXPECT_EQ(StubShape::TakeTrace(), "");
}

TEST_F(OwningList, copying_frees_the_own_shapes_and_clones_the_others)
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

TEST_F(OwningList, copying_frees_first_unless_both_lists_hold_a_shape)
{
    StubShape x("x");
    x.within = [] { EXPECT_EQ(StubShape::TakeTrace(), "~a ~b ~c") << "freed before the first was cloned"; };
    list->Copy(MakeList({&x}).get());
    EXPECT_EQ(Names(*list), "x'");

    list->AddTail(new StubShape("y"));
    StubShape::TakeTrace();
    list->Copy(MakeList({list->GetShape(1)}).get());
    EXPECT_EQ(StubShape::TakeTrace(), "~x' ~y");
    EXPECT_EQ(Names(*list), "y'");

    auto* group = new CShapeGroup; // whose list is the source
    group->GetShapeList()->AddTail(list->GetShape(0));
    list->Replace(list->GetShape(0), group);
    list->Copy(group->GetShapeList());
    EXPECT_EQ(Names(*list), "y''");
    CShapeGroup holder; // of a shape that the target holds
    holder.GetShapeList()->AddTail(list->GetShape(0));
    list->Copy(MakeList({&holder}).get());
    holder.GetShapeList()->RemoveAll();
    EXPECT_EQ(Names(*list), "?");
    EXPECT_EQ(StubShape::TakeTrace(), "~y' ~y''");
    group = new CShapeGroup; // whose list is empty
    list->AddTail(group);
    list->Copy(group->GetShapeList());
    EXPECT_TRUE(list->IsEmpty());
}

TEST(ShapeListOwner, frees_members_and_lays_nothing_out)
{
    StubShape::TakeTrace();
    auto* member = new StubShape("m");
    StreamFile stream(std::string(88, '0') + "00000000 00000000"); // an array without members or cells
    ShapeListOwner list = NewShapeList();
    auto* array = new CShapeArray;
    ASSERT_EQ(array->Read(stream.File(), 14), 0); // its template waits from now on
    auto* group = new CShapeGroup;
    group->GetShapeList()->AddTail(member);
    const_cast<CShapeList*>(std::as_const(*array).GetShapeList())->AddTail(group);
    member->within = [] { ADD_FAILURE() << "asked for its rectangle"; };
    SetOutline(*member, ""); // an empty painter path, which a shape leaves to the host
    list->AddTail(array);
    list->AddTail(static_cast<CShape*>(nullptr));
    list.reset();
    EXPECT_EQ(StubShape::TakeTrace(), "~m");
}

/// Counts how often lists look at its type.
class CountingStub : public StubShape
{
public:
    ESHAPE_TYPE GetShapeType() override
    {
        ++asked;
        return StubShape::GetShapeType();
    }
    int asked = 0;
};

TEST(ShapeListInsertion, looks_into_a_group_only_where_a_circle_could_close)
{
    auto* member = new CountingStub;
    CShapeGroup group, outer;
    group.GetShapeList()->AddTail(member);
    member->asked = 0;
    const View list = MakeList({&group});
    list->AddHead(*MakeList({&group}));
    list->Replace(&group, &group);
    EXPECT_EQ(member->asked, 0);
    outer.GetShapeList()->AddTail(&group);
    EXPECT_EQ(member->asked, 1);
    group.GetShapeList()->AddTail(&outer);
    group.GetShapeList()->AddTail(*MakeList({&outer, &group}));
    EXPECT_EQ(group.GetShapeList()->GetCount(), 1u) << "neither group may come to hold itself";
    outer.GetShapeList()->RemoveAll();
}

/// What a host's timer does while a message box is open: adds so many shapes that the list takes new room, and works on.
void WorkOn(CShapeList& list)
{
    for (int i = 0; i < 100; ++i)
        list.AddTail(new StubShape("new", QRectF(i, 50, 1, 1)));
    list.GetRect(false);
    list.Offset(1, 0, true);
    list.Resize(QRectF(0, 0, 300, 300));
    list.Sort();
    const Document clone(list.Clone());
}

TEST(ShapeListWalk, goes_on_after_the_host_has_changed_the_list_from_within)
{
    const std::tuple<const char*, std::function<void(CShapeList&)>> rows[] = {
        {"GetRect", [](CShapeList& list) { list.GetRect(false); }},
        {"GetUnSelectedRect", [](CShapeList& list) { list.GetUnSelectedRect(); }},
        {"Offset", [](CShapeList& list) { list.Offset(1, 1, true); }},
        {"Resize", [](CShapeList& list) { list.Resize(QRectF(0, 0, 5, 5)); }},
        {"MirrorX", [](CShapeList& list) { list.MirrorX(1); }},
        {"Sort", [](CShapeList& list) { list.Sort(); }},
        {"Clone", [](CShapeList& list) { const Document clone(list.Clone()); }},
        {"Copy", [](CShapeList& list) { MakeList<Document>()->Copy(&list); }},
    };
    for (const auto& [name, walk] : rows) {
        const Document list = MakeList<Document>();
        for (int i = 0; i < 3; ++i)
            list->AddTail(new StubShape("old", QRectF(10 * i, 0, 5, 5), ESHAPE_TEXT));
        auto* middle = static_cast<StubShape*>(list->GetShape(1));
        middle->within = [&] { WorkOn(*list); };
        walk(*list);
        EXPECT_FALSE(middle->within) << name;
        std::set<CShape*> distinct;
        for (unsigned int i = 0; i < list->GetCount(); ++i)
            distinct.insert(list->GetShape(i));
        EXPECT_EQ(distinct.size(), 103u) << name;
        EXPECT_EQ(list->GetCount(), 103u) << name;
    }
    StubShape::TakeTrace();
}

TEST(ShapeListWalk, copying_keeps_what_the_host_adds_to_the_target)
{
    for (const bool shared : {false, true}) {
        const Document list = MakeList<Document>({new StubShape("old")}), source = MakeList<Document>();
        auto* added = new StubShape("added");
        auto* adding = new StubShape("x");
        adding->within = [&] { list->AddTail(added); };
        source->AddTail(adding);
        if (shared)
            source->AddTail(list->GetShape(0));
        StubShape::TakeTrace();
        EXPECT_TRUE(list->Copy(source.get()));
        EXPECT_EQ(StubShape::TakeTrace(), "~old");
        EXPECT_EQ(Names(*list), shared ? "x' old' added" : "x' added");
        if (shared)
            source->Remove(1u);
    }
    StubShape::TakeTrace();
}

} // namespace
