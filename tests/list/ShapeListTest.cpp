/// CShapeList: order, ownership, queries and copies.
#include "group/ShapeArray.h"
#include "support/Lists.h"

#include <cmath>
#include <functional>
#include <set>

using namespace test;

namespace {

using Change = std::function<bool(CShapeList&)>;

/// Stubs on the stack, for what frees nothing.
struct ShapeListView : testing::Test
{
    StubShape a{"a"}, b{"b"}, c{"c"}, d{"d"};
    View list = MakeList({&a, &b}), same = MakeList({&a, &b}), other = MakeList({&c, &d});
};

TEST_F(ShapeListView, insertion_replacement_and_removal_keep_the_order_and_free_nothing)
{
    const std::pair<const char*, Change> steps[] = {
        {"yes: a b c", [&](auto& l) { return l.Insert(&c, 2); }},
        {"no: a b c", [&](auto& l) { return l.Insert(&d, 4); }},
        {"yes: a d b c", [&](auto& l) { return l.Insert(&d, 1); }},
        {"yes: c a d b c", [&](auto& l) { return l.AddHead(&c), l.FindShape(&c) == 0; }},
        {"yes: c b d b c", [&](auto& l) { return l.Replace(&a, &b); }},
        {"no: c b d b c", [&](auto& l) { return l.Replace(&a, &d) || l.Replace(&b, nullptr); }},
        {"yes: c d b c", [&](auto& l) { return l.Remove(&b); }},
        {"no: c d b c", [&](auto& l) { return l.Remove(&a); }},
        {"yes: c d c", [&](auto& l) { return l.Remove(2u); }},
        {"no: c d c", [&](auto& l) { return l.Remove(3u) || l.Delete(3u) || l.GetShape(3); }},
        {"yes: a b", [&](auto& l) { return &(l = *same) == &l; }},
        {"yes: c d a b", [&](auto& l) { return l.AddHead(*other), !l.IsEmpty(); }},
        {"yes: c d a b c d", [&](auto& l) { return l.AddTail(*other), Names(*other) == "c d"; }},
        {"yes: c c a b c c", [&](auto& l) { return l.Replace(&d, &c) && l.Replace(&d, &c); }},
        {"no: c c c c", [&](auto& l) { return a.Select(true), b.selected = true, l.RemoveSelectedShapes(), false; }},
        {"yes: ", [&](auto& l) { return l.RemoveAll(), l.IsEmpty(); }},
        {"yes: a b", [&](auto& l) { return l.AddTail(&a), l.AddTail(&b), l.GetCount() == 2; }},
        {"no: a b a b", [&](auto& l) { return l.AddHead(l), false; }},
    };
    StubShape::TakeTrace();
    for (const auto& [expected, step] : steps) {
        const bool answer = step(*list);
        EXPECT_EQ((answer ? "yes: " : "no: ") + Names(*list), expected);
    }
    EXPECT_EQ(StubShape::TakeTrace(), "");
}

TEST_F(ShapeListView, null_entries_are_skipped)
{
    const View holes = MakeList({nullptr, &a, nullptr});
    holes->Select(true);
    holes->Lock(true);
    holes->Hide(true);
    holes->SetColor(5);
    EXPECT_TRUE(a.GetStatus() == 7 && holes->FindColor(5) && !holes->FindColor(0) && holes->FindShape(nullptr) == -1);
    holes->GetSelectedShapes(nullptr); // nothing to append to
    holes->GetAllImageShapes(nullptr);
    holes->GetShapesByColor(5, nullptr);
    holes->RemoveSelectedShapes();
    EXPECT_EQ(Names(*holes), "- -");
}

TEST_F(ShapeListView, selection_queries)
{
    a.Select(true);
    a.Lock(true);
    b.Select(true);
    list->AddTail(*MakeList({&c, nullptr}));
    EXPECT_EQ(list->GetFirstSelectedShape(), &b);
    list->GetSelectedShapes(list.get());
    d.type = ESHAPE_CODEIMAGE;
    d.SetColor(7);
    c.type = ESHAPE_IMAGE;
    other->GetAllImageShapes(list.get());
    other->GetShapesByColor(7, other.get());
    EXPECT_EQ(Names(*list) + "; " + Names(*other), "a b c - b c; c d d");

    // Counting asks the status bit, the other queries the virtual IsSelect.
    d.selected = true;
    EXPECT_TRUE(other->GetSelectedCount(true) == 0 && other->GetFirstSelectedShape() == &d);
    other->GetSelectedShapes(list.get());
    EXPECT_EQ(Names(*list), "a b c - b c d d");
}

TEST_F(ShapeListView, rectangles_join_by_their_edges_alone)
{
    EXPECT_TRUE(MakeList()->GetRect(false).isNull());
    a.rect = QRectF(10, 10, 5, 5);
    b.rect = QRectF(0, 0, 0, 0);
    EXPECT_EQ(Rect(list->GetRect(true)), "0,0,15,15");
    EXPECT_EQ(list->GetRectCenter(), QPointF(7.5, 7.5));
    EXPECT_EQ(a.rectFlags, (std::vector<bool>{true, false}));
    b.rect = QRectF(-5, 30, 1, 1);
    c.rect = QRectF(50, 50, 1, 1);
    d.rect = QRectF(std::nan(""), 0, 1, 1); // counts nowhere
    list->AddTail(*MakeList({&d, nullptr, &c}));
    const auto rects = [&] { return Rect(list->GetSelectedRect()) + " " + Rect(list->GetUnSelectedRect()); };
    EXPECT_EQ(rects(), "0,0,0,0 -5,10,56,41");
    a.Select(true);
    b.Select(true);
    b.Lock(true);
    c.Lock(true);
    EXPECT_EQ(rects(), "10,10,5,5 50,50,1,1");
    c.Select(true);
    EXPECT_EQ(rects(), "10,10,5,5 0,0,0,0");
}

/// Stubs on the heap, for what frees.
struct OwningList : testing::Test
{
    StubShape *a = new StubShape("a"), *b = new StubShape("b"), *c = new StubShape("c");
    Document list = MakeList<Document>({a, b, c});
    void SetUp() override { StubShape::TakeTrace(); }
};

// The list and what was freed after each step. The first deletion after an insertion seeks its shape alone, the second
// looks through the whole list, those that follow know.
TEST_F(OwningList, deletions_free_each_shape_once_however_often_it_is_listed)
{
    const View nulls = MakeList({nullptr});
    const auto add = [](CShapeList& l, const std::string& names) {
        for (const char name : names)
            l.AddTail(new StubShape({name}));
    };
    const std::pair<const char*, std::function<void(CShapeList&)>> steps[] = {
        {"b |~c ~a", [&](auto& l) { a->Select(true), a->Lock(true), c->Select(true), l.DeleteSelectedShapes(); }},
        {"b e b - |", [&](auto& l) { add(l, "e"), l.AddTail(l.GetShape(0)), l.AddTail(*nulls); }},
        {"e - |~b", [&](auto& l) { EXPECT_TRUE(l.Delete(2)); }},
        {"- |~e", [&](auto& l) { l.AddHead(l.GetShape(0)), l.GetShape(0)->Select(true), l.DeleteSelectedShapes(); }},
        {"|~g", [&](auto& l) { add(l, "g"), l.AddTail(l.GetShape(1)), l.DeleteAll(); }},
        {"i h i j h k l m n |",
         [&](auto& l) { add(l, "hijklmn"), l.Insert(l.GetShape(0), 3), l.AddHead(l.GetShape(1)); }},
        {"i i j k l |~n ~m ~h", [&](auto& l) { l.Delete(8), l.Delete(7), l.Delete(4); }},
        {"k l |~i ~j", [&](auto& l) { l.Delete(0), l.Insert(l.GetShape(0), 1), l.Delete(0); }},
        {"l |~k", [&](auto& l) { l.Delete(0); }},
        {"- |~l", [&](auto& l) { l.AddTail(*nulls), l.AddTail(l), l.Delete(3), l.Delete(2); }},
    };
    for (const auto& [expected, step] : steps) {
        step(*list);
        EXPECT_EQ(Names(*list) + (list->IsEmpty() ? "|" : " |") + StubShape::TakeTrace(), expected);
    }
    add(*list, "z");
    CShapeList* view = MakeList({list->GetShape(0)}).release();
    for (int i = 0; i < 2; ++i)
        CShapeList::Release(view);
    EXPECT_TRUE(!view && StubShape::TakeTrace().empty()) << "releasing a list frees no shape";
}

TEST_F(OwningList, copying_frees_the_own_shapes_and_clones_the_others)
{
    const Document source = MakeList<Document>({new StubShape("x"), nullptr, new StubShape("y")});
    EXPECT_TRUE(!list->Copy(nullptr) && list->Copy(list.get()) && StubShape::TakeTrace().empty());
    static_cast<StubShape*>(source->GetShape(0))->within = [] {
        EXPECT_EQ(StubShape::TakeTrace(), "~a ~b ~c") << "freed before the first was cloned";
    };
    EXPECT_TRUE(list->Copy(source.get()));
    EXPECT_EQ(Names(*list) + "; " + Names(*source), "x' y'; x - y");
    EXPECT_EQ(list->GetShape(1)->GetShapeId(), source->GetShape(2)->GetShapeId());
    EXPECT_EQ(Names(*Document(list->Clone())), "x'' y''");
}

TEST_F(OwningList, copying_frees_last_what_both_lists_hold)
{
    list->Copy(MakeList({list->GetShape(1)}).get());
    EXPECT_EQ(StubShape::TakeTrace(), "~a ~b ~c");
    EXPECT_EQ(Names(*list), "b'");

    CShapeGroup* group = MakeGroup({list->GetShape(0)}).release(); // whose list is the source
    list->Replace(list->GetShape(0), group);
    list->Copy(group->GetShapeList());
    EXPECT_EQ(Names(*list), "b''");
    list->AddTail(group = new CShapeGroup);
    list->Copy(group->GetShapeList()); // which is empty
    EXPECT_TRUE(list->IsEmpty());
}

TEST(ShapeListOwner, frees_members_and_lays_nothing_out)
{
    StubShape::TakeTrace();
    auto* member = new StubShape("m");
    StreamFile stream(std::string(88, '0') + "00000000 00000000"); // an array without members or cells
    auto* array = new CShapeArray;
    ASSERT_EQ(array->Read(stream.File(), 14), 0); // its template waits from now on
    const_cast<CShapeList*>(std::as_const(*array).GetShapeList())->AddTail(Nested(1, member));
    member->within = [] { ADD_FAILURE() << "asked for its rectangle"; };
    Document list = MakeList<Document>({array, nullptr});
    list.reset();
    EXPECT_EQ(StubShape::TakeTrace(), "~m");
}

// A host's timer, while a message box is open, adds so many shapes that the list reallocates, and works on.
TEST_F(OwningList, walks_go_on_after_the_host_has_changed_the_list_from_within)
{
    for (const bool fits : {true, false}) {
        b->within = [this] {
            for (int x = 0; x < 100; ++x)
                list->AddTail(new StubShape("new", QRectF(x, 50, 1, 1)));
            list->Resize(QRectF(0, 0, 300, 300));
            list->Sort();
            const Document clone(list->Clone());
        };
        EXPECT_TRUE(fits ? list->Resize({0, 0, 5, 5}) : Document(list->Clone())->GetCount() >= 103);
    }
    EXPECT_EQ(list->GetCount(), 203u);
    StubShape::TakeTrace();
    list.reset();
    EXPECT_EQ(std::ranges::count(StubShape::TakeTrace(), '~'), 203) << "each once";
}

TEST_F(OwningList, copying_keeps_what_the_host_adds_to_the_target)
{
    StubShape adding("x");
    const View alone = MakeList({&adding}), sharing = MakeList({&adding, list->GetShape(0)});
    for (const auto& [source, expected] : {std::pair{sharing.get(), "x' a' added"}, {alone.get(), "x' added"}}) {
        adding.within = [this] { list->AddTail(new StubShape("added")); };
        EXPECT_TRUE(list->Copy(source));
        EXPECT_EQ(Names(*list), expected);
    }
    EXPECT_EQ(StubShape::TakeTrace(), "~a ~b ~c ~x' ~a' ~added");
}

} // namespace
