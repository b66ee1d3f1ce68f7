/// CShapeGroup: what it asks of its members, its path, copies and record.
#include "group/ShapeArray.h"
#include "support/HostDouble.h"
#include "support/Lists.h"

#include <QThread>

#include <functional>

using namespace test;

namespace {

TEST(ShapeGroup, transforms_reach_the_members_and_leave_their_rectangle_as_path)
{
    const std::pair<std::function<bool(CShapeGroup&)>, const char*> rows[] = {
        {[](auto& g) { return g.Offset(3, 4); }, "m.Offset(3,4)"},
        {[](auto& g) { return g.RotateLeft(QPointF(1, 2)); }, "m.RotateLeft(1,2) m.Rotate(-90,1,2,Z)"},
        {[](auto& g) { return g.RotateRight(QPointF(1, 2)); }, "m.RotateRight(1,2) m.Rotate(90,1,2,Z)"},
        {[](auto& g) { return g.Rotate(30, QPointF(1, 2), Qt::XAxis); }, "m.Rotate(30,1,2,Z)"}, // always in the plane
        {[](auto& g) { return g.MirrorX(5); }, "m.MirrorX(5)"},
        {[](auto& g) { return g.MirrorY(5); }, "m.MirrorY(5)"},
        {[](auto& g) { return g.MirrorFixedOrMovingLine(QPointF(0, 0), QPointF(1, 1), true); },
         "m.MirrorLine(0,0,1,1,false)"}, // never committed
        {[](auto& g) { return g.MirrorAttachLine(5, true); }, "m.MirrorAttachLine(5,true) m.MirrorX(5)"},
    };
    for (const auto& [transform, memberSees] : rows) {
        auto* member = new StubShape("m", QRectF(1, 2, 10, 4));
        const auto group = MakeGroup({member}), empty = MakeGroup({});
        group->UpdatePainterPath(); // also a waiting path is replaced
        StubShape::TakeTrace();
        EXPECT_TRUE(transform(*group));
        EXPECT_EQ(StubShape::TakeTrace(), memberSees);
        EXPECT_EQ(PathText(*group), Frame(*member->rect)) << memberSees;
        EXPECT_TRUE(!transform(*empty) && PathText(*empty).empty()) << memberSees;
    }
    const auto group = MakeGroup({NewRect({0, 0, 10, 4}), NewRect({10, 4, 10, 4})});
    EXPECT_TRUE(group->Resize({100, 100, 40, 8}));
    EXPECT_EQ(Rect(group->GetShapeList()->GetShape(1)->GetRect(false)), "120,104,20,4");
    QPainterPath line(QPointF(1, 1));
    group->SetPath(&line); // changes nothing
    EXPECT_EQ(PathText(*group), Frame({100, 100, 40, 8}));
}

TEST(ShapeGroup, union_shows_the_members_as_they_were_at_the_update)
{
    const std::pair<const char*, std::function<void(CShapeList & outer, CShapeGroup & inner)>> rows[] = {
        {"member moved", [](auto&, auto& inner) { inner.GetShapeList()->GetShape(0)->Offset(100, 0); }},
        {"member replaced", [](auto&, auto& inner) { inner.GetShapeList()->Delete(0); }},
        {"inner group moved", [](auto&, auto& inner) { inner.Offset(100, 0); }},
        {"inner group taken out", [](auto& outer, auto&) { outer.Delete(0); }},
    };
    for (const auto& [name, change] : rows) {
        auto* inner = MakeGroup({NewRect({0, 0, 2, 1})}).release();
        const auto outer = MakeGroup({Nested(1, inner), NewRect({5, 5, 1, 1})});
        outer->UpdatePainterPath();
        change(*outer->GetShapeList(), *inner);
        EXPECT_EQ(PathText(*outer), Frame({0, 0, 2, 1}) + " " + Frame({5, 5, 1, 1})) << name;
    }
    auto* member = NewRect({0, 0, 2, 1});
    const auto source = MakeGroup({Nested(1, member)});
    const std::unique_ptr<CShape> clone(source->Clone()); // looks at the source's path
    member->Offset(100, 0);
    EXPECT_EQ(PathText(*source), Frame({0, 0, 2, 1}));
    source->GetPath(false)->translate(0, 50); // the caller's to change, as long as it lasts
    EXPECT_EQ(PathText(*MakeGroup({source->Clone()})), Frame({100, 0, 2, 1}));
    EXPECT_EQ(PathText(*source), Frame({0, 50, 2, 1}));
}

TEST(ShapeGroup, state_of_group_and_members)
{
    const auto group = MakeGroup({NewRect({0.4, 0, 10, 4.6}), nullptr, NewRect({100, 0, 1, 1})});
    CShape* first = group->GetShapeList()->GetShape(0);
    group->SetColor(0xFF0000);
    first->SetColor(0x00FF00);
    EXPECT_TRUE(group->GetColor() == 0x00FF00 && group->GetShapeList()->GetShape(2)->GetColor() == 0xFF0000);
    group->Select(true);
    group->SetGuideLine({.nMode = 7});
    EXPECT_TRUE(group->IsSelect() && first->IsSelect() && group->GetGuideLine().nMode == 1);
    EXPECT_FALSE(group->IsClose() || group->Close(1, true));
    EXPECT_TRUE(group->Contains({5, 2}) && !group->Contains({5, 5}));
    EXPECT_FALSE(group->Contains({5, 2.3}, 100)) << "the base's test on the outline";
    EXPECT_EQ(group->GetRectUI(9), QRect(0, 0, 101, 5));
    const auto far =
        MakeGroup({new StubShape("f", QRectF(-1e12, 0, 2e12, 1)), new StubShape("g", QRectF(0, 0, 1, 1e12))});
    EXPECT_EQ(far->GetRectUI(9), QRect(-1'000'000'000, 0, 2'000'000'000, 1'000'000'000))
        << "edges that whole numbers hold";

    int reach = 2; // hits test the members in order until one is hit
    EXPECT_TRUE(group->Hit({100, 0.5}, reach) && !group->Hit({50, 2}, reach) && !MakeGroup({})->Hit({0, 0}, reach));
}

TEST(ShapeGroup, copy_is_deep_and_checks_its_source)
{
    const auto source = MakeGroup({NewRect({0, 0, 10, 4})}), copy = MakeGroup({new StubShape("old")});
    StubShape::TakeTrace();
    ASSERT_TRUE(copy->Copy(source.get()));
    EXPECT_EQ(StubShape::TakeTrace(), "~old");
    CShape *member = copy->GetShapeList()->GetShape(0), *original = source->GetShapeList()->GetShape(0);
    EXPECT_TRUE(member != original && member->GetShapeId() == original->GetShapeId());
    EXPECT_EQ(copy->GetShapeId(), source->GetShapeId());
    EXPECT_EQ(PathText(*copy), Frame({0, 0, 10, 4}));
    CShapeVector other;
    EXPECT_TRUE(!copy->Copy(nullptr) && !copy->Copy(&other) && copy->Copy(copy.get()));
    EXPECT_EQ(copy->GetShapeList()->GetShape(0), member);

    const auto outer = MakeGroup({source->Clone(), NewRect({50, 50, 1, 1})});
    EXPECT_TRUE(outer->Copy(outer->GetShapeList()->GetShape(0))) << "a member of its own";
    EXPECT_EQ(std::to_string(outer->GetShapeList()->GetCount()) + ": " + Rect(outer->GetRect(false)), "1: 0,0,10,4");
}

TEST(ShapeGroup, memberwise_copies_share_the_members_until_the_last_goes)
{
    auto first = MakeGroup({new StubShape("a")}), third = MakeGroup({new StubShape("b")});
    auto second = std::make_unique<CShapeGroup>(*first);
    StubShape::TakeTrace();
    *third = *second;
    EXPECT_TRUE(StubShape::TakeTrace() == "~b" && first->GetShapeList() == third->GetShapeList());
    first.reset();
    second.reset();
    EXPECT_EQ(StubShape::TakeTrace(), "");
    third.reset();
    EXPECT_EQ(StubShape::TakeTrace(), "~a");
}

TEST(ShapeGroup, never_comes_to_hold_itself)
{
    auto* inner = new CShapeGroup;
    auto* leaf = new StubShape("leaf");
    const auto outer = MakeGroup({inner});
    CShapeList* members = inner->GetShapeList();
    members->AddTail(inner);
    members->AddHead(outer.get());
    EXPECT_FALSE(members->Insert(outer.get(), 0));
    members->AddTail(*outer->GetShapeList());
    *members = *outer->GetShapeList();
    EXPECT_TRUE(members->IsEmpty());
    members->AddTail(leaf);
    EXPECT_FALSE(members->Replace(leaf, outer.get()));
    *inner = *outer; // would make the inner group a member of its own list
    EXPECT_EQ(inner->GetShapeList()->FindShape(leaf), 0);

    inner->Select(true);
    outer->GetShapeList()->GetSelectedShapes(inner->GetShapeList());
    EXPECT_EQ(Names(*inner->GetShapeList()), "leaf");
}

TEST(ShapeGroup, reading_frees_the_old_members_and_hands_on_what_the_list_answers)
{
    const auto read = MakeGroup({new StubShape("old")});
    StubShape::TakeTrace();
    StreamFile unknownMember("00000000 ff000000" + kDefaultGuide + "00000000" + "01000000" + "09000000");
    EXPECT_EQ(read->Read(unknownMember.File(), 14), 5);
    EXPECT_TRUE(StubShape::TakeTrace() == "~old" && read->GetColor() == 0xFF);
}

TEST(ShapeGroup, nests_to_256_levels_in_a_stream)
{
    for (const int levels : {256, 257}) {
        const bool fits = levels == 256;
        const Document saved = MakeList<Document>({Nested(levels, NewRect({})), Nested(levels, NewRect({}))});
        const Document list = MakeList<Document>();
        StreamFile stream;
        stream.Fill(StreamOf(*saved));
        EXPECT_EQ(TakeLog(), fits ? "" : "1 groups are nested beyond 256 levels: what is saved cannot be read back");
        EXPECT_TRUE(list->Read(stream.File(), 14) == (fits ? 0 : 5) && list->GetCount() == (fits ? 2 : 0)) << levels;
    }
}

/// Reads, transforms, copies and frees 256 levels.
void WalkDeepNesting()
{
    const Document read = ListFrom(StreamOf(*MakeList<Document>({Nested(256, NewRect({0, 0, 10, 4}))})));
    read->Resize({5, 5, 20, 8});
    read->Rotate(90, {0, 0}, Qt::ZAxis);
    read->Select(true);
    read->SetColor(3);
    read->FindColor(4);
    read->RemoveInvalidShapeItem();
    const Document copy(read->Clone());
    int reach = 1;
    copy->GetShape(0)->Hit({1e5, 1e5}, reach);
    copy->GetShape(0)->GetPath(true);
}

TEST(ShapeGroup, deep_nesting_needs_no_more_than_a_small_stack)
{
#ifdef SHAPEMODEL_SANITIZED
    constexpr unsigned int kStack = 64 * 1024 * 1024; // the sanitizer's frames are many times larger
#else
    constexpr unsigned int kStack = 512 * 1024;
#endif
    const std::unique_ptr<QThread> thread(QThread::create(WalkDeepNesting));
    thread->setStackSize(kStack);
    thread->start();
    EXPECT_TRUE(thread->wait());
}

TEST(ShapeGroup, clean_up_judges_members_by_their_points_alone)
{
    CShapeArray* array = MakeGroup<CShapeArray>({NewRect({0, 0, 1, 1})}).release();
    array->SetArrayInfo(1, 2, 0, 0, 0, 0);
    CShape *emptyArray = new CShapeArray, *memberArray = array->Clone(), *broken = new CShapeVector;
    auto* inner = MakeGroup({broken, memberArray, NewRect({0, 0, 1, 1})}).release();
    const Document list = MakeList<Document>({Nested(1, inner), array, emptyArray});
    TakeLog();
    list->RemoveInvalidShapeItem();
    EXPECT_EQ(TakeLog(), "1 图元链表_移除无效图元,数组数据已经无效");
    EXPECT_TRUE(list->FindShape(array) == 1 && list->GetCount() == 2) << "has cells, though it has no points";
    EXPECT_EQ(inner->GetShapeList()->GetCount(), 1u) << "the array in the group went with the broken vector";
    list->RemoveInvalidShapeItem(nullptr); // nothing
    for (CShape* removed : {emptyArray, memberArray, broken})
        CShape::Release(removed);
}

} // namespace
