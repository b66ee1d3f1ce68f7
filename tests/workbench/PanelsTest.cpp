// The panels around the drawing and the menu of jobs, in the real window.
#include "TestQuestions.h"

#include "edits/Import.h"
#include "edits/Structure.h"
#include "edits/Transforms.h"
#include "job/JobPreview.h"
#include "look/Language.h"
#include "tools/TextTool.h"
#include "window/MainWindow.h"
#include "window/SidePanels.h"

#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "text/ShapeText.h"
#include "vector/ShapeVector.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QDoubleSpinBox>
#include <QFile>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTableWidget>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

namespace {

CShape* Square(const QRectF& rect, unsigned int color = 0)
{
    auto* shape = new CShapeVector;
    shape->SetShapeRect(rect);
    shape->SetColor(color);
    return shape;
}

struct PanelsTest : testing::Test
{
    PanelsTest() { window.show(); }

    WorkDocument& Document() { return window.Document(); }
    CShape& Shape(unsigned i) { return *Document().Shapes().GetShape(i); }
    /// The field with that name, once the panels show what is selected.
    template <class Widget>
    Widget& Find(const QString& name)
    {
        for (int i = 0; i < 3; ++i)
            QApplication::processEvents();
        for (Widget* widget : window.findChildren<Widget*>())
            if (widget->accessibleName() == name || widget->property("text").toString() == name)
                return *widget;
        throw std::runtime_error(name.toStdString());
    }
    void Set(const QString& field, double value) { Find<QDoubleSpinBox>(field).setValue(value); }
    void Press(const QString& button) { Find<QAbstractButton>(button).click(); }
    QByteArray Text(const QString& name)
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "none";
    }

    TestQuestions questions;
    MainWindow window{questions};
    QTemporaryDir folder;
};

} // namespace

TEST_F(PanelsTest, place_and_size_are_set_by_number_and_taken_back)
{
    Document().Insert("Squares", {Square({10, 20, 20, 10}), Square({40, 20, 10, 10})});
    const QByteArray first = Document().Bytes();
    const auto rect = [this] { return window.Canvas().SelectionRect(); };
    Set("Left edge", 50);
    EXPECT_EQ(rect(), QRectF(50, 20, 40, 10));
    Set("Width", 20);
    EXPECT_EQ(rect(), QRectF(50, 20, 20, 5)) << "in proportion";
    Press("&Keep proportions");
    Set("Height", 8);
    EXPECT_EQ(rect(), QRectF(50, 20, 20, 8));
    Press("Align left edges");
    EXPECT_EQ(Shape(1).GetRect(false), QRectF(50, 20, 5, 8));
    Press("Mirror left to right");
    EXPECT_EQ(Shape(1).GetRect(false), QRectF(55, 20, 5, 8));
    while (Document().Undo().index() > 1)
        Document().Undo().undo();
    EXPECT_EQ(Document().Bytes(), first);
}

TEST_F(PanelsTest, texts_change_field_by_field_and_keep_their_centre)
{
    auto* text = new CShapeText;
    qstrcpy(text->GetTextP()->pText, "two\nlines");
    text->GetTextP()->ptCenter = {100, 100};
    text->UpdatePainterPath();
    Document().Insert("Text", {text});
    Set("Size of the font", 10);
    Set("Added between letters", 2);
    Press("Bold");
    Press("Lines to the right");
    Press("In &columns");
    const SText changed = static_cast<CShapeText&>(Shape(0)).GetText();
    EXPECT_EQ(changed.dScaleX * 20, 10) << "of 20 font pixels";
    EXPECT_EQ(changed.dCharSpacing * changed.dScaleX, 2);
    EXPECT_TRUE(changed.font.bBold && changed.font.bVerticalText);
    EXPECT_EQ(changed.nAlign, ETEXTALIGNMENT_RIGHT);
    EXPECT_EQ(changed.ptCenter, QPointF(100, 100));
}

TEST_F(PanelsTest, pictures_are_cut_and_inverted_where_they_lie)
{
    ImportFiles(Document(), {SAMPLES "/medallion.png"});
    const QRectF rect = Shape(0).GetRect(true);
    const auto pixels = [this] { return static_cast<CShapeImage&>(Shape(0)).GetImage(false); };
    const cv::Mat first = pixels();
    Press("I&nvert");
    const cv::Mat inverted = pixels();
    ASSERT_EQ(inverted.size(), first.size());
    EXPECT_EQ(cv::norm(first + inverted, cv::Mat(first.size(), CV_8UC1, cv::Scalar(255)), cv::NORM_INF), 0);
    Set("Cut off the left", rect.width() / 2);
    Press("Cro&p");
    EXPECT_NEAR(Shape(0).GetRect(true).left(), rect.center().x(), 1e-6);
    EXPECT_NEAR(Shape(0).GetRect(true).width(), rect.width() / 2, 1e-6);
    EXPECT_EQ(cv::norm(pixels(), inverted(cv::Rect(first.cols / 2, 0, first.cols / 2, first.rows)), cv::NORM_INF), 0);
}

TEST_F(PanelsTest, an_array_is_read_back_changed_and_keeps_the_cells_that_are_left_out)
{
    for (const ArrayGrid& grid : {ArrayGrid{2, 3, 5, 6, 0, 0}, ArrayGrid{3, 4, 5, 6, 7, 2}, ArrayGrid{1, 5, 5, 0, 0, 3},
                                  ArrayGrid{5, 1, 0, 6, 4, 0}, ArrayGrid{2, 2, -4, -4, 0, 0}}) {
        Document().New();
        Document().Insert("Square", {Square({10, 10, 10, 10})});
        ArraySelection(Document(), grid);
        const auto read = GridOf(static_cast<CShapeArray&>(Shape(0)));
        ASSERT_TRUE(read);
        EXPECT_EQ(
            std::tuple(read->rows, read->columns, read->columnGap, read->rowGap, read->rowShift, read->columnShift),
            std::tuple(grid.rows, grid.columns, grid.columnGap, grid.rowGap, grid.rowShift, grid.columnShift));
    }
    Find<QTableWidget>("Cells").item(0, 1)->setCheckState(Qt::Unchecked);
    EXPECT_EQ(static_cast<CShapeArray&>(Shape(0)).GetCount(), 3);
    Set("Columns", 3);
    Press("Change &Array");
    EXPECT_EQ(static_cast<CShapeArray&>(Shape(0)).GetCount(), 5);
    EXPECT_EQ(static_cast<CShapeArray&>(Shape(0)).GetShapeArrayInfo()[1].bValid, 0);

    Document().New(); // More rows than are shown one by one.
    Document().Insert("Square", {Square({10, 10, 10, 10})});
    ArraySelection(Document(), {40, 2, 5, 5, 0, 0});
    Press("Change &Array");
    EXPECT_EQ(static_cast<CShapeArray&>(Shape(0)).GetCount(), 80) << "nothing of the array before";
    Document().Change("Cell", Document().Selection(), [](CShape& shape) {
        static_cast<CShapeArray&>(shape).SetInvalid(3);
        return true;
    });
    Set("Columns", 3);
    Press("Change &Array");
    EXPECT_EQ(static_cast<CShapeArray&>(Shape(0)).GetCount(), 119);
    TurnSelection(Document(), 30, {0, 0});
    EXPECT_FALSE(Find<QDoubleSpinBox>("Rows").isEnabled()) << "they say nothing of this array";
}

/// 10.123456 mm are 0.3986 in as they are shown: only the field that is changed gets other millimetres.
TEST_F(PanelsTest, inches_are_shown_and_typed_and_nothing_is_rounded_by_them)
{
    Document().Insert("Square", {Square({10.123456, 20, 20.654321, 10}, 0xFF0000)});
    shapedocument::ColorSetting slow;
    slow.feed = 444.4444;
    Document().Layers().Set(0xFF0000, slow);
    window.Action("view.inches")->setChecked(true);
    EXPECT_EQ(Find<QDoubleSpinBox>("Left edge").text(), "0.3986 in");
    Find<QAbstractButton>("&Keep proportions").setChecked(false);
    Set("Height", 2);
    Set("Top edge", 1);
    ArraySelection(Document(), {1, 2, 1.23456789, 0, 0, 0});
    Set("Rows", 2);
    Set("Between rows", 0.5);
    Press("Change &Array");
    auto& array = static_cast<CShapeArray&>(Shape(0));
    const QRectF cell = array.GetRect(0);
    for (const auto& [got, expected] :
         {std::pair(cell.left(), 10.123456), std::pair(cell.top(), 25.4), std::pair(cell.width(), 20.654321),
          std::pair(cell.height(), 50.8), std::pair(array.GetRect(1).left() - cell.right(), 1.23456789),
          std::pair(array.GetRect(2).top() - cell.bottom(), 12.7)})
        EXPECT_NEAR(got, expected, 1e-9);
    auto* feed = Find<QTableWidget>("Layers").item(0, 1);
    EXPECT_EQ(feed->text(), "17.498");
    feed->setText("17.4980");
    EXPECT_EQ(Document().Layers().Settings().at(0xFF0000).feed, 17.498 * 25.4);
    Document().Undo().undo();
    EXPECT_EQ(Document().Layers().Settings().at(0xFF0000).feed, 444.4444);
    window.Action("view.inches")->setChecked(false);
    EXPECT_EQ(Find<QDoubleSpinBox>("Left edge").text(), "10.123 mm");
}

TEST_F(PanelsTest, layers_are_changed_undone_saved_and_recovered_with_their_document)
{
    Document().Insert("Squares", {Square({0, 0, 5, 5}, 0xFF0000), Square({9, 0, 5, 5}, 0x0000FF)});
    const QString one = folder.filePath("one.shapes"), two = folder.filePath("two.shapes");
    const auto& settings = Document().Layers().Settings();
    const auto cell = [this](int row, int column) { return Find<QTableWidget>("Layers").item(row, column); };
    ASSERT_TRUE(IsSaved(Document(), one));
    EXPECT_FALSE(QFile::exists(one + ".colors.ini"));
    ASSERT_EQ(Find<QTableWidget>("Layers").rowCount(), 2); // blue, red
    cell(0, 1)->setText("300");
    cell(1, 3)->setText("2");
    cell(0, 2)->setText("much");
    EXPECT_EQ(cell(0, 2)->text(), "");
    EXPECT_TRUE(Document().IsModified());
    Document().Undo().undo();
    EXPECT_EQ(cell(1, 3)->text(), "");
    Document().Undo().undo();
    EXPECT_FALSE(Document().IsModified());
    Document().Undo().setIndex(3);
    const QByteArray layers = "[#0000ff]\nfeed = 300\n[#ff0000]\npasses = 2\n";
    ASSERT_TRUE(IsSaved(Document()));
    EXPECT_EQ(Text(one + ".colors.ini"), layers);
    QFile commented(one + ".colors.ini");
    ASSERT_TRUE(commented.open(QIODevice::WriteOnly) && commented.write("# mine\n" + layers) > 0);
    commented.close();
    ASSERT_TRUE(IsSaved(Document()) && IsSaved(Document(), two));
    EXPECT_EQ(Text(one + ".colors.ini"), "# mine\n" + layers) << "what says the same is not written again";
    EXPECT_EQ(Text(two + ".colors.ini"), layers);
    ASSERT_TRUE(QFile::setPermissions(two, QFile::ReadOwner));
    Document().Layers().Set(0x0000FF, {});
    EXPECT_FALSE(IsSaved(Document(), two));
    EXPECT_EQ(Text(two + ".colors.ini"), layers) << "a drawing that cannot be written changes no layers";
    EXPECT_TRUE(Document().IsModified());
    questions.complaints.clear();
    ASSERT_TRUE(QFile::setPermissions(two, QFile::ReadOwner | QFile::WriteOwner));
    Document().New();
    EXPECT_TRUE(settings.empty());
    ASSERT_TRUE(Document().Open(one));
    EXPECT_EQ(settings.at(0x0000FF).feed, 300);
    Find<QTableWidget>("Layers").setCurrentCell(1, 0);
    Press("Do this layer earlier");
    ASSERT_TRUE(IsSaved(Document()));
    EXPECT_EQ(Text(one + ".colors.ini"), "[#0000ff]\nfeed = 300\norder = 2\n[#ff0000]\npasses = 2\norder = 1\n");

    Document().SetAutosaveInterval(1); // A change of layers alone is written, too, and is what a crash leaves.
    Document().Layers().Set(0x0000FF, {});
    const QString left = folder.filePath(".one.shapes.autosave"), recovered = folder.filePath(".two.shapes.autosave");
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(left); }, 30'000));
    ASSERT_TRUE(QFile::copy(left, recovered) && QFile::copy(left + ".colors.ini", recovered + ".colors.ini"));
    questions.yes = true;
    ASSERT_TRUE(Document().Open(two));
    EXPECT_FALSE(QFile::exists(left + ".colors.ini")) << "as the autosave that it stood beside";
    EXPECT_EQ(questions.asked, QStringList{"Recover changes"});
    EXPECT_EQ(settings.size(), 1u);
    EXPECT_EQ(Text(two + ".colors.ini"), layers) << "not before it is saved";
    ASSERT_TRUE(IsSaved(Document()));
    EXPECT_EQ(Text(two + ".colors.ini"), "[#ff0000]\npasses = 2\norder = 1\n");

    QFile broken(two + ".colors.ini");
    ASSERT_TRUE(broken.open(QIODevice::WriteOnly) && broken.write("nonsense\n") > 0);
    broken.close();
    questions.onComplaint = [this] { window.Canvas().grab(); }; // the message does not wait
    ASSERT_TRUE(Document().Open(two));
    EXPECT_EQ(questions.complaints.size(), 1) << "said, and the document is open";
    Document().Layers().SetOrder({0xFF0000});
    ASSERT_TRUE(IsSaved(Document()));
    EXPECT_EQ(questions.complaints.size(), 2);
    EXPECT_EQ(Text(two + ".colors.ini"), "nonsense\n") << "what could not be read is not overwritten";
}

/// A colour or a layer that is chosen while nothing is selected is that of what is drawn; else that of the selection.
TEST_F(PanelsTest, what_is_drawn_has_the_colour_that_was_chosen)
{
    Document().Insert("Square", {Square({0, 0, 5, 5}, 0xABCDEF)});
    Press("Colour the selection, or what is drawn next, #1976d2");
    EXPECT_EQ(Shape(0).GetColor(), 0x1976D2u);
    Document().Undo().undo();
    const auto drawn = [this] {
        Document().Select({});
        questions.numbers = {{10, 20, 30, 40}};
        window.Action("tool.rectangle")->trigger();
        QTest::keyClick(&window.Canvas(), Qt::Key_Return);
        window.Action("tool.text")->trigger();
        QTest::mouseClick(&window.Canvas(), Qt::LeftButton);
        QTest::keyClicks(static_cast<TextTool&>(window.Canvas().Tool()).Editor(), "text");
        window.Action("tool.polyline")->trigger();
        for (const QPoint pixel : {QPoint(100, 100), QPoint(200, 100)})
            QTest::mouseClick(&window.Canvas(), Qt::LeftButton, {}, pixel);
        window.Action("tool.select")->trigger();
        std::vector<unsigned int> colors;
        for (unsigned int i = 1; i < Document().Shapes().GetCount(); ++i)
            colors.push_back(Shape(i).GetColor());
        Document().Undo().setIndex(1);
        Document().Select({});
        return colors;
    };
    EXPECT_EQ(drawn(), std::vector<unsigned int>(3, 0));
    Press("Colour the selection, or what is drawn next, #d32f2f");
    EXPECT_EQ(Shape(0).GetColor(), 0xABCDEFu);
    EXPECT_EQ(drawn(), std::vector<unsigned int>(3, 0xD32F2F));
    Find<QTableWidget>("Layers").setCurrentCell(0, 1); // A layer's numbers are no choice of it.
    EXPECT_EQ(Document().DrawColor(), 0xD32F2Fu);
    Find<QTableWidget>("Layers").setCurrentCell(0, 0);
    EXPECT_EQ(drawn(), std::vector<unsigned int>(3, 0xABCDEF));
    EXPECT_TRUE(Find<QLabel>("Drawn next: #abcdef").isVisible());
}

/// Every language, the drawing with all panels and the preview: whatever takes the keyboard has a name, and no two
/// letters with Alt are the same.
TEST(Keyboard, reaches_everything_by_a_name_and_a_letter_of_its_own)
{
    for (const QLocale& locale : {QLocale("zh_CN"), QLocale("en")}) {
        look::Translate(*qApp, locale);
        TestQuestions questions;
        MainWindow window(questions);
        window.resize(1200, 1400);
        window.show();
        auto* text = new CShapeText;
        qstrcpy(text->GetTextP()->pText, "text");
        text->UpdatePainterPath();
        ASSERT_EQ(ImportFiles(window.Document(), {SAMPLES "/medallion.png"}), 1);
        window.Document().Insert("Text", {text});
        window.Action("edit.select-all")->trigger();
        for (const bool preview : {false, true}) {
            window.Panels().ShowPreview(preview);
            for (int i = 0; i < 3; ++i)
                QApplication::processEvents();
            QStringList letters, menuLetters;
            const auto take = [](QStringList& taken, const QString& words) {
                const QKeySequence letter = QKeySequence::mnemonic(words);
                EXPECT_FALSE(!letter.isEmpty() && taken.contains(letter.toString())) << words.toStdString();
                taken.append(letter.toString());
            };
            for (QAction* menu : window.menuBar()->actions()) {
                take(letters, menu->text());
                menuLetters.clear();
                for (QAction* action : menu->menu()->actions())
                    take(menuLetters, action->text());
            }
            for (QWidget* widget : window.findChildren<QWidget*>()) {
                if (!widget->isVisible())
                    continue;
                if (auto* label = qobject_cast<QLabel*>(widget); label && label->buddy())
                    take(letters, label->text());
                if (auto* button = qobject_cast<QAbstractButton*>(widget))
                    take(letters, button->text());
                if (widget->isEnabled() && widget->focusPolicy() & Qt::TabFocus && !widget->focusProxy()) {
                    QAccessibleInterface* access = QAccessible::queryAccessibleInterface(widget);
                    EXPECT_FALSE(!access || access->text(QAccessible::Name).isEmpty())
                        << widget->metaObject()->className() << " in " << widget->parent()->metaObject()->className();
                }
            }
        }
    }
}

/// Tab goes through the fields as they are read; F6 to the next part of the window.
TEST_F(PanelsTest, tab_follows_the_eye_and_f6_leaves_the_drawing)
{
    window.resize(1200, 1400);
    Document().Insert("Square", {Square({0, 0, 5, 5})});
    window.activateWindow();
    window.Canvas().setFocus();
    const auto isIn = [this](const char* dock) {
        return window.findChild<QWidget*>(dock)->isAncestorOf(window.focusWidget());
    };
    auto* next = window.Action("view.next-part");
    next->trigger();
    EXPECT_TRUE(isIn("dock.layers"));
    Find<QDoubleSpinBox>("Width");
    next->trigger();
    ASSERT_TRUE(isIn("dock.shape"));
    int seen = 0;
    for (QPoint last(0, -1); isIn("dock.shape"); ++seen) {
        QWidget* field = window.focusWidget();
        const QPoint place = field->mapTo(&window, QPoint());
        constexpr int kRow = 8; // pixels that fields of one row differ by
        EXPECT_TRUE(place.y() > last.y() - kRow && (place.y() > last.y() + kRow || place.x() > last.x()))
            << field->accessibleName().toStdString();
        last = place;
        QTest::keyClick(field, Qt::Key_Tab);
        if (window.focusWidget() == field)
            break;
    }
    EXPECT_GT(seen, 20);
    window.Canvas().setFocus();
    for (int i = 0; i < 3; ++i)
        next->trigger();
    EXPECT_TRUE(window.Canvas().hasFocus());
}

TEST_F(PanelsTest, what_is_being_typed_is_saved)
{
    Document().Insert("Square", {Square({0, 0, 5, 5})});
    questions.saveFile = folder.filePath("typed");
    auto& field = Find<QDoubleSpinBox>("Width");
    window.activateWindow();
    field.setFocus();
    field.selectAll();
    QTest::keyClicks(&field, "42");
    window.Action("file.save")->trigger();
    EXPECT_EQ(Shape(0).GetRect(true).width(), 42);
    EXPECT_TRUE(Document().FinishSaving());
    EXPECT_FALSE(Document().IsModified());
    EXPECT_TRUE(field.hasFocus());
}

TEST(ClosingWindow, goes_while_the_job_of_its_pictures_is_made)
{
    TestQuestions questions;
    MainWindow window(questions);
    window.show();
    ASSERT_EQ(ImportFiles(window.Document(), {SAMPLES "/medallion.png"}), 1);
    window.Panels().ShowPreview(true);
    for (int i = 0; i < 3; ++i)
        QApplication::processEvents();
}

TEST_F(PanelsTest, the_menu_shows_the_job_and_writes_it)
{
    Document().Insert("Square", {Square({10, 10, 30, 30}, 0xFF0000)});
    shapedocument::ColorSetting slow;
    slow.feed = 450;
    Document().Layers().Set(0xFF0000, slow);
    window.Action("job.preview")->trigger();
    EXPECT_TRUE(window.Panels().Preview().isVisible());
    EXPECT_FALSE(window.Canvas().isVisible());
    questions.saveFile = folder.filePath("square");
    window.Action("job.gcode")->trigger();
    EXPECT_EQ(questions.told.size(), 1) << questions.complaints.join("; ").toStdString();
    EXPECT_TRUE(Text(folder.filePath("square.gcode")).contains("G1 X40.0000 Y290.0000 F450"));
    window.Action("tool.rectangle")->trigger();
    EXPECT_TRUE(window.Canvas().isVisible()) << "who takes a tool wants the drawing";
    questions.saveFile = folder.filePath("no/such/folder.gcode");
    window.Action("job.gcode")->trigger();
    EXPECT_EQ(questions.complaints.size(), 1);
}
