#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "support/HostDouble.h"
#include "support/Lists.h"
#include "support/ScaleRuler.h"
#include "support/StreamFile.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <tuple>
#include <type_traits>

using namespace test;

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

/// One member, 10 x 4 at (0, 0).
std::unique_ptr<CShapeArray> MakeArray(int rows, int columns, double columnGap = 0, double rowGap = 0,
                                       double rowShift = 0, double columnShift = 0)
{
    auto array = std::make_unique<CShapeArray>();
    array->GetShapeList()->AddTail(NewRect({0, 0, 10, 4}));
    array->SetArrayInfo(rows, columns, columnGap, rowGap, rowShift, columnShift);
    return array;
}

CShapeImage* NewPicture(QRectF rect)
{
    auto* picture = new CShapeImage;
    picture->SetOrgRect(rect, true);
    return picture;
}

/// One row of two cells, 5 apart.
template <class Group = CShapeArray>
Group* Holding(CShape* member)
{
    auto* group = new Group;
    group->GetShapeList()->AddTail(member);
    if constexpr (std::is_same_v<Group, CShapeArray>)
        group->SetArrayInfo(1, 2, 5, 0, 0, 0);
    return group;
}

/// Positions of the cells; "!" before an invalid one, "*" behind a selected one.
std::string Cells(CShapeArray& array)
{
    std::string text;
    for (const ShapeArrayInfo& cell : array.GetShapeArrayInfo())
        text += (text.empty() ? "" : " ") + std::string(cell.bValid ? "" : "!") + Point(cell.ptPos) +
                (cell.bSelect ? "*" : "");
    return text;
}

} // namespace

TEST(ShapeArray, LaysOutRowByRow)
{
    const auto plain = MakeArray(2, 3, 5, 7);
    EXPECT_EQ(Cells(*plain), "0,0 15,0 30,0 0,11 15,11 30,11");
    EXPECT_EQ(Rect(plain->GetAllRect()), "0,0,40,15");
    const auto staggered = MakeArray(2, 2, 0, 0, 3, 2);
    EXPECT_EQ(Cells(*staggered), "0,0 10,2 3,4 13,6");
}

TEST(ShapeArray, RefusesLayoutsOutOfReach)
{
    for (const auto& [rows, columns] : {std::pair{0, 3}, {3, -1}, {100'000, 101}, {2'147'483'647, 2'147'483'647}}) {
        const auto array = MakeArray(2, 2);
        array->SetArrayInfo(rows, columns, 0, 0, 0, 0);
        EXPECT_EQ(Cells(*array), "") << rows << " x " << columns;
    }
    const auto array = MakeArray(1, 2);
    array->SetArrayInfo(1, 3, kNaN, 0, 0, 0);
    EXPECT_EQ(Cells(*array), "0,0 10,0");
}

TEST(ShapeArray, MakesShapesOfCellsOnDemand)
{
    const auto array = MakeArray(1, 3, 5);
    array->SetInvalid(1);
    array->Select(true, 0);
    CShapeList* all = array->GetAllShapeList();
    ASSERT_EQ(all->GetCount(), 2u);
    EXPECT_EQ(Rect(all->GetShape(1)->GetRect(false)), "30,0,10,4");
    all->DeleteAll();
    CShapeList::Release(all);

    const std::unique_ptr<CShape> cell(array->GetShape(1)); // validity is not asked
    EXPECT_EQ(cell->GetShapeType(), ESHAPE_GROUP);
    EXPECT_EQ(Rect(cell->GetRect(false)), "15,0,10,4");
    EXPECT_EQ(array->GetShape(3), nullptr);
    EXPECT_EQ(array->GetShape(-1), nullptr);

    EXPECT_EQ(PathText(array->GetPath(2)), Frame({30, 0, 10, 4}));
    EXPECT_TRUE(array->GetPath(3).isEmpty() && array->GetRect(-1) == QRectF() && array->GetRect(3) == QRectF());
}

TEST(ShapeArray, RefusesToFillMoreCellsThanMemoryHolds)
{
    const auto array = MakeArray(100, 100);
    auto* member = new CShapeVector;
    member->SetVectorType(EVECTOR_MIXED);
    std::vector<QPointF> points(10'000);
    for (size_t i = 0; i < points.size(); i += 2)
        points[i].setX(1);
    member->SetShapePoints(points, ELINE_SEGMENT_STRAIGHT);
    array->GetShapeList()->AddTail(MakeArray(0, 0).release());
    static_cast<CShapeGroup*>(array->GetShapeList()->GetShape(1))->GetShapeList()->AddTail(member);
    TakeLog();
    const Document all(array->GetAllShapeList()); // a hundred million points
    EXPECT_EQ(all->GetCount(), 0u);
    EXPECT_EQ(TakeLog(), "3 CShapeArray::GetAllShapeList: 10000 cells take too much memory at once");
    EXPECT_NE(std::unique_ptr<CShape>(array->GetShape(9'999)), nullptr);
}

TEST(ShapeArray, TakesMembersInAndRenewsTheTemplate)
{
    const auto array = MakeArray(1, 2);
    const View extra = MakeList({NewRect({-5, 0, 1, 1})});
    array->SetShapeList(extra.get());
    EXPECT_EQ(Rect(array->GetRect(1)), "10,0,15,4"); // cells stay, their size is the template's
    array->SetShapeList(nullptr);
    EXPECT_EQ(array->GetShapeList()->GetCount(), 2u);
    array->GetShapeList()->Offset(0, 50, true);
    array->SetShapeList(array->GetShapeList()); // named twice, freed once
    EXPECT_EQ(array->GetShapeList()->GetCount(), 4u);
    EXPECT_EQ(Rect(std::unique_ptr<CShape>(array->GetShape(1))->GetRect(false)), "10,0,15,4"); // template renewed
}

TEST(ShapeArray, HitsTheFirstValidCell)
{
    const auto array = MakeArray(1, 3, -5); // neighbours overlap by half
    EXPECT_EQ(array->GetHitIndex({7, 2}, 0), 0);
    array->SetInvalid(0);
    EXPECT_EQ(array->GetCount(), 2);
    EXPECT_EQ(array->GetCurrentHitIndex({7, 2}, 0), 1);
    EXPECT_EQ(array->GetLastHitIndex(), 0);
    int part = 42;
    EXPECT_TRUE(array->Hit({7, 2}, part));
    EXPECT_FALSE(array->Hit({2, 2}, part));
    EXPECT_EQ(array->GetLastHitIndex(), -1);
    EXPECT_EQ(part, 42);
}

TEST(ShapeArray, SelectingByRectangleToggles)
{
    const std::tuple<QRectF, bool, const char*> rows[] = {
        {{10, 4, 0, 0}, false, "0,0* 15,0 30,0"}, // touching a corner counts
        {{10, 0, 20, 4}, false, "0,0* 15,0* 30,0*"}, {{10.1, 0, 19.8, 4}, false, "0,0 15,0* 30,0"},
        {{0, 0, 24.9, 4}, true, "0,0* 15,0 30,0"},   {{0, 0, 25, 4}, true, "0,0* 15,0* 30,0"},
    };
    for (const auto& [rect, contain, cells] : rows) {
        const auto array = MakeArray(1, 3, 5);
        array->SelectByRect(rect, contain);
        EXPECT_EQ(Cells(*array), cells) << Rect(rect);
        EXPECT_TRUE(array->IsSelecteChanged());
        array->SelectByRect(rect, contain);
        EXPECT_EQ(array->GetSelectStatus(), 0u);
    }
    const auto array = MakeArray(1, 2);
    array->SetInvalid(0);
    array->SelectByRect({0, 0, 100, 100}, false);
    EXPECT_EQ(Cells(*array), "!0,0 10,0*");
}

TEST(ShapeArray, LooksAtCellsAsRectanglesDo)
{
    const auto array = MakeArray(7, 9, 1.1, 2.2, 3.3, 4.4);
    array->Rotate(31, {5, 5}, Qt::ZAxis);
    array->SetInvalid(0);
    array->SetInvalid(40);
    const QList<ShapeArrayInfo> cells = array->GetShapeArrayInfo();
    QRectF all;
    for (const ShapeArrayInfo& cell : cells)
        if (cell.bValid)
            all |= array->GetRect(static_cast<int>(cell.nIndex));
    EXPECT_EQ(Rect(array->GetAllRect()), Rect(all));
    for (double x = all.left() - 1; x <= all.right() + 1; x += 2.7)
        for (double y = all.top() - 1; y <= all.bottom() + 1; y += 1.3) {
            const auto holds = [&](const ShapeArrayInfo& cell) {
                return cell.bValid && array->GetRect(static_cast<int>(cell.nIndex)).contains(QPointF(x, y));
            };
            const auto first = std::find_if(cells.begin(), cells.end(), holds);
            ASSERT_EQ(array->GetHitIndex({x, y}, 0), first == cells.end() ? -1 : first->nIndex) << x << " " << y;
        }
    for (const bool contain : {false, true}) {
        const QList<ShapeArrayInfo> before = array->GetShapeArrayInfo(); // shares the cells with the array
        const QRectF r = all.adjusted(20, 10, -20, -10);
        array->SelectByRect(r, contain);
        EXPECT_TRUE(array->IsSelecteChanged());
        const QList<ShapeArrayInfo> after = array->GetShapeArrayInfo();
        for (int i = 0; i < cells.size(); ++i) {
            const QRectF rect = array->GetRect(i);
            const bool meant = cells[i].bValid && (contain ? r.contains(rect) : r.intersects(rect));
            EXPECT_EQ(after[i].bSelect, before[i].bSelect != meant) << i;
        }
    }
}

TEST(ShapeArray, SelectionQueries)
{
    const auto array = MakeArray(1, 3, 5);
    EXPECT_EQ(array->GetFirstSelectIndex(), -1);
    EXPECT_EQ(array->GetSelectRect(), QRectF());
    array->SelectByRect({15, 0, 25, 4}, true);
    EXPECT_EQ(array->GetSelectStatus(), 2u);
    EXPECT_EQ(array->GetSelectCount(), 2);
    EXPECT_EQ(array->GetFirstSelectIndex(), 1);
    EXPECT_EQ(Rect(array->GetSelectRect()), "15,0,25,4");
    array->DeleteSelect();
    EXPECT_EQ(Cells(*array), "0,0 !15,0* !30,0*"); // the flags stay
    EXPECT_TRUE(array->IsSelect());
    EXPECT_EQ(array->GetSelectCount(), 0);
    array->SelectAll(true);
    EXPECT_EQ(array->GetSelectStatus(), 1u);
    EXPECT_EQ(array->GetStatus(), 0u);
    EXPECT_EQ(CShapeArray().GetSelectStatus(), 0u);
}

TEST(ShapeArray, SelectOfACellSetsOnlyTheArraysOwnBit)
{
    const auto array = MakeArray(1, 2);
    array->Select(true, 0);
    EXPECT_EQ(array->GetStatus(), 0x1u);
    EXPECT_EQ(Cells(*array), "0,0 10,0");
    EXPECT_FALSE(array->IsSelecteChanged());
    array->Select(false, 0); // asks the cells, of which none is selected
    EXPECT_EQ(array->GetStatus(), 0x1u);
    array->SelectAll(true);
    array->Select(false, 0);
    EXPECT_EQ(array->GetStatus(), 0x0u);
    array->Select(false, 0); // subtracts once more, borrowing
    EXPECT_EQ(array->GetStatus(), 0xFFFFFFFFu);
    const auto other = MakeArray(1, 2);
    other->Select(true, 2);
    EXPECT_EQ(other->GetStatus(), 0u);
}

TEST(ShapeArray, InAList)
{
    auto* array = MakeArray(1, 3).release();
    auto* selected = NewRect({});
    auto* locked = NewRect({});
    selected->Select(true);
    locked->Select(true);
    locked->Lock(true);
    const Document list = MakeList<Document>({locked, selected, array});
    array->SelectAll(true);
    EXPECT_EQ(list->GetSelectedCount(false), 4u);
    EXPECT_EQ(list->GetSelectedCount(true), 5u);
    list->Select(false);
    EXPECT_EQ(Cells(*array), "0,0 10,0 20,0");
    EXPECT_FALSE(array->IsSelecteChanged()); // the cells are reached twice
    array->SetColor(0xFF0000);
    EXPECT_TRUE(list->FindColor(0xFF0000));
}

TEST(ShapeArray, ColourIsItsOwnOrTheFirstMembers)
{
    const auto array = MakeArray(1, 1);
    CShape* member = array->GetShapeList()->GetShape(0);
    member->SetColor(5);
    EXPECT_EQ(array->GetColor(), 5u);
    array->SetColor(9);
    EXPECT_EQ(array->GetColor(), 9u);
    EXPECT_EQ(member->GetColor(), 5u);
    EXPECT_EQ(CShapeArray().GetColor(), 0u);
    EXPECT_TRUE(array->IsClose());
}

TEST(ShapeArray, TransformsMoveCellsAndMembers)
{
    using Array = CShapeArray;
    const std::tuple<const char*, std::function<bool(Array&)>, const char*, const char*, const char*> rows[] = {
        {"Offset", [](Array& a) { return a.Offset(1, 2); }, "1,2 16,2", "1,2,10,4", "16,2,10,4"},
        // The members turn about the origin, then the arrangement is centred on it.
        {"RotateRight", [](Array& a) { return a.RotateRight(QPointF(0, 0)); }, "-2,-12.5 -2,2.5", "-4,0,4,10",
         "-2,2.5,4,10"},
        {"RotateLeft", [](Array& a) { return a.RotateLeft(QPointF(0, 0)); }, "-2,2.5 -2,-12.5", "0,-10,4,10",
         "-2,-12.5,4,10"},
        // Mirrored to 30..40, and moved back by the 25 that the arrangement's centre went.
        {"MirrorX moves the members back", [](Array& a) { return a.MirrorX(20); }, "15,0 0,0", "5,0,10,4", "0,0,10,4"},
        {"MirrorY does not", [](Array& a) { return a.MirrorY(20); }, "0,0 15,0", "0,36,10,4", "15,0,10,4"},
        {"attached line", [](Array& a) { return a.MirrorAttachLine(20, true); }, "15,0 0,0", "5,0,10,4", "0,0,10,4"},
        // The cells land on 40 and 25, and go back by 10 so that the first stands on the members.
        {"free line", [](Array& a) { return a.MirrorFixedOrMovingLine(QPointF(20, 0), QPointF(20, 5), false); },
         "30,0 15,0", "30,0,10,4", "15,0,10,4"},
        {"Resize", [](Array& a) { return a.Resize(QRectF(100, 100, 50, 8)); }, "100,100 130,100", "100,100,20,8",
         "130,100,20,8"},
    };
    for (const auto& [name, transform, cells, members, shapeOfCell1] : rows) {
        SCOPED_TRACE(name);
        const auto array = MakeArray(1, 2, 5); // cells at 0,0 and 15,0; all: 0,0,25,4
        EXPECT_TRUE(transform(*array));
        EXPECT_EQ(Cells(*array), cells);
        EXPECT_EQ(Rect(array->GetRect(true)), members);
        EXPECT_EQ(Rect(std::unique_ptr<CShape>(array->GetShape(1))->GetRect(false)), shapeOfCell1);
        EXPECT_EQ(PathText(*array), Frame(array->GetRect(true)));
    }
}

TEST(ShapeArray, TurnedPicturesFillTheirCells)
{
    const QRectF lying(0, 0, 20, 8);
    using Make = std::function<CShapeArray*()>;
    const std::pair<const char*, Make> rows[] = {
        {"picture", [=] { return Holding(NewPicture(lying)); }},
        {"in a group", [=] { return Holding(Holding<CShapeGroup>(NewPicture(lying))); }},
        {"in groups", [=] { return Holding(Holding<CShapeGroup>(Holding<CShapeGroup>(NewPicture(lying)))); }},
        {"code picture's type", [=] { return Holding(new StubShape("m", {}, ESHAPE_CODEIMAGE)); }},
    };
    for (const auto& [name, make] : rows) {
        SCOPED_TRACE(name);
        const Document list = MakeList<Document>({make()});
        auto& array = dynamic_cast<CShapeArray&>(*list->GetShape(0));
        CShape* member = array.GetShapeList()->GetShape(0);
        list->RotateRight({0, 0}); // cells to 0,0 and 0,25; the two of 8 x 20 are then centred on the origin
        if (const auto* stub = dynamic_cast<StubShape*>(member)) {
            EXPECT_EQ(std::count(stub->rectFlags.begin(), stub->rectFlags.end(), true), 2); // at layout and now
            continue;
        }
        EXPECT_EQ(Rect(array.GetRect(true)), "-8,0,8,20");
        EXPECT_EQ(Rect(array.GetAllRect()), "-4,-22.5,8,45");
        EXPECT_EQ(PathText(array), Frame({-8, 0, 8, 20}));
        EXPECT_EQ(Rect(array.GetPath(1).boundingRect()), "-4,2.5,8,20");
        EXPECT_EQ(Rect(std::unique_ptr<CShape>(array.GetShape(1))->GetRect(true)), "-4,2.5,8,20");

        StreamFile stream;
        list->Save(stream.File());
        stream.Rewind();
        const Document read = MakeList<Document>();
        ASSERT_EQ(read->Read(stream.File(), 14), 0);
        EXPECT_EQ(Rect(read->GetRect(false)), "-4,-22.5,8,45");
        EXPECT_EQ(Rect(read->GetRect(true)), "-8,0,8,20");
    }
    TakeLog(); // the pictures have no pixels
}

TEST(ShapeArray, TurnedPicturesOfAnArrayInAnArrayFillItsCells)
{
    // Inside, two pictures of 20 x 8 that are 5 apart; outside, two of these.
    const std::unique_ptr<CShapeArray> array(Holding(Holding<CShapeGroup>(Holding(NewPicture({0, 0, 20, 8})))));
    array->RotateRight({0, 0}); // the inner arrangement of 8 x 45, then both of them, are centred on the origin
    EXPECT_EQ(Rect(array->GetRect(false)), "-4,-47.5,8,95");
    EXPECT_EQ(Rect(std::unique_ptr<CShape>(array->GetShape(0))->GetRect(false)), "-4,-47.5,8,45");
    EXPECT_EQ(Rect(array->GetPath(0).boundingRect()), "-4,-47.5,8,45");
}

TEST(ShapeArray, LineMirrorTurnsPicturesAndKeepsThePreview)
{
    for (const bool commit : {true, false}) {
        auto* picture = NewPicture({0, 0, 20, 8});
        const std::unique_ptr<CShapeArray> array(Holding(picture));
        array->MirrorFixedOrMovingLine({0, 0}, {10, 10}, commit); // x and y change places
        EXPECT_EQ(Rect(array->GetAllRect()), commit ? "0,0,8,45" : "0,0,20,33");
        EXPECT_EQ(picture->GetPathTmp() == nullptr, commit);
        picture->ExitPathTmp();
    }
}

TEST(ShapeArray, FitsPicturesThatWereTurnedBefore)
{
    auto* picture = NewPicture({0, 0, 20, 8});
    const std::unique_ptr<CShapeArray> array(Holding(picture)); // cells at 0,0 and 25,0
    picture->RotateRight({0, 0});                               // 8 x 20 at -8,0; all cells: 0,0,33,20
    EXPECT_TRUE(array->Resize({0, 0, 66, 40}));
    EXPECT_EQ(Rect(array->GetAllRect()) + " " + Rect(array->GetRect(true)), "0,0,66,40 -16,0,16,40");
    TakeLog();
}

TEST(ShapeArray, LayoutTakesPicturesAsTheyAre)
{
    auto* picture = NewPicture({0, 0, 20, 8});
    const std::unique_ptr<CShapeArray> array(Holding(picture));
    picture->RotateRight({0, 0});
    array->SetArrayInfo(1, 2, 0, 0, 0, 0);
    EXPECT_EQ(Rect(array->GetAllRect()) + " " + Rect(array->GetPath(1).boundingRect()), "-8,0,16,20 0,0,8,20");
}

TEST(ShapeArray, TransformsWithoutValidCellsStayFinite)
{
    for (const bool cells : {false, true}) {
        const auto array = cells ? MakeArray(1, 2) : MakeArray(0, 0);
        array->SelectAll(true);
        array->DeleteSelect();
        EXPECT_TRUE(array->Rotate(30, {1, 1}, Qt::ZAxis) && array->MirrorX(1) && array->MirrorY(1));
        EXPECT_TRUE(array->MirrorFixedOrMovingLine({0, 0}, {1, 1}, true) && array->Resize({5, 5, 0, 8}));
        for (const ShapeArrayInfo& cell : array->GetShapeArrayInfo())
            EXPECT_TRUE(std::isfinite(cell.ptPos.x()) && std::isfinite(cell.ptPos.y()));
        const QRectF members = array->GetRect(true);
        EXPECT_TRUE(std::isfinite(members.x()) && std::isfinite(members.width()));
    }
}

TEST(ShapeArray, CellWithoutPlaceSpoilsNoOther)
{
    const std::string cells = "00000000 0000000000000000 0000000000000000 01 00"
                              "01000000 000000000000f87f 0000000000000000 01 00"; // x of the second: not a number
    StreamFile stream(kEmptyCommon + "00000000 02000000" + cells);
    CShapeArray array;
    array.Read(stream.File(), 14);
    EXPECT_EQ(array.GetAllRect(), QRectF());
    EXPECT_TRUE(array.Rotate(90, {1, 2}, Qt::ZAxis) && array.MirrorX(0) && array.Resize({5, 5, 1, 1}));
    EXPECT_TRUE(std::isfinite(array.GetShapeArrayInfo()[0].ptPos.x()));
}

TEST(ShapeArray, CellWithoutPlaceIsNeitherHitNorSelected)
{
    const std::string cells = "00000000 000000000000f87f 0000000000000000 01 00"
                              "01000000 0000000000001440 0000000000000000 01 00"; // at NaN,0 and 5,0
    StreamFile stream(kEmptyCommon + "00000000 02000000" + cells);
    CShapeArray array;
    array.Read(stream.File(), 14);
    const View members = MakeList({NewRect({0, 0, 10, 4})});
    array.SetShapeList(members.get());
    EXPECT_EQ(array.GetHitIndex({6, 1}, 0), 1);
    EXPECT_EQ(array.GetHitIndex({kNaN, 1}, 0), -1);
    for (const bool contain : {false, true}) {
        array.SelectAll(false);
        array.SelectByRect({-100, -100, 200, 200}, contain);
        EXPECT_EQ(array.GetFirstSelectIndex(), 1);
        EXPECT_EQ(array.GetShapeArrayInfo()[0].bSelect, 0);
    }
    array.SelectAll(true);
    EXPECT_EQ(array.GetSelectCount(), 1);
    EXPECT_EQ(array.GetCount(), 2);
    EXPECT_EQ(Rect(array.GetSelectRect()) + " " + Rect(array.GetAllRect()), "5,0,10,4 5,0,10,4");
    EXPECT_EQ(array.GetSelectStatus(), 1u);
    EXPECT_EQ(array.GetShape(0), nullptr);
    EXPECT_TRUE(array.GetPath(0).isEmpty());
    const Document filled(array.GetAllShapeList());
    EXPECT_EQ(filled->GetCount(), 1u);
    EXPECT_EQ(Rect(filled->GetRect(false)), "5,0,10,4");
}

TEST(ShapeArray, CellWithoutPlaceStoredAsSelectedCountsAsNone)
{
    for (const char* x : {"000000000000f87f", "000000000000f07f"}) { // NaN, infinity
        StreamFile stream(kEmptyCommon + "00000000 01000000 00000000" + x + "0000000000000000 01 01");
        CShapeArray array;
        array.Read(stream.File(), 14);
        EXPECT_FALSE(array.IsSelect());
        EXPECT_EQ(array.GetSelectStatus(), 0u);
        const double kFar = std::numeric_limits<double>::infinity();
        array.SelectByRect({0, 0, kFar, kFar}, false);
        EXPECT_EQ(array.GetShapeArrayInfo()[0].bSelect, 1) << "not toggled";
    }
}

TEST(ShapeArray, AssignmentFromOneOfItsMembers)
{
    auto outer = MakeArray(1, 1);
    auto* inner = MakeArray(1, 3).release();
    outer->GetShapeList()->AddTail(inner);
    *outer = *inner;
    EXPECT_EQ(Cells(*outer), "0,0 10,0 20,0");
}

TEST(ShapeArray, LineMirrorAcrossAPointOrWithoutCells)
{
    const auto array = MakeArray(1, 2);
    array->MirrorY(50); // leaves the members at 0,96 and the cells where they were
    auto* stub = new StubShape("m", QRectF(1, 97, 2, 2));
    array->GetShapeList()->AddTail(stub);
    StubShape::TakeTrace();
    EXPECT_TRUE(array->MirrorFixedOrMovingLine({3, 3}, {3, 3}, true));
    EXPECT_EQ(StubShape::TakeTrace(), ""); // nothing to mirror across
    EXPECT_EQ(Cells(*array), "0,96 10,96");
    EXPECT_EQ(PathText(*array), Frame({0, 96, 10, 4}));
    const auto empty = MakeArray(0, 0);
    EXPECT_TRUE(empty->MirrorFixedOrMovingLine({20, 0}, {20, 5}, false));
    EXPECT_EQ(Rect(empty->GetRect(true)), "30,0,10,4");
}

TEST(ShapeArray, MovesBelowAMillionthMoveNeitherCellsNorMembers)
{
    const std::tuple<QPointF, bool, const char*> rows[] = {
        {{9e-7, -9e-7}, false, "0 0 0"}, {{2e-6, 0}, true, "2 2 2"}, {{5e-7, 2e-6}, true, "0.5 0.5 0.5"}};
    for (const auto& [way, moves, millionths] : rows) {
        const auto array = MakeArray(1, 2, 5);
        EXPECT_EQ(array->Offset(way.x(), way.y()), moves);
        EXPECT_EQ(Number(array->GetRect(true).x() * 1e6) + " " + Number(array->GetRect(0).x() * 1e6) + " " +
                      Number((array->GetRect(1).x() - 15) * 1e6),
                  millionths);
    }
    const auto array = MakeArray(1, 2, 5); // 25 wide
    array->MirrorX(7.5 + 2e-7);            // puts the centre of the arrangement 4e-7 beside its place
    EXPECT_EQ(Number((array->GetRect(true).x() - 5) * 1e6) + " " + Number((array->GetRect(0).x() - 15) * 1e6),
              "0.4 0.4");
}

TEST(ShapeArray, NonFiniteTransformsChangeNothing)
{
    const auto array = MakeArray(1, 2, 5);
    EXPECT_FALSE(array->Offset(kNaN, 0) || array->Rotate(kNaN, {0, 0}, Qt::ZAxis) || array->MirrorX(kNaN) ||
                 array->MirrorY(kNaN) || array->MirrorFixedOrMovingLine({kNaN, 0}, {1, 1}, true) ||
                 array->Resize({0, 0, kNaN, 1}));
    EXPECT_EQ(Cells(*array) + " " + Rect(array->GetRect(true)), "0,0 15,0 0,0,10,4");
}

TEST(ShapeArray, ConvertsTemplateAndCellsButNotTheMembers)
{
    ScaleRuler ruler; // 4 pixels per millimetre, origin at pixel (100, 200)
    const auto array = MakeArray(1, 2, 5);
    array->ChangeMM2Pix(&ruler);
    EXPECT_EQ(Cells(*array), "100,200 160,200");
    EXPECT_EQ(Rect(array->GetRect(1)), "160,200,40,16");
    EXPECT_EQ(Rect(array->GetRect(true)), "0,0,10,4");
    array->ChangePix2MM(&ruler);
    array->ChangePix2MM(nullptr);
    EXPECT_EQ(Cells(*array), "0,0 15,0");
}

TEST(ShapeArray, CopiesColourTemplateAndCells)
{
    const auto source = MakeArray(1, 2, 5);
    source->SetColor(7);
    source->SelectAll(true);
    source->GetHitIndex({1, 1}, 0);
    const std::unique_ptr<CShape> clone(source->Clone());
    auto& copy = dynamic_cast<CShapeArray&>(*clone);
    EXPECT_EQ(Cells(copy), "0,0* 15,0*");
    EXPECT_EQ(copy.GetColor(), 7u);
    EXPECT_EQ(copy.GetLastHitIndex(), -1);
    EXPECT_TRUE(copy.IsSelecteChanged()); // no snapshot to compare with
    EXPECT_NE(copy.GetShapeList()->GetShape(0), source->GetShapeList()->GetShape(0));

    const auto longer = MakeArray(1, 3);
    longer->GetHitIndex({21, 1}, 0);
    EXPECT_EQ(longer->GetLastHitIndex(), 2);
    longer->Copy(source.get()); // has no such cell
    EXPECT_EQ(longer->GetLastHitIndex(), -1);

    CShapeGroup group;
    EXPECT_FALSE(copy.Copy(nullptr) || copy.Copy(&group));
    EXPECT_TRUE(copy.Copy(&copy));
    EXPECT_EQ(Cells(copy), "0,0* 15,0*");
    const std::unique_ptr<CShape> plain(copy.CShapeGroup::Clone());
    EXPECT_EQ(plain->GetShapeType(), ESHAPE_GROUP);
}

TEST(ShapeArray, RecordAndItsResult)
{
    CShapeArray array; // no members
    StreamFile empty;
    EXPECT_EQ(array.Save(empty.File()), 4);
    EXPECT_EQ(empty.Hex(), Compact(kEmptyCommon + "00000000" + "00000000"));

    array.SetArrayInfo(1, 2, 1, 0, 0, 2);
    array.SetInvalid(1);
    array.SelectAll(true);
    const std::string cells = "00000000 0000000000000000 0000000000000000 01 01"
                              "01000000 000000000000f03f 0000000000000040 00 01";
    StreamFile stream;
    EXPECT_EQ(array.Save(stream.File()), 1);
    EXPECT_EQ(stream.Hex(), Compact(kEmptyCommon + "00000000" + "02000000" + cells));

    stream.Rewind();
    CShapeArray read;
    EXPECT_EQ(read.Read(stream.File(), 14), 0);
    EXPECT_EQ(Cells(read), "0,0* !1,2*");
    EXPECT_EQ(read.GetShapeArrayInfo()[1].nIndex, 1);
    EXPECT_TRUE(read.IsSelecteChanged());

    const std::tuple<const char*, std::string, const char*> rows[] = {
        {"more cells than bytes", "ffffff7f" + cells, "0,0* !1,2*"},
        {"cut inside a cell", "02000000" + cells.substr(0, cells.size() - 3), "0,0*"},
        {"negative", "ffffffff" + cells, ""},
        {"odd booleans", "01000000 00000000 0000000000000000 0000000000000000 02 80", "0,0*"},
        {"no count", "", ""},
    };
    for (const auto& [name, bytes, result] : rows) {
        StreamFile odd(kEmptyCommon + "00000000" + bytes);
        CShapeArray target;
        EXPECT_EQ(target.Read(odd.File(), 14), 0) << name;
        EXPECT_EQ(Cells(target), result) << name;
    }
}

TEST(ShapeArray, TemplateIsThatOfTheMembersAsRead)
{
    using Array = CShapeArray;
    const std::tuple<const char*, std::function<void(Array&)>, const char*> rows[] = {
        {"nothing", [](Array&) {}, "15,0,10,4"},
        {"member moved", [](Array& a) { a.GetShapeList()->GetShape(0)->Offset(100, 0); }, "115,0,10,4"},
        {"member added",
         [](Array& a) {
             a.GetShapeList()->AddTail(NewRect({0, 9, 1, 1}));
         },
         "15,0,10,10"},
        {"moved through a copy", [](Array& a) { Array(a).Offset(100, 0); }, "115,0,10,4"},
        {"moved through its group part", [](Array& a) { CShapeGroup(a).Offset(100, 0); }, "115,0,10,4"},
        {"members of its group part", [](Array& a) { CShapeGroup(a).GetShapeList()->Offset(100, 0, true); },
         "115,0,10,4"},
        {"moved through an assigned one",
         [](Array& a) {
             Array other;
             other = a;
             other.Offset(100, 0);
         },
         "115,0,10,4"},
        {"moved through an assigned group",
         [](Array& a) {
             CShapeGroup other;
             other = a;
             other.Offset(100, 0);
         },
         "115,0,10,4"},
        {"copied", [](Array& a) { std::unique_ptr<CShape>(a.Clone())->Offset(100, 0); }, "15,0,10,4"},
        {"listed", [](Array& a) { MakeList({&a})->GetRect(true); }, "15,0,10,4"},
    };
    const auto saved = MakeArray(1, 2, 5);
    StreamFile stream;
    saved->Save(stream.File());
    for (const auto& [name, change, shapeOfCell1] : rows) {
        stream.Rewind();
        CShapeArray array;
        array.Read(stream.File(), 14);
        change(array);
        EXPECT_EQ(Rect(array.GetRect(1)), "15,0,10,4") << name;
        EXPECT_EQ(Rect(std::unique_ptr<CShape>(array.GetShape(1))->GetRect(false)), shapeOfCell1) << name;
    }
}

TEST(ShapeArray, OldRecordsTemplateComesFromTheUpgradedMembers)
{
    auto* array = MakeArray(1, 2, 5).release();
    const Document saved = MakeList<Document>({array});
    StreamFile stream;
    saved->Save(stream.File());
    const std::string hex = stream.Hex();
    // Version 2 carries no extract-contour flag: take the member's byte out, it stands before the 48 bytes of cells.
    StreamFile old(hex.substr(0, hex.size() - 2 * 49) + hex.substr(hex.size() - 2 * 48));
    const Document read = MakeList<Document>();
    ASSERT_EQ(read->Read(old.File(), 2), 0);
    auto* upgraded = dynamic_cast<CShapeArray*>(read->GetShape(0));
    ASSERT_NE(upgraded, nullptr);
    EXPECT_EQ(dynamic_cast<CShapeVector*>(upgraded->GetShapeList()->GetShape(0))->GetVectorType(), EVECTOR_MIXED);
    EXPECT_EQ(Rect(upgraded->GetRect(1)), "15,0,10,4");
}

TEST(ShapeArray, GroupsInArraysInGroupsComeBackByteForByte)
{
    auto* group = new CShapeGroup;
    group->GetShapeList()->AddTail(NewRect({0, 0, 10, 4}));
    auto* array = new CShapeArray;
    array->GetShapeList()->AddTail(group);
    array->SetArrayInfo(2, 2, 1, 1, 3, 0);
    auto* outer = new CShapeGroup;
    outer->GetShapeList()->AddTail(array);
    outer->GetShapeList()->AddTail(NewRect({100, 0, 1, 1}));
    const Document saved = MakeList<Document>({outer});
    StreamFile first, second;
    saved->Save(first.File());
    first.Rewind();
    const Document read = MakeList<Document>();
    ASSERT_EQ(read->Read(first.File(), 14), 0);
    read->Save(second.File());
    EXPECT_EQ(first.Hex(), second.Hex());
    EXPECT_EQ(Rect(read->GetRect(false)), Rect(saved->GetRect(false)));
}
