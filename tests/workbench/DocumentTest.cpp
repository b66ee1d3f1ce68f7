/// The open drawing: edits and the way back, files and what is left of crashes.
#include "TestQuestions.h"

#include "document/WorkDocument.h"
#include "edits/Clipboard.h"
#include "edits/Import.h"
#include "edits/Nodes.h"
#include "edits/Pictures.h"
#include "edits/Structure.h"
#include "edits/Texts.h"
#include "edits/Tidy.h"
#include "edits/Transforms.h"

#include "document/DocumentFile.h"
#include "fit/PathNodes.h"
#include "group/ShapeArray.h"
#include "text/ShapeText.h"
#include "vector/ShapeVector.h"

#include <QDateTime>
#include <QDir>
#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <gtest/gtest.h>

#include <csignal>
#include <cstring>
#include <functional>
#include <random>
#include <sys/resource.h>

namespace {

CShape* Rectangle(const QRectF& rect)
{
    auto* vector = static_cast<CShapeVector*>(CShape::NewShape(ESHAPE_VECTOR));
    vector->SetShapeRect(rect);
    vector->SetVectorType(EVECTOR_RECT);
    return vector;
}

CShape* Word(const char* word, QPointF at)
{
    auto* shape = static_cast<CShapeText*>(CShape::NewShape(ESHAPE_TEXT));
    std::strcpy(shape->GetTextP()->pText, word);
    shape->GetTextP()->ptCenter = at;
    shape->UpdatePainterPath();
    return shape;
}

/// The random edits begin with every kind of shape: drawn ones, a text, a textured picture, a group and an array with a
/// group in it.
void Fill(WorkDocument& document)
{
    for (int i = 0; i < 6; ++i)
        document.Insert("", {Rectangle({i * 20.0, 0, 15, 10})});
    document.Insert("", {Word("Workbench", {60, 40})});
    ASSERT_EQ(ImportFiles(document, {SAMPLES "/medallion.png"}), 1);
    document.Select({document.Shapes().GetShape(0), document.Shapes().GetShape(1)});
    ASSERT_TRUE(GroupSelection(document));
    document.Select({document.Shapes().GetShape(0), document.Selection().front()});
    ASSERT_TRUE(ArraySelection(document, {2, 2, 3, 3, 0, 0}));
    document.Select({});
}

/// Everything that a user can do to some shapes, with numbers by chance.
class Chance
{
public:
    explicit Chance(unsigned seed) : m_random(seed) {}

    bool Edit(WorkDocument& document)
    {
        SelectSome(document);
        const std::vector<std::function<bool()>> edits{
            [&] {
                return MoveSelection(document, {Number(-50, 50), Number(-50, 50)});
            },
            [&] {
                return ResizeSelection(document, {Number(0, 50), Number(0, 50), Number(1, 90), Number(1, 90)});
            },
            [&] {
                return TurnSelection(document, Number(-180, 180), {Number(0, 100), Number(0, 100)});
            },
            [&] { return MirrorSelectionX(document); },
            [&] { return MirrorSelectionY(document); },
            [&] {
                return MirrorSelectionAcross(document, {Number(0, 50), Number(0, 50), Number(51, 99), Number(0, 99)});
            },
            [&] { return OrderSelection(document, static_cast<Order>(Whole(4))); },
            [&] { return document.Shapes().GetCount() < 30 && DuplicateSelection(document); },
            [&] { return document.Shapes().GetCount() > 6 && document.Remove("Delete", document.Selection()); },
            [&] { return GroupSelection(document); },
            [&] { return document.Shapes().GetCount() < 60 && UngroupSelection(document); },
            [&] {
                return Whole(4) == 0 && ArraySelection(document, {1 + Whole(2), 2, Number(0, 9), 1, 0, 0});
            },
            [&] { return LockSelection(document); },
            [&] { return HideSelection(document); },
            [&] { return UnlockAll(document); },
            [&] { return ShowAll(document); },
            [&] { return CloseSelection(document, true); },
            [&] { return UnfillSelection(document); },
            [&] { return CleanUp(document); },
            [&] {
                const auto color = static_cast<unsigned>(Whole(0xFFFFFF));
                return document.Change("Colour", document.Selection(), [&](CShape& shape) {
                    shape.SetColor(color);
                    return true;
                });
            },
            [&] { return MoveNode(document); },
            [&] {
                return CropPictures(document, {Number(0, 9), Number(0, 9), Number(0, 9), Number(0, 9)});
            },
            [&] { return InvertPictures(document); },
            [&] { return ChangeWords(document, QString(Whole(9), QChar('a' + Whole(26)))); },
            [&] {
                const double size = Number(0.01, 1);
                return ChangeTexts(document, "Size", [&](SText& text) { text.dScaleX = text.dScaleY = size; });
            },
            [&] {
                return ChangeArrays(document, {1 + Whole(2), 2 + Whole(2), Number(-9, 9), 1, 0, 2}, {Whole(5)});
            },
            [&] {
                shapedocument::ColorSetting setting;
                setting.feed = Number(1, 9);
                return document.Layers().Set(static_cast<unsigned>(Whole(4)), setting);
            },
            [&] {
                return document.Layers().SetOrder({static_cast<unsigned>(Whole(4)), 4});
            }};
        return edits[static_cast<size_t>(Whole(static_cast<int>(edits.size())))]();
    }

    int Whole(int below) { return std::uniform_int_distribution<int>(0, below - 1)(m_random); }

private:
    double Number(double from, double to) { return std::uniform_real_distribution<double>(from, to)(m_random); }

    /// Moves, removes or adds a node of the first selected shape.
    bool MoveNode(WorkDocument& document)
    {
        CShape* shape = document.Selection().empty() ? nullptr : document.Selection().front();
        if (!shape || shape->GetShapeType() != ESHAPE_VECTOR)
            return false;
        QPainterPath path = *shape->GetPath(false);
        const auto nodes = shapedocument::NodesOf(path);
        if (nodes.empty())
            return false;
        const auto& node = nodes[static_cast<size_t>(Whole(static_cast<int>(nodes.size())))];
        switch (Whole(3)) {
        case 0:
            path = shapedocument::WithNodeInserted(path, node.at + QPointF(Number(-3, 3), 0), 9);
            break;
        case 1:
            if (nodes.size() > 4)
                path = shapedocument::WithNodeRemoved(path, node.element);
            break;
        default:
            path = shapedocument::WithNodeMoved(path, node.element, node.at + QPointF(Number(-9, 9), Number(-9, 9)));
        }
        return !path.isEmpty() && ReplaceOutline(document, "Node", shape, path);
    }

    void SelectSome(WorkDocument& document)
    {
        std::vector<CShape*> some;
        for (int i = 0; i <= Whole(3); ++i)
            some.push_back(document.Shapes().GetShape(
                static_cast<unsigned>(Whole(static_cast<int>(document.Shapes().GetCount())))));
        document.Select(std::move(some));
    }

    std::mt19937 m_random;
};

struct RandomEdits : testing::TestWithParam<unsigned>
{};

} // namespace

/// Edits in rows of ten, each row undone: the bytes of the document are those before it. In the end all is undone.
TEST_P(RandomEdits, that_are_undone_give_the_first_bytes)
{
    TestQuestions questions;
    WorkDocument document(questions);
    Fill(document);
    const QByteArray first = document.Bytes();
    const int start = document.Undo().index();
    Chance chance(GetParam());
    int done = 0;
    for (int tries = 0; done < 500 && tries < 5000; ++tries) {
        const bool look = tries % 25 == 0;
        const QByteArray before = look ? document.Bytes() : QByteArray();
        const int index = document.Undo().index();
        const bool edited = chance.Edit(document);
        done += edited;
        if (look && edited) {
            const QByteArray after = document.Bytes();
            document.Undo().undo();
            ASSERT_EQ(document.Bytes(), before) << document.Undo().redoText().toStdString();
            document.Undo().redo();
            ASSERT_EQ(document.Bytes(), after) << document.Undo().undoText().toStdString();
        }
        if (chance.Whole(6) == 0)
            document.Undo().setIndex(std::max(start, index - chance.Whole(10)));
    }
    EXPECT_GE(done, 500);
    document.Undo().setIndex(start);
    EXPECT_EQ(document.Bytes(), first);
    EXPECT_TRUE(document.Layers().Settings().empty());
    EXPECT_TRUE(questions.complaints.isEmpty()) << questions.complaints.join('\n').toStdString();
}
INSTANTIATE_TEST_SUITE_P(Seeds, RandomEdits, testing::Range(1u, 11u));

TEST(WorkDocument, saved_and_opened_again_is_equal)
{
    const QTemporaryDir folder;
    TestQuestions questions;
    WorkDocument document(questions);
    Fill(document);
    const QByteArray bytes = document.Bytes();
    ASSERT_TRUE(IsSaved(document, folder.filePath("a.shapes")));
    EXPECT_FALSE(document.IsModified());
    WorkDocument opened(questions);
    ASSERT_TRUE(opened.Open(folder.filePath("a.shapes")));
    EXPECT_EQ(opened.Bytes(), bytes);
    EXPECT_EQ(shapedocument::DocumentBytes(document.Shapes(), "a copy is as good", {true}), bytes);
    EXPECT_EQ(opened.Title(), "a.shapes");
    EXPECT_TRUE(questions.complaints.isEmpty() && questions.asked.isEmpty());
}

/// What is written is the drawing at the time of Save; what is edited meanwhile, and undone, counts from there.
TEST(Saving, goes_on_beside_edits_which_are_not_saved)
{
    const QTemporaryDir folder;
    TestQuestions questions;
    WorkDocument document(questions), opened(questions);
    const auto add = [&] { return document.Insert("", {Rectangle({0, 0, 9, 9})}); };
    add();
    ASSERT_TRUE(document.SaveAs(folder.filePath("a.shapes")));
    EXPECT_TRUE(document.IsModified()) << "it is not on the disk";
    add();
    ASSERT_TRUE(document.FinishSaving() && opened.Open(folder.filePath("a.shapes")));
    EXPECT_EQ(opened.Shapes().GetCount(), 1u);
    EXPECT_TRUE(document.IsModified());
    document.Undo().undo();
    EXPECT_FALSE(document.IsModified());
    document.Undo().undo();
    EXPECT_TRUE(document.IsModified());
    add(); // as many edits as were saved, but others
    EXPECT_TRUE(document.IsModified());

    ASSERT_TRUE(document.Save() && add() && document.Save() && document.Save() && document.FinishSaving());
    EXPECT_FALSE(document.IsModified());
    ASSERT_TRUE(document.SaveAs(folder.filePath("b.shapes")) && add() && document.Save() && document.FinishSaving());
    for (const auto& [name, count] : {std::pair("a.shapes", 2u), std::pair("b.shapes", 3u)}) {
        ASSERT_TRUE(opened.Open(folder.filePath(name)));
        EXPECT_EQ(opened.Shapes().GetCount(), count) << name;
    }
    EXPECT_EQ(document.Title(), "b.shapes");
    EXPECT_TRUE(questions.complaints.isEmpty());
}

/// Nothing is written to the file, its name and its mark stay, and the reason is said. The last row is a disk that is
/// full after 99 bytes.
TEST(Saving, that_fails_changes_nothing)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.shapes");
    TestQuestions questions;
    WorkDocument document(questions);
    document.Insert("", {Rectangle({0, 0, 9, 9})});
    ASSERT_TRUE(IsSaved(document, path));
    const std::tuple<QString, rlim_t, const char*> rows[] = {
        {"/dev/full", RLIM_INFINITY, "/dev/full: is no regular file"},
        {folder.filePath("none/b.shapes"), RLIM_INFINITY, "cannot be written: No such file or directory"},
        {folder.path(), RLIM_INFINITY, "is no regular file"},
        {path, 99, "cannot be written: File too large"}};
    document.Insert("", {Rectangle({0, 0, 9, 9})});
    std::signal(SIGXFSZ, SIG_IGN);
    for (const auto& [file, room, reason] : rows) {
        questions.complaints.clear();
        const rlimit limit{room, RLIM_INFINITY}, before{RLIM_INFINITY, RLIM_INFINITY};
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
        EXPECT_TRUE(document.SaveAs(file));
        EXPECT_FALSE(document.FinishSaving());
        ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
        EXPECT_TRUE(questions.complaints.join("").endsWith(reason)) << questions.complaints.join("").toStdString();
        EXPECT_EQ(document.Path(), path);
        EXPECT_TRUE(document.IsModified());
        EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList("a.shapes")) << reason;
        WorkDocument opened(questions);
        ASSERT_TRUE(opened.Open(path));
        EXPECT_EQ(opened.Shapes().GetCount(), 1u) << reason;
    }
    document.Undo().undo();
    EXPECT_FALSE(document.IsModified());
}

TEST(WorkDocument, cells_stay_selected_but_not_in_the_file)
{
    TestQuestions questions;
    WorkDocument document(questions);
    Fill(document);
    const QByteArray bytes = document.Bytes();
    for (unsigned int i = 0; i < document.Shapes().GetCount(); ++i)
        if (auto* array = dynamic_cast<CShapeArray*>(document.Shapes().GetShape(i)))
            array->SelectAll(true);
    EXPECT_EQ(document.Bytes(), bytes);
}

TEST(WorkDocument, selection_follows_edits_by_place)
{
    TestQuestions questions;
    WorkDocument document(questions);
    document.Insert("", {Rectangle({0, 0, 10, 10}), Rectangle({20, 0, 10, 10}), Rectangle({40, 0, 10, 10})});
    document.Select({document.Shapes().GetShape(1)});
    MoveSelection(document, {5, 5});
    EXPECT_EQ(document.PlacesOf(document.Selection()), std::vector<int>{1});
    EXPECT_EQ(document.Selection().front()->GetRect(false), QRectF(25, 5, 10, 10));
    OrderSelection(document, Order::Front);
    EXPECT_EQ(document.PlacesOf(document.Selection()), std::vector<int>{2});
    document.Undo().undo();
    document.Undo().undo();
    EXPECT_EQ(document.Shapes().GetShape(1)->GetRect(false), QRectF(20, 0, 10, 10));
    LockSelection(document);
    EXPECT_TRUE(document.Selection().empty());
}

/// Whatever is wrong with a file: the reason is said, and the open drawing stays.
TEST(WorkDocument, unreadable_files_leave_the_drawing_alone)
{
    const QTemporaryDir folder;
    TestQuestions questions;
    WorkDocument document(questions);
    Fill(document);
    const QByteArray bytes = document.Bytes();
    const struct
    {
        const char* name;
        QByteArray content;
        const char* reason;
    } rows[] = {{"missing.shapes", {}, "missing.shapes"},
                {"words.shapes", "these are words, no shapes at all", "words.shapes"},
                {"table.csv", "1,2", "table.csv: is no drawing, picture or text that can be imported (CSV document)"},
                {"broken.svg", "<svg", "broken.svg"},
                {"broken.png", "\x89PNG\r\n", "broken.png"}};
    for (const auto& row : rows) {
        const QString path = folder.filePath(row.name);
        if (!row.content.isEmpty()) {
            QFile file(path);
            ASSERT_TRUE(file.open(QIODevice::WriteOnly));
            file.write(row.content);
        }
        questions.complaints.clear();
        EXPECT_FALSE(IsDocumentFile(path) ? document.Open(path) : ImportFiles(document, {path}) > 0);
        ASSERT_EQ(questions.complaints.size(), 1) << row.name;
        EXPECT_TRUE(questions.complaints.front().contains(row.reason)) << questions.complaints.front().toStdString();
        EXPECT_EQ(document.Bytes(), bytes) << row.name;
    }
}

TEST(WorkDocument, reading_that_is_given_up_leaves_the_drawing_alone)
{
    const QTemporaryDir folder;
    TestQuestions questions;
    WorkDocument document(questions);
    Fill(document);
    ASSERT_TRUE(IsSaved(document, folder.filePath("a.shapes")));
    document.Insert("", {Rectangle({0, 0, 1, 1})});
    const QByteArray bytes = document.Bytes();
    questions.told.clear();
    questions.givesUp = true;
    EXPECT_FALSE(document.Open(folder.filePath("a.shapes")));
    EXPECT_EQ(ImportFiles(document, {SAMPLES "/ornament.svg", SAMPLES "/medallion.png"}), 0);
    EXPECT_EQ(questions.told, (QStringList{"Opening a.shapes was given up", "Importing ornament.svg was given up"}));
    EXPECT_TRUE(questions.complaints.isEmpty());
    EXPECT_EQ(document.Bytes(), bytes);
    EXPECT_TRUE(document.IsModified());
}

TEST(WorkDocument, damaged_files_offer_repair)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("damaged.shapes");
    TestQuestions questions;
    WorkDocument document(questions);
    document.Insert("", {Rectangle({0, 0, 10, 10}), Rectangle({20, 0, 10, 10}), Rectangle({40, 0, 10, 10})});
    ASSERT_TRUE(IsSaved(document, path));
    QFile file(path);
    ASSERT_TRUE(file.resize(file.size() - 40)); // The third rectangle ends early.
    WorkDocument opened(questions);
    EXPECT_FALSE(opened.Open(path));
    EXPECT_EQ(questions.asked, QStringList{"Damaged document"});
    questions.yes = true;
    ASSERT_TRUE(opened.Open(path));
    EXPECT_EQ(opened.Shapes().GetCount(), 2u);
    EXPECT_TRUE(opened.Path().isEmpty() && opened.IsModified()); // It does not overwrite the damaged file.

    const QString left = folder.filePath(".damaged.shapes.autosave"); // Nor does a damaged autosave the whole document.
    ASSERT_TRUE(QFile::copy(path, left));
    ASSERT_TRUE(IsSaved(document, path));
    QFile touched(left);
    ASSERT_TRUE(touched.open(QIODevice::ReadWrite) &&
                touched.setFileTime(QDateTime::currentDateTime().addSecs(9), QFileDevice::FileModificationTime));
    ASSERT_TRUE(opened.Open(path));
    EXPECT_EQ(opened.Shapes().GetCount(), 2u);
    EXPECT_TRUE(opened.Path().isEmpty() && opened.IsModified());
    opened.Close();
    EXPECT_TRUE(QFile::exists(left));
}

TEST(WorkDocument, outlines_are_filled_whether_their_ends_meet_or_not)
{
    TestQuestions questions;
    WorkDocument document(questions);
    for (const bool meets : {false, true}) {
        auto* triangle = new CShapeVector;
        std::vector<QPointF> points{{0, 0}, {10, 0}, {10, 10}};
        if (meets)
            points.push_back(points.front());
        triangle->SetShapePoints(points, ELINE_SEGMENT_STRAIGHT);
        document.Insert("", {triangle});
        ASSERT_TRUE(CloseSelection(document, true));
        EXPECT_TRUE(static_cast<CShapeVector*>(document.Selection().front())->IsFilled());
        EXPECT_TRUE(questions.told.isEmpty());
        EXPECT_FALSE(CloseSelection(document, true));
        EXPECT_EQ(questions.told.size(), 1);
        questions.told.clear();
    }
}

/// The document is open twice: the second autosave cannot stand beside it, and is offered as a drawing without a file.
TEST(Recovery, autosaves_without_a_place_beside_the_document_and_deletes_only_when_told)
{
    const QDir unsaved(QStandardPaths::writableLocation(QStandardPaths::AppLocalDataLocation) + "/unsaved");
    const auto kept = [&] { return unsaved.entryList({"*.autosave"}); };
    for (const QString& file : kept())
        QFile::remove(unsaved.filePath(file));
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.shapes");
    TestQuestions questions;
    WorkDocument first(questions), second(questions);
    ASSERT_TRUE(IsSaved(first, path) && second.Open(path));
    for (WorkDocument* document : {&first, &second}) {
        document->SetAutosaveInterval(1);
        document->Insert("", {Rectangle({0, 0, 10, 10})});
        QTest::qWait(100);
    }
    EXPECT_TRUE(QFile::exists(folder.filePath(".a.shapes.autosave")));
    ASSERT_EQ(kept().size(), 1);
    ASSERT_TRUE(QFile::copy(unsaved.filePath(kept().front()), unsaved.filePath("left.autosave")));
    second.Close();
    for (const bool lose : {false, true}) {
        questions.lose = lose;
        questions.asked.clear();
        EXPECT_FALSE(second.OfferUnsaved());
        EXPECT_EQ(questions.asked, (QStringList{"Recover changes", "Loss: Recover changes"}));
        EXPECT_EQ(kept().isEmpty(), lose);
    }
}

/// The autosave is written on another thread: failures are reported, and saving meanwhile leaves none behind.
TEST(Recovery, failures_are_told_and_saving_waits_for_the_autosave)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.shapes"), left = folder.filePath(".a.shapes.autosave");
    TestQuestions questions;
    WorkDocument document(questions);
    Fill(document);
    ASSERT_TRUE(IsSaved(document, path) && QDir().mkpath(left)); // A folder stands where the autosave is to be.
    questions.told.clear();
    document.SetAutosaveInterval(1);
    document.Insert("", {Rectangle({0, 0, 10, 10})});
    ASSERT_TRUE(QTest::qWaitFor([&] { return questions.told.size() > 1; })); // It is tried again.
    EXPECT_TRUE(questions.told.front().startsWith("Not saved in between: " + left));
    ASSERT_TRUE(QDir().rmdir(left) && QTest::qWaitFor([&] { return QFile::exists(left); }));
    for (int i = 0; i < 20; ++i) {
        document.Insert("", {Rectangle({0, 0, 10, 10})});
        QTest::qWait(i % 4);
        ASSERT_TRUE(IsSaved(document));
        ASSERT_FALSE(QFile::exists(left)) << i;
    }
}

/// Another process edits and is killed; this program started again. The process is this test, filtered to its child.
TEST(Recovery, DISABLED_child_edits_until_it_is_killed)
{
    TestQuestions questions;
    WorkDocument document(questions);
    ASSERT_TRUE(document.Open(qEnvironmentVariable("WORKBENCH_TEST_FILE")));
    document.SetAutosaveInterval(1);
    document.Insert("", {Rectangle({100, 100, 10, 10})});
    QTest::qWait(100'000);
}

TEST(Recovery, changes_of_a_killed_process_are_offered)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath("a.shapes"), left = folder.filePath(".a.shapes.autosave");
    TestQuestions questions;
    WorkDocument document(questions);
    document.Insert("", {Rectangle({0, 0, 10, 10})});
    ASSERT_TRUE(IsSaved(document, path));

    QProcess child;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.insert("WORKBENCH_TEST_FILE", path);
    child.setProcessEnvironment(environment);
    child.start(QCoreApplication::applicationFilePath(),
                {"--gtest_filter=Recovery.DISABLED_child_edits_until_it_is_killed", "--gtest_also_run_disabled_tests"});
    ASSERT_TRUE(QTest::qWaitFor([&] { return QFile::exists(left); }, 30'000));
    WorkDocument meanwhile(questions);
    ASSERT_TRUE(meanwhile.Open(path)); // Its process lives: nothing is offered.
    EXPECT_TRUE(questions.asked.isEmpty());
    ::kill(static_cast<pid_t>(child.processId()), SIGKILL);
    child.waitForFinished();

    questions.yes = questions.givesUp = true;
    questions.told.clear();
    EXPECT_FALSE(WorkDocument(questions).Open(path));
    EXPECT_EQ(questions.told.size(), 1)
        << "the saved drawing is not read instead: its autosave would replace what is left";
    EXPECT_TRUE(QFile::exists(left));
    questions.givesUp = false;
    questions.asked.clear();
    WorkDocument recovered(questions);
    ASSERT_TRUE(recovered.Open(path));
    EXPECT_EQ(questions.asked, QStringList{"Recover changes"});
    EXPECT_EQ(recovered.Shapes().GetCount(), 2u);
    EXPECT_TRUE(recovered.IsModified());
    ASSERT_TRUE(IsSaved(recovered));
    EXPECT_FALSE(QFile::exists(left));
    WorkDocument again(questions);
    ASSERT_TRUE(again.Open(path));
    EXPECT_EQ(questions.asked.size(), 1);
    EXPECT_EQ(again.Shapes().GetCount(), 2u);
}
