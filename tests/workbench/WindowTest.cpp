/// The real window, driven by pointer and keys.
#include "TestQuestions.h"

#include "canvas/PictureCache.h"
#include "canvas/Sheet.h"
#include "edits/Pictures.h"
#include "edits/Transforms.h"
#include "job/JobPainting.h"
#include "job/JobPreview.h"
#include "job/JobTiles.h"
#include "look/Language.h"
#include "look/LengthUnit.h"
#include "look/Look.h"
#include "tools/FrameHandles.h"
#include "tools/SelectTool.h"
#include "tools/TextTool.h"
#include "window/MainWindow.h"
#include "window/SidePanels.h"

#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "text/ShapeText.h"
#include "vector/ShapeVector.h"

#include <QAbstractButton>
#include <QDir>
#include <QDockWidget>
#include <QDoubleSpinBox>
#include <QDropEvent>
#include <QLabel>
#include <QLocale>
#include <QMimeData>
#include <QPainter>
#include <QPlainTextEdit>
#include <QRegularExpression>
#include <QStatusBar>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <cstring>
#include <random>

namespace {

CShape* Block(const QRectF& rect)
{
    auto* shape = new CShapeVector;
    shape->SetShapeRect(rect);
    return shape;
}

/// A window with a fresh drawing, two pixels to the millimetre.
struct Window : testing::Test
{
    Window()
    {
        window.resize(1000, 700);
        window.show();
        window.Canvas().FitBed();
    }

    CanvasView& Canvas() { return window.Canvas(); }
    CShapeList& Shapes() { return window.Document().Shapes(); }
    CShape& Shape(unsigned i) { return *Shapes().GetShape(i); }
    void Do(const char* action) { window.Action(action)->trigger(); }
    QPoint Pixel(QPointF mm) { return Canvas().View().ToPixel(mm).toPoint(); }
    void Click(QPointF mm, Qt::KeyboardModifiers keys = {})
    {
        QTest::mouseClick(&Canvas(), Qt::LeftButton, keys, Pixel(mm));
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers keys = {})
    {
        QTest::mousePress(&Canvas(), Qt::LeftButton, keys, from);
        QMouseEvent move(QEvent::MouseMove, to, Canvas().mapToGlobal(to), Qt::NoButton, Qt::LeftButton, keys);
        QApplication::sendEvent(&Canvas(), &move);
        Canvas().grab(); // What is dragged is painted.
        QTest::mouseRelease(&Canvas(), Qt::LeftButton, keys, to);
    }
    void Drag(QPointF from, QPointF to, Qt::KeyboardModifiers keys = {}) { Drag(Pixel(from), Pixel(to), keys); }
    void Key(Qt::Key key, Qt::KeyboardModifiers keys = {}) { QTest::keyClick(&Canvas(), key, keys); }

    TestQuestions questions;
    MainWindow window{questions};
};

/// Largest difference of a channel of any pixel; edges that are clipped are rounded otherwise.
int Difference(const QImage& a, const QImage& b)
{
    int largest = a.size() == b.size() ? 0 : 255;
    for (int y = 0; y < a.height() && largest < 255; ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            largest = std::max(
                {largest, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)), std::abs(qBlue(p) - qBlue(q))});
        }
    return largest;
}

/// Of the pixels' size on this canvas.
void ExpectNear(const QRectF& rect, const QRectF& expected, double tolerance = 0.6)
{
    EXPECT_NEAR(rect.left(), expected.left(), tolerance);
    EXPECT_NEAR(rect.top(), expected.top(), tolerance);
    EXPECT_NEAR(rect.right(), expected.right(), tolerance);
    EXPECT_NEAR(rect.bottom(), expected.bottom(), tolerance);
}

} // namespace

TEST_F(Window, saving_keeps_edits_and_undoing_gives_the_first_bytes)
{
    const QTemporaryDir folder;
    questions.files = {SAMPLES "/ornament.svg"};
    Do("file.import");
    ASSERT_GT(Shapes().GetCount(), 3u);
    Do("view.fit");
    Do("edit.select-all");
    const QRectF frame = Canvas().SelectionRect();
    const QByteArray first = window.Document().Bytes();
    const auto handles = [&] { return HandlesOf(Canvas().View().ToPixel(Canvas().SelectionRect())); };
    for (int i = 0; i < 4; ++i)
        Drag(Canvas().SelectionRect().center(), Canvas().SelectionRect().center() + QPointF(10, 0));
    ExpectNear(Canvas().SelectionRect(), frame.translated(40, 0), 2);
    for (int i = 0; i < 3; ++i)
        Drag(handles()[8].toPoint(), (handles()[8] + QPointF(80, 20)).toPoint());
    for (int i = 0; i < 3; ++i)
        Drag(handles()[4].toPoint(), (handles()[4] - QPointF(20, 20)).toPoint());
    EXPECT_EQ(window.Document().Undo().index(), 11);
    const QByteArray last = window.Document().Bytes();
    questions.saveFile = folder.filePath("a");
    Do("file.save");
    ASSERT_TRUE(window.OpenFile(folder.filePath("a.shapes")));
    EXPECT_EQ(window.Document().Bytes(), last);

    questions.files = {SAMPLES "/ornament.svg"};
    window.Document().New();
    Do("file.import");
    Do("edit.select-all");
    for (int i = 0; i < 10; ++i)
        Key(Qt::Key_Right);
    for (int i = 0; i < 10; ++i)
        Do("edit.undo");
    EXPECT_EQ(window.Document().Bytes(), first);
}

/// What each drawing tool makes of the same gestures.
TEST_F(Window, tools_draw_what_is_dragged)
{
    const QRectF box(50, 50, 60, 40);
    for (const char* tool : {"tool.rectangle", "tool.ellipse"}) {
        Do(tool);
        Drag(box.topLeft(), box.bottomRight());
        ExpectNear(Shape(Shapes().GetCount() - 1).GetRect(false), box);
        Drag(box.topLeft(), box.bottomRight(), Qt::ShiftModifier);
        ExpectNear(Shape(Shapes().GetCount() - 1).GetRect(false), {50, 50, 60, 60});
    }
    Do("tool.polygon");
    Drag(QPointF(100, 100), QPointF(100, 70));
    ExpectNear(Shape(4).GetRect(false), {74, 70, 52, 60}); // A hexagon on its corner, sides of 30 mm.
    Do("tool.polyline");
    for (const QPointF mm : {QPointF(10, 10), QPointF(60, 10), QPointF(60, 60)})
        Click(mm);
    Click({10, 10}); // On the first point: closed.
    EXPECT_TRUE(Shape(5).IsClose());
    ExpectNear(Shape(5).GetRect(false), {10, 10, 50, 50});
    Do("tool.pen");
    Drag(QPointF(100, 100), QPointF(100, 60));
    Drag(QPointF(160, 100), QPointF(160, 140));
    Key(Qt::Key_Return);
    ExpectNear(Shape(6).GetRect(false), {100, 70, 60, 30}); // Highest at 3/4 of the handles' 40 mm.
    EXPECT_EQ(Shapes().GetCount(), 7u);
    EXPECT_EQ(window.Document().Undo().index(), 7);
    Do("tool.pen");
    Drag(QPointF(200, 100), QPointF(200, 60));
    Drag(QPointF(260, 100), QPointF(260, 140));
    Do("tool.nodes"); // Ends the curve, and shows its points.
    Key(Qt::Key_Tab);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_NEAR(Shape(7).GetRect(false).left(), 190, 1);
    EXPECT_NEAR(Shape(7).GetRect(false).right(), 260, 1);
}

/// Rectangle, polyline and selection without a pointer.
TEST_F(Window, keys_draw_what_the_mouse_would)
{
    Do("tool.rectangle");
    Key(Qt::Key_Space);
    for (int i = 0; i < 5; ++i) {
        Key(Qt::Key_Right);
        Key(Qt::Key_Down);
    }
    Key(Qt::Key_Space);
    ASSERT_EQ(Shapes().GetCount(), 1u);
    EXPECT_NEAR(Shape(0).GetRect(false).width() * Canvas().View().Scale(), 50, 1);
    questions.numbers = {{10, 20, 30, 40}};
    Key(Qt::Key_Return);
    EXPECT_EQ(Shape(1).GetRect(false), QRectF(10, 20, 30, 40));
    Do("tool.select");
    window.Document().Select({});
    Key(Qt::Key_Tab);
    Key(Qt::Key_Tab);
    EXPECT_EQ(window.Document().PlacesOf(window.Document().Selection()), std::vector<int>{1});
    Key(Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_EQ(Shape(1).GetRect(false), QRectF(10, 30, 30, 40));
    Key(Qt::Key_Return);
    Key(Qt::Key_Tab); // The first node: the rectangle's upper left corner.
    Key(Qt::Key_Left);
    EXPECT_EQ(Shape(1).GetRect(false), QRectF(9, 30, 31, 40));
}

TEST_F(Window, handles_resize_and_marquee_selects)
{
    Do("tool.rectangle");
    Drag(QPointF(50, 50), QPointF(110, 90));
    Drag(QPointF(200, 50), QPointF(260, 90));
    Do("tool.select");
    Drag(QPointF(40, 40), QPointF(120, 100)); // To the right: what lies inside.
    EXPECT_EQ(window.Document().PlacesOf(window.Document().Selection()), std::vector<int>{0});
    auto handles = HandlesOf(Canvas().View().ToPixel(Canvas().SelectionRect()));
    Drag(handles[3].toPoint(), (handles[3] + QPointF(Canvas().View().Scale() * 30, 0)).toPoint());
    ExpectNear(Shape(0).GetRect(false), {50, 50, 90, 40});
    Drag(QPointF(300, 70), QPointF(130, 75)); // To the left: what is touched.
    EXPECT_EQ(window.Document().Selection().size(), 2u);
    Click({200, 70}, Qt::ShiftModifier);
    EXPECT_EQ(window.Document().PlacesOf(window.Document().Selection()), std::vector<int>{0});
    Do("edit.delete");
    EXPECT_EQ(Shapes().GetCount(), 1u);
}

/// Two pixels are a millimetre, about: what pulls does so from 3 mm.
TEST_F(Window, what_is_dragged_snaps_to_shapes_and_grid_unless_ctrl_is_held)
{
    Canvas().ShowGrid(false);
    window.Action("view.snap")->setChecked(true);
    Do("tool.rectangle");
    Drag(QPointF(52.3, 51.7), QPointF(81.4, 72.8), Qt::ControlModifier);
    const QRectF fixed = Shape(0).GetRect(false);
    Drag(QPointF(150, 150), QPointF(170, 160), Qt::ControlModifier);
    Drag(fixed.bottomRight() + QPointF(1, 1), QPointF(120, 120)); // The first corner's node pulls.
    EXPECT_EQ(Shape(2).GetRect(false).topLeft(), fixed.bottomRight());
    Do("edit.undo");
    Do("tool.select");
    window.Document().Select({&Shape(1)});
    const QPointF from = Shape(1).GetRect(false).center();
    for (const bool free : {false, true}) { // Left edges and middles.
        const QPointF to(from.x() + fixed.left() - Shape(1).GetRect(false).left() + 1, fixed.center().y() - 1);
        Drag(from, to, free ? Qt::ControlModifier : Qt::NoModifier);
        EXPECT_EQ(std::abs(Shape(1).GetRect(false).left() - fixed.left()) < 1e-6, !free);
        EXPECT_EQ(std::abs(Shape(1).GetRect(false).center().y() - fixed.center().y()) < 1e-6, !free);
        Do("edit.undo");
    }
    window.Action("view.snap")->setChecked(false);
    Drag(from, QPointF(from.x() + fixed.left() - Shape(1).GetRect(false).left() + 1, 100));
    EXPECT_GT(std::abs(Shape(1).GetRect(false).left() - fixed.left()), 0.1);
    window.Action("view.snap")->setChecked(true);
    Canvas().ShowGrid(true);
    Canvas().Zoom(8); // A grid of millimetres, 16 pixels each.
    window.Document().New();
    Do("tool.polyline");
    Click(QPointF(200.2, 150.3));
    Click(QPointF(210.1, 150.3));
    Key(Qt::Key_Return);
    EXPECT_EQ(Shape(0).GetRect(false), QRectF(200, 150, 10, 0));
}

/// The frame of 60 by 40 mm keeps its proportions; of the lines near its corner it lies on the shown one.
TEST_F(Window, a_corner_snaps_along_the_diagonal)
{
    Canvas().ShowGrid(false);
    window.Document().Insert("", {Block({60, 60, 60, 40}), Block({180, 200, 20, 20})});
    const struct
    {
        QPointF corner; ///< where the pointer goes
        QRectF frame;
        bool isX;
    } rows[] = {{{179, 120}, {60, 60, 120, 80}, true},   // wide: x leads
                {{150, 139}, {60, 60, 120, 80}, true},   // high: the side that follows comes near the line
                {{230, 199}, {60, 60, 210, 140}, false}, // only y
                {{70, 70}, {60, 60, 15, 10}, false}};    // none
    for (const auto& row : rows) {
        window.Document().Select({&Shape(0)});
        const QPointF from = HandlesOf(Canvas().View().ToPixel(Canvas().SelectionRect()))[4];
        const QPointF to = from + Canvas().View().ToPixel(row.corner) - Canvas().View().ToPixel(QPointF(120, 100));
        QTest::mousePress(&Canvas(), Qt::LeftButton, {}, from.toPoint());
        QMouseEvent move(QEvent::MouseMove, to, Canvas().mapToGlobal(to), Qt::NoButton, Qt::LeftButton, {});
        QApplication::sendEvent(&Canvas(), &move);
        const Snapping& snap = Canvas().Snap();
        const QRectF frame = Canvas().Preview()->mapRect(QRectF(60, 60, 60, 40));
        ExpectNear(frame, row.frame);
        EXPECT_NEAR(frame.width() / frame.height(), 1.5, 1e-9);
        EXPECT_NEAR(snap.GuideX().value_or(frame.right()), frame.right(), 1e-9);
        EXPECT_NEAR(snap.GuideY().value_or(frame.bottom()), frame.bottom(), 1e-9);
        EXPECT_EQ(snap.GuideX().has_value(), row.isX) << row.corner.x();
        Key(Qt::Key_Escape);
        QTest::mouseRelease(&Canvas(), Qt::LeftButton, {}, to.toPoint());
    }
}

/// In every palette what burns is dark and what does not is light, on the canvas and in the preview.
TEST_F(Window, pictures_are_no_negatives)
{
    QImage half(100, 100, QImage::Format_Grayscale8);
    half.fill(Qt::white);
    for (int y = 0; y < 100; ++y)
        std::memset(half.scanLine(y), 0, 52);
    const QTemporaryDir folder;
    questions.files = {folder.filePath("half.png")};
    ASSERT_TRUE(half.save(questions.files.front()));
    Do("file.import");
    const QRectF rect = Shape(0).GetRect(false);
    window.Document().Select({});
    Do("view.fit");
    for (const look::Theme theme : {look::Theme::Dark, look::Theme::Light}) {
        look::Apply(*qApp, theme);
        QApplication::processEvents();
        const QImage shown = Canvas().grab().toImage();
        const auto at = [&](double part) {
            return shown.pixelColor(Pixel({rect.left() + part * rect.width(), rect.center().y()})).lightness();
        };
        EXPECT_LT(at(0.25), 40);
        EXPECT_GT(at(0.75), 150);
        JobPreview& preview = window.Panels().Preview();
        ASSERT_TRUE(preview.MakeReady(questions));
        QImage job(400, 400, QImage::Format_RGB32);
        const QTransform toPixels = Fitting(rect, QRectF(job.rect()));
        JobTiles tiles;
        tiles.Begin(preview.Job(), rect, {toPixels, job.rect(), true, RowsInColor(*preview.Job())}, 1);
        for (const size_t done : {preview.Job()->Steps().size(), size_t(0)}) { // burned, and waiting, which is faint
            QPainter painter(&job);
            ASSERT_TRUE(tiles.Paint(painter, {0, 0}, job.size(), done, 60'000));
            EXPECT_LT(job.pixelColor(100, 200).lightness(), done > 0 ? 40 : 220);
            EXPECT_GT(job.pixelColor(300, 200).lightness() - job.pixelColor(100, 200).lightness(), 30);
        }
    }
    look::Apply(*qApp, look::Theme::System);
}

/// The copies that edits leave are shown as pictures that are made anew; what was only moved is not made anew.
TEST_F(Window, pictures_are_taken_over_by_copies_that_look_the_same)
{
    questions.files = {SAMPLES "/medallion.png"};
    Do("file.import");
    const std::pair<std::function<bool()>, bool> edits[] = {
        {[&] {
             return MoveSelection(window.Document(), {3, 4});
         },
         true},
        {[&] { return MirrorSelectionX(window.Document()); }, false},
        {[&] {
             return TurnSelection(window.Document(), 30, {0, 0});
         },
         false},
        {[&] {
             return MoveSelection(window.Document(), {-0.1, 1 / 3.0});
         },
         true},
        {[&] {
             return ResizeSelection(window.Document(), {0, 0, 60, 30});
         },
         false},
        {[&] { return InvertPictures(window.Document()); }, false},
        {[&] {
             return CropPictures(window.Document(), {1, 2, 3, 4});
         },
         false},
        {[&] {
             return MoveSelection(window.Document(), {1, 1});
         },
         false}}; // what is cut off is cut anew
    PictureCache cache;
    const auto image = [&] { return cache.Image(static_cast<CShapeImage&>(Shape(0))); };
    for (const auto& [edit, isTaken] : edits) {
        const qint64 before = image().cacheKey();
        QUndoStack& undo = window.Document().Undo();
        for (const std::function<void()>& step :
             {std::function<void()>(edit), {[&] { undo.undo(); }}, {[&] { undo.redo(); }}}) {
            cache.Forget(Shape(0));
            step();
            EXPECT_EQ(image().cacheKey() == before, isTaken) << undo.undoText().toStdString();
            EXPECT_EQ(image(), PictureCache().Image(static_cast<CShapeImage&>(Shape(0))));
            if (!isTaken)
                cache.DropLeft();
        }
    }
}

TEST_F(Window, mirrors_across_a_line_that_is_drawn)
{
    Canvas().Snap().SetOn(false);
    Do("tool.rectangle");
    Drag(QPointF(50, 50), QPointF(70, 60));
    const QRectF rect = Shape(0).GetRect(false);
    Do("tool.mirror");
    Drag(QPointF(100, 40), QPointF(101, 90), Qt::ShiftModifier); // Upright, by the nearest 15 degrees.
    const double line = Canvas().View().ToMm(QPointF(Pixel({100, 40}))).x();
    ExpectNear(Shape(0).GetRect(false), {QPointF(2 * line - rect.right(), rect.top()), rect.size()}, 1e-6);
    Do("edit.undo");
    Click({100, 100});
    QTest::mouseMove(&Canvas(), Pixel({150, 150}));
    const QRectF shown = Canvas().Preview()->mapRect(rect);
    ExpectNear(shown, {rect.top(), rect.left(), rect.height(), rect.width()}, 2); // Across the diagonal.
    Click({150, 150});
    ExpectNear(Shape(0).GetRect(false), shown, 1e-6);
    Click({10, 10});
    Key(Qt::Key_Escape);
    EXPECT_FALSE(Canvas().Preview());
    window.Document().Select({});
    Click({10, 10});
    EXPECT_EQ(questions.told.back(), "Nothing is selected that could be mirrored");
}

TEST_F(Window, space_and_drag_move_the_view)
{
    Do("tool.rectangle");
    const QPointF before = Canvas().View().ToPixel(QPointF());
    QTest::keyPress(&Canvas(), Qt::Key_Space);
    Drag(QPoint(100, 100), QPoint(130, 90));
    QTest::keyRelease(&Canvas(), Qt::Key_Space);
    EXPECT_EQ(Canvas().View().ToPixel(QPointF()), before + QPointF(30, -10));
    EXPECT_TRUE(Shapes().IsEmpty());
}

TEST(Sheet, inches_have_fractions)
{
    const std::pair<double, const char*> numbers[] = {
        {0, "0"}, {1.75, "1 3/4"}, {-0.5, "-1/2"}, {-2.125, "-2 1/8"}, {12, "12"}};
    const std::tuple<double, double, double> grids[] = {// pixels per mm, fine and coarse lines in inches
                                                        {1, 0.5, 1},
                                                        {3, 0.125, 1},
                                                        {0.3, 1, 10},
                                                        {0.02, 20, 200}};
    look::LengthUnit::Shown().ShowInches(true);
    for (const auto& [number, text] : numbers)
        EXPECT_EQ(RulerNumber(number), text);
    for (const auto& [scale, fine, coarse] : grids) {
        EXPECT_DOUBLE_EQ(GridOf(scale).fine, fine * 25.4) << scale;
        EXPECT_DOUBLE_EQ(GridOf(scale).coarse, coarse * 25.4) << scale;
    }
    look::LengthUnit::Shown().ShowInches(false);
    EXPECT_EQ(RulerNumber(1.75), "1.75");
    EXPECT_DOUBLE_EQ(GridOf(2).fine, 10);
}

TEST_F(Window, texts_are_typed_in_place)
{
    Do("tool.text");
    Click({100, 100});
    auto* tool = dynamic_cast<TextTool*>(&Canvas().Tool());
    ASSERT_TRUE(tool && tool->Editor());
    QTest::keyClicks(tool->Editor(), "Maker");
    QTest::keyClick(tool->Editor(), Qt::Key_Escape);
    ASSERT_EQ(Shapes().GetCount(), 1u);
    auto* text = dynamic_cast<CShapeText*>(&Shape(0));
    ASSERT_TRUE(text);
    EXPECT_STREQ(text->GetTextP()->pText, "Maker");
    ExpectNear({text->GetRect(false).topLeft(), QSizeF(0, 0)}, {100, 100, 0, 0});
    Click(text->GetRect(false).center());
    QTest::keyClicks(tool->Editor(), "s");
    Do("tool.select"); // Another tool ends typing.
    EXPECT_STREQ(dynamic_cast<CShapeText&>(Shape(0)).GetTextP()->pText, "Makers");
    ExpectNear({Shape(0).GetRect(false).topLeft(), QSizeF(0, 0)}, {100, 100, 0, 0}); // It grows to the right.
    Do("edit.undo");
    EXPECT_STREQ(dynamic_cast<CShapeText&>(Shape(0)).GetTextP()->pText, "Maker");
    Do("tool.text");
    Click({10, 10});
    dynamic_cast<TextTool&>(Canvas().Tool()).Editor()->setPlainText(QString(TEXT_BUFFER_SIZE, 'i'));
    Do("tool.select");
    EXPECT_EQ(questions.complaints, QStringList("The text is longer than a text shape holds; its end was cut off."));
}

TEST_F(Window, cells_are_selected_and_deleted_one_by_one)
{
    Do("tool.rectangle");
    Drag(QPointF(50, 50), QPointF(70, 60));
    questions.numbers = {{2, 3, 10, 10, 0, 0}};
    Do("shape.array");
    auto& array = dynamic_cast<CShapeArray&>(Shape(0));
    EXPECT_EQ(array.GetCount(), 6);
    Do("tool.select");
    QTest::mouseDClick(&Canvas(), Qt::LeftButton, {}, Pixel(array.GetRect(4).center()));
    Click(array.GetRect(4).center());
    Click(array.GetRect(0).center(), Qt::ShiftModifier);
    EXPECT_EQ(array.GetSelectCount(), 2);
    Canvas().grab();
    Do("edit.delete");
    EXPECT_EQ(dynamic_cast<CShapeArray&>(Shape(0)).GetCount(), 4);
    Do("edit.undo");
    EXPECT_EQ(dynamic_cast<CShapeArray&>(Shape(0)).GetCount(), 6);
}

/// Locale, and what the status bar says of one shape and of two.
TEST_F(Window, plurals_are_those_of_the_language)
{
    const struct
    {
        QLocale locale;
        QString one, two;
    } rows[] = {{QLocale("zh_CN"), "1 个图形", "2 个图形"},
                {QLocale("nn_NO"), "1 shape", "2 shapes"}, // not translated
                {QLocale("en_GB"), "1 shape", "2 shapes"}};
    const auto isSaid = [this](const QString& text) {
        const auto labels = window.statusBar()->findChildren<QLabel*>();
        return std::ranges::any_of(labels, [&](const QLabel* label) { return label->text() == text; });
    };
    for (const auto& row : rows) {
        look::Translate(*qApp, row.locale);
        window.Document().New();
        for (const QString& said : {row.one, row.two}) {
            window.Document().Insert("", {CShape::NewShape(ESHAPE_VECTOR)});
            window.Document().Select({});
            EXPECT_TRUE(isSaid(said)) << said.toStdString();
        }
    }
}

TEST_F(Window, drop_imports_and_names_what_it_cannot)
{
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(SAMPLES "/medallion.png"), QUrl::fromLocalFile(SAMPLES "/draw_samples.py")});
    const QPointF at = Canvas().mapTo(&window, Pixel({100, 50}));
    QDragEnterEvent enter(at.toPoint(), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    ASSERT_EQ(Shapes().GetCount(), 1u);
    ExpectNear({Shape(0).GetRect(true).topLeft(), QSizeF(0, 0)}, {100, 50, 0, 0});
    ASSERT_EQ(questions.complaints.size(), 1);
    EXPECT_TRUE(questions.complaints.front().contains("draw_samples.py: is no drawing, picture or text"));
}

/// The answer, whether the window closes, whether the file is written.
TEST_F(Window, closing_asks_about_unsaved_work)
{
    const QTemporaryDir folder;
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(questions.asked.isEmpty());
    window.show();
    Do("tool.rectangle");
    Drag(QPointF(50, 50), QPointF(70, 60));
    questions.unsaved = Questions::Unsaved::Cancel;
    EXPECT_FALSE(window.close());
    questions.unsaved = Questions::Unsaved::Save;
    EXPECT_FALSE(window.close()); // No file was named.
    questions.saveFile = folder.filePath("kept");
    EXPECT_TRUE(window.close());
    EXPECT_TRUE(QFile::exists(folder.filePath("kept.shapes")));
    EXPECT_EQ(questions.asked.size(), 3);
    window.show();

    QFile other(folder.filePath("other.shapes"));
    ASSERT_TRUE(other.open(QIODevice::WriteOnly));
    other.close();
    questions.saveFile = folder.filePath("other"); // Only with its ending it is the name of a file.
    for (const bool lose : {false, true}) {
        questions.lose = lose;
        Do("file.save-as");
        EXPECT_EQ(questions.asked.back(), "Loss: Save As");
        EXPECT_TRUE(window.Document().FinishSaving());
        EXPECT_EQ(QFileInfo(other).size() > 0, lose);
    }
}

/// Saving goes on while the window is closed: it waits, and stays when the file could not be written.
TEST_F(Window, closing_waits_for_the_file)
{
    const QTemporaryDir folder;
    Do("tool.rectangle");
    Drag(QPointF(50, 50), QPointF(70, 60));
    questions.saveFile = folder.filePath("none/a.shapes");
    Do("file.save");
    EXPECT_FALSE(window.close());
    EXPECT_EQ(questions.complaints.size(), 1);
    questions.saveFile = folder.filePath("a.shapes");
    Do("file.save");
    EXPECT_TRUE(window.isWindowModified());
    questions.givesUp = true;
    EXPECT_FALSE(window.close());
    EXPECT_EQ(questions.told.back(), "Saving a.shapes goes on");
    questions.givesUp = false;
    EXPECT_TRUE(window.close());
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(window.windowTitle(), "a.shapes[*]");
    EXPECT_TRUE(questions.asked.isEmpty());
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("a.shapes"));
}

/// Every action, click, drag and key by chance, while the drawing is saved and autosaved beside it: nothing breaks, and
/// undone, the drawing is as it was.
TEST_F(Window, anything_done_by_chance_can_be_undone)
{
    const QTemporaryDir folder;
    questions.saveFile = folder.filePath("chance.shapes");
    window.Document().SetAutosaveInterval(1);
    questions.files = {SAMPLES "/medallion.png"};
    Do("file.import");
    for (const QRectF& box : {QRectF(20, 20, 60, 40), QRectF(120, 30, 40, 40)}) {
        Do("tool.rectangle");
        Drag(box.topLeft(), box.bottomRight());
    }
    questions.files.clear();
    const QByteArray first = window.Document().Bytes();
    const int start = window.Document().Undo().index();
    std::mt19937 random(qEnvironmentVariableIntValue("WORKBENCH_SEED"));
    const auto whole = [&](int below) { return std::uniform_int_distribution<int>(0, below - 1)(random); };
    QList<QAction*> actions;
    for (QAction* action : window.findChildren<QAction*>())
        if (QRegularExpression("^(file[.]save$|edit[.](?!undo)|shape[.]|tool[.]|view[.])")
                .match(action->objectName())
                .hasMatch())
            actions.append(action);
    const auto usePanel = [&] { // a button, a number or a cell of a table, whichever is there
        QApplication::processEvents();
        QWidgetList fields;
        for (const char* dock : {"dock.shape", "dock.layers"})
            for (QWidget* widget : window.findChild<QDockWidget*>(dock)->widget()->findChildren<QWidget*>())
                if (widget->isVisible() && widget->isEnabled() && !widget->accessibleName().isEmpty())
                    fields.append(widget);
        QWidget* field = fields[whole(static_cast<int>(fields.size()))];
        if (auto* button = qobject_cast<QAbstractButton*>(field))
            button->click();
        else if (auto* number = qobject_cast<QDoubleSpinBox*>(field))
            number->setValue(1 + whole(30) / 10.0);
        else if (auto* table = qobject_cast<QTableWidget*>(field); table && table->rowCount() > 0)
            if (auto* item = table->item(whole(table->rowCount()), whole(table->columnCount())))
                item->flags() & Qt::ItemIsUserCheckable ? item->setCheckState(Qt::Unchecked)
                                                        : item->setText(QString::number(whole(4)));
    };
    const auto pixel = [&] { return QPoint(whole(Canvas().width()), whole(Canvas().height())); };
    const std::array keys{Qt::Key_Return, Qt::Key_Escape, Qt::Key_Tab,       Qt::Key_Backtab, Qt::Key_Left,
                          Qt::Key_Down,   Qt::Key_Space,  Qt::Key_Backspace, Qt::Key_Plus,    Qt::Key_A};
    const int steps = std::max(250, qEnvironmentVariableIntValue("WORKBENCH_STEPS"));
    for (int i = 0; i < steps; ++i) {
        questions.numbers = std::vector<double>(6, 1 + whole(3));
        QWidget* field = Canvas().findChild<QPlainTextEdit*>();
        switch (whole(7)) {
        case 0:
            Drag(pixel(), pixel(), whole(4) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
            break;
        case 1:
            QTest::mouseClick(&Canvas(), Qt::LeftButton, {}, pixel());
            break;
        case 2:
            QTest::mouseDClick(&Canvas(), Qt::LeftButton, {}, pixel());
            break;
        case 3:
            QTest::keyClick(field ? field : &Canvas(), keys[static_cast<size_t>(whole(keys.size()))]);
            break;
        case 4:
            QTest::mouseMove(&Canvas(), pixel());
            break;
        case 5:
            usePanel();
            break;
        default:
            if (whole(9) == 0 && window.Document().Undo().index() > start)
                Do("edit.undo"); // What the drawing began with stays to be undone to.
            else if (Shapes().GetCount() < 40)
                actions[whole(static_cast<int>(actions.size()))]->trigger();
            else
                window.Document().Undo().setIndex(start + whole(10));
        }
        if (whole(10) == 0) { // What is painted in parts is what is painted at once.
            const QImage parts = Canvas().grab().toImage();
            Canvas().SetBed(Canvas().Bed());
            ASSERT_LE(Difference(Canvas().grab().toImage(), parts), 8) << i;
        }
        if (whole(20) == 0)
            Do("view.fit-bed");
    }
    Do("tool.select");
    window.Document().Undo().setIndex(start);
    EXPECT_EQ(window.Document().Bytes(), first);
    EXPECT_TRUE(window.Document().Layers().Settings().empty());
    Do("file.save");
    EXPECT_TRUE(window.Document().FinishSaving());
    EXPECT_FALSE(window.isWindowModified());
    ASSERT_TRUE(window.OpenFile(window.Document().Path()));
    EXPECT_EQ(window.Document().Bytes(), first);
}
