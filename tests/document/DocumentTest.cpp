/// Document files: what is read, how files are replaced, walks over shapes, what is said of texts.
#include "document/Arrangement.h"
#include "document/CheckedFile.h"
#include "document/DocumentFile.h"
#include "document/ExactEdits.h"
#include "document/Failure.h"
#include "document/FileHeader.h"
#include "document/FillMarker.h"
#include "document/InputBytes.h"
#include "document/InputFile.h"
#include "document/Placement.h"
#include "document/ShapeWalk.h"
#include "document/SnapLines.h"
#include "document/TextFindings.h"
#include "document/TextShape.h"
#include "document/UnfinishedFiles.h"
#include "group/ShapeArray.h"
#include "image/ImageStores.h"
#include "image/ShapeImage.h"
#include "picture/PictureInput.h"
#include "plane/RoundStep.h"
#include "support/Lists.h"
#include "text/ShapeText.h"

#include <QBuffer>
#include <QDir>
#include <QTemporaryDir>

#include <csignal>
#include <filesystem>
#include <functional>
#include <tuple>

using namespace test;
using namespace shapedocument;
using std::filesystem::perms;

namespace {

/// The reason, behind the file's name where that is no path; "" when nothing is thrown.
std::string FailureOf(const std::function<void()>& action)
{
    try {
        action();
    } catch (const Failure& failure) {
        return ((failure.file.startsWith('/') ? "" : failure.file + " ") + failure.reason).trimmed().toStdString();
    }
    return "";
}

/// "14, at 12" of the version in the header and of where the device stands behind it, or why it cannot be read.
std::string HeaderOf(const QByteArray& bytes)
{
    QBuffer device;
    device.setData(bytes);
    device.open(QIODevice::ReadOnly);
    int version = 0;
    const std::string failure = FailureOf([&] { version = ReadHeader(device, "a.shapes"); });
    return failure.empty() ? std::to_string(version) + ", at " + std::to_string(device.pos()) : failure;
}

TEST(FileHeader, is_written_recognised_and_read)
{
    const QByteArray magic = "SHAPEDOC", present = magic + Raw(14), list = Raw(0);
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    EXPECT_TRUE(WriteHeader(device));
    EXPECT_EQ(device.data(), present);
    device.close();
    EXPECT_FALSE(WriteHeader(device)) << "a closed device takes nothing";

    const std::tuple<QByteArray, std::optional<int>, const char*> rows[] = {
        {present + list, 14, "14, at 12"},
        {magic + Raw(0) + list, 0, "0, at 12"},
        {magic + Raw(15), 15, "a.shapes has version 15; 0 to 14 can be read"},
        {magic + Raw(-1), -1, "a.shapes has version -1; 0 to 14 can be read"},
        {present.first(11), std::nullopt, "a.shapes ends within its header"},
        {list + present, std::nullopt, "a.shapes is no shape document"},
        {"", std::nullopt, "a.shapes is no shape document"},
    };
    for (const auto& [bytes, recognised, read] : rows) {
        EXPECT_EQ(RecogniseHeader(Span(bytes)), recognised) << read;
        EXPECT_EQ(HeaderOf(bytes), read);
    }
}

class DocumentFiles : public testing::Test
{
protected:
    const QTemporaryDir folder;
    const QString name = folder.filePath("doc");

    const QByteArray path = QFile::encodeName(name);

    QByteArray Content() const
    {
        QFile file(name);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : "nothing";
    }
    perms Mode() const { return std::filesystem::status(path.toStdString()).permissions(); }
    static std::string Writing(const QByteArray& bytes, const Target& target)
    {
        return FailureOf([&] { WriteFile(target, [&](QFile& file) { file.write(bytes); }); });
    }
};

TEST_F(DocumentFiles, are_read_whole_or_refused_with_a_reason)
{
    const QByteArray stream = FromHex("01000000 01000000" + kEmptyCommon + "06000000"), magic = "SHAPEDOC";
    const std::tuple<QByteArray, StreamFormat, const char*> rows[] = {
        {magic + Raw(14) + stream + '\0', {}, ""},
        {magic + Raw(0) + Raw(0), {}, ""},
        {stream, {true, 6}, ""},
        {"SHAPEDOX" + Raw(14), {}, "is no shape document"},
        {magic + Raw(14) + "abc", {}, "holds no shape list"},
        {magic + Raw(14) + Raw(1), {}, "holds an unknown kind of shape, or ends too early (code 5)"},
        {magic + Raw(14) + stream,
         {},
         "ends within its last shape (byte 68): list > shape 1 (vector) > extract contour"},
        {stream + "ab", {true, 6}, "goes on behind its last shape (2 bytes)"},
    };
    for (const auto& [bytes, format, reason] : rows) {
        ASSERT_EQ(Writing(bytes, {name}), "");
        EXPECT_EQ(FailureOf([&, &form = format] { ReadDocument(name, form); }), reason);
    }
    ASSERT_EQ(Writing(stream, {name}), "");
    EXPECT_EQ(ReadDocument(name, {true, 6}).version, 6);
    WriteDocument({name}, *ReadDocument(name, {true, 6}).shapes, {});
    EXPECT_EQ(Content(), magic + Raw(14) + stream + '\0');
    WriteDocument({name}, *ReadDocument(name, {}).shapes, {true, 6});
    EXPECT_EQ(Content(), stream + '\0') << "the present layout";

    EXPECT_EQ(InputName("-").toStdString() + ", " + OutputName({"-"}).toStdString(), "standard input, standard output");
    EXPECT_EQ(FailureOf([&] { OpenInput(folder.path()); }), "is no regular file");
    EXPECT_EQ(FailureOf([&] { OpenInput(name + "x"); }), "cannot be opened: No such file or directory");
    EXPECT_EQ(InputBytes(name).All().size(), static_cast<size_t>(stream.size() + 1));
    ASSERT_EQ(Writing("", {name}), "");
    EXPECT_EQ(FailureOf([&] { InputBytes{name}; }), "is empty");
}

TEST_F(DocumentFiles, take_their_place_whole_with_the_mode_of_what_was_there)
{
    const auto refuse = [](QFile&) { throw Failure{"", "no"}; };
    const auto nothing = [](QFile&) {};
    EXPECT_EQ(Writing("first", {name}), "");
    EXPECT_EQ(Content(), "first");
    permissions(std::filesystem::path(path.toStdString()), perms{0640});
    EXPECT_EQ(Writing("second", {name}), "");
    EXPECT_EQ(Mode(), perms{0640});
    EXPECT_EQ(FailureOf([&] { WriteFile({name}, refuse); }), "no");
    EXPECT_EQ(FailureOf([&] { WriteFile({name}, nothing, refuse); }), "no");
    EXPECT_EQ(Content(), "second");
    permissions(std::filesystem::path(path.toStdString()), perms{0440});
    EXPECT_EQ(Writing("third", {name}), "is write-protected; --force replaces it");
    EXPECT_EQ(Writing("third", {name, true}), "");
    EXPECT_EQ(Content(), "third");
    EXPECT_EQ(Mode(), perms{0440});

    ASSERT_TRUE(QFile::link("doc", folder.filePath("link")) && QFile::link("link", folder.filePath("links")));
    ASSERT_TRUE(QFile::link("ring", folder.filePath("ring")));
    EXPECT_EQ(Writing("fourth", {folder.filePath("links"), true}), "");
    EXPECT_EQ(Content(), "fourth") << "links go on pointing at it";
    EXPECT_EQ(Writing("", {folder.filePath("ring")}), "cannot be written: its symbolic links lead nowhere");
    EXPECT_EQ(Writing("", {folder.path()}), "is no regular file");
    EXPECT_EQ(Writing("", {folder.filePath("none/x")}), "cannot be written: No such file or directory");
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden | QDir::System),
              QStringList({"doc", "link", "links", "ring"}))
        << "nothing unfinished is left";
}

TEST_F(DocumentFiles, two_may_be_unfinished_at_once)
{
    WriteFile({name}, [&](QFile&) { EXPECT_EQ(Writing("beside", {folder.filePath("beside")}), ""); });
    EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList({"beside", "doc"}));
}

TEST_F(DocumentFiles, remember_writes_that_fell_short)
{
    CheckedFile full;
    full.setFileName("/dev/full");
    ASSERT_TRUE(full.open(QIODevice::WriteOnly | QIODevice::Unbuffered));
    full.write("ab");
    EXPECT_FALSE(full.WroteAll());
    EXPECT_EQ(full.Reason(), "No space left on device");
    UnnamedFile file("test");
    file.write("ab");
    EXPECT_TRUE(file.WroteAll());

    ASSERT_EQ(Writing("finished", {name}), "");
    (void)UnfinishedFile(path);
    RemoveUnfinishedFiles();
    EXPECT_EQ(Content(), "finished");
    const UnfinishedFile before("/no/such/file"), unfinished(path);
    RemoveUnfinishedFiles();
    EXPECT_EQ(Content(), "nothing");

    sigset_t during = {}, after = {};
    {
        const SignalHold hold;
        pthread_sigmask(SIG_SETMASK, nullptr, &during);
    }
    pthread_sigmask(SIG_SETMASK, nullptr, &after);
    for (const int signal : {SIGINT, SIGTERM, SIGHUP})
        EXPECT_TRUE(sigismember(&during, signal) == 1 && sigismember(&after, signal) == 0) << signal;
}

TEST(ShapeWalk, goes_into_groups_and_the_cells_of_arrays_that_are_shown)
{
    const auto array = [](CShape* member, int rows, int columns = 1) {
        CShapeArray* made = MakeGroup<CShapeArray>({member}).release();
        made->SetArrayInfo(rows, columns, 0, 0, 0, 0);
        return made;
    };
    const auto rect = [] { return NewRect({0, 0, 1, 1}); };
    CShapeArray *shown = array(rect(), 3), *hidden = array(rect(), 3);
    shown->SetInvalid(1);
    hidden->Hide(true);
    const Document list = MakeList<Document>({rect(), nullptr, Nested(2, shown), hidden, new CShapeGroup});
    std::string depths, places;
    ForEachShape(*list, [&](CShape& shape, int depth) { depths += Number(depth) + (MembersOf(shape) ? "+ " : " "); });
    EXPECT_EQ(depths, "0 0+ 1+ 2+ 3 0+ 1 0+ ");
    EXPECT_EQ(GroupLevels(*list), 3);
    ForEachVisibleOutline(*list, [&](CShape& shape) { places += Number(shape.GetRect(false).y()) + " "; });
    EXPECT_EQ(places, "0 0 2 ") << "without the invalid cell";
    EXPECT_EQ(OutlineCount(*list), 5u) << "what is hidden counts once, an empty group too";

    const auto refused = [](void (*expect)(CShapeList&, const QString&), const std::vector<CShape*>& shapes) {
        const Document one = MakeList<Document>(shapes);
        return FailureOf([&] { expect(*one, "f"); });
    };
    EXPECT_EQ(refused(ExpectFewOutlines, {array(array(rect(), 1000, 10), 1000, 10)}),
              "f its arrays ask for more than 10000000 outlines");
    EXPECT_EQ(refused(ExpectFewOutlines, {array(rect(), 1000, 10)}), "");
    EXPECT_EQ(refused(ExpectNestable, {}), "f holds no shape");
    EXPECT_EQ(refused(ExpectNestable, {Nested(255, rect())}), "");
    EXPECT_EQ(refused(ExpectNestable, {Nested(256, rect())}), "f nests groups and arrays 256 deep, which is the most");
}

/// Squares of 2 mm at these corners, and where they lie afterwards.
TEST(Arrangement, lines_shapes_up_and_makes_their_gaps_equal)
{
    const std::vector<QPointF> begin{{0, 0}, {10, 3}, {3, 7}};
    const std::pair<std::function<bool(CShapeList&)>, std::vector<QPointF>> rows[] = {
        {[](CShapeList& list) { return AlignShapes(list, Alignment::Left); }, {{0, 0}, {0, 3}, {0, 7}}},
        {[](CShapeList& list) { return AlignShapes(list, Alignment::Center); }, {{5, 0}, {5, 3}, {5, 7}}},
        {[](CShapeList& list) { return AlignShapes(list, Alignment::Right); }, {{10, 0}, {10, 3}, {10, 7}}},
        {[](CShapeList& list) { return AlignShapes(list, Alignment::Top); }, {{0, 0}, {10, 0}, {3, 0}}},
        {[](CShapeList& list) { return AlignShapes(list, Alignment::Middle); }, {{0, 3.5}, {10, 3.5}, {3, 3.5}}},
        {[](CShapeList& list) { return AlignShapes(list, Alignment::Bottom); }, {{0, 7}, {10, 7}, {3, 7}}},
        {[](CShapeList& list) { return DistributeShapes(list, false); }, {{0, 0}, {10, 3}, {5, 7}}},
        {[](CShapeList& list) { return DistributeShapes(list, true); }, {{0, 0}, {10, 3.5}, {3, 7}}},
    };
    for (const auto& [arrange, end] : rows) {
        const Document list = NewDocument();
        for (const QPointF& corner : begin) {
            auto* square = new CShapeVector;
            square->SetShapeRect({corner, QSizeF(2, 2)});
            list->AddTail(square);
        }
        EXPECT_TRUE(arrange(*list));
        EXPECT_FALSE(arrange(*list)) << "nothing more to move";
        for (unsigned int i = 0; i < list->GetCount(); ++i)
            EXPECT_LT((list->GetShape(i)->GetRect(false).topLeft() - end[i]).manhattanLength(), 1e-9);
    }
    EXPECT_FALSE(DistributeShapes(*NewDocument(), true));
}

TEST(Placement, drawings_go_the_ways_told_or_into_a_table)
{
    // Columns of 10 and 20 mm, rows of 8 and 4 mm, 3 mm between them.
    const std::vector<QRectF> rects{{0, 0, 10, 5}, {2, 3, 20, 8}, {0, 0, 4, 4}};
    const std::vector<QPointF> ways{{1, 2}, {3, 4}, {5, 6}};
    const std::tuple<Places, std::vector<QPointF>> rows[] = {
        {{}, {{0, 0}, {0, 0}, {0, 0}}},
        {{.at = {{1, 2}}}, {{1, 2}, {1, 2}, {1, 2}}},
        {{.at = ways}, ways},
        {{.at = {}, .gap = 3, .columns = 2}, {{0, 0}, {11, -3}, {0, 11}}},
        {{.at = {{100, 50}}, .gap = 3, .columns = 2}, {{100, 50}, {111, 47}, {100, 61}}}};
    for (const auto& [places, offsets] : rows)
        EXPECT_EQ(OffsetsTo(places, rects), offsets);
}

TEST(Placement, overlaps_are_more_than_rounding)
{
    const std::vector<QRectF> rects{{0, 0, 10, 10},     {9.9995, 0, 5, 10}, {30, 0, 5, 5},
                                    {30, 4.9995, 5, 5}, {60, 0, 5, 5},      {64, 4, 5, 5}};
    EXPECT_EQ(Overlapping(rects), (std::vector<size_t>{4, 5}));
}

TEST(ExactEdits, take_arrays_with_all_their_cells)
{
    std::vector<std::unique_ptr<CShape>> shapes;
    auto array = MakeGroup<CShapeArray>({NewRect({0, 0, 10, 4})});
    array->SetArrayInfo(1, 2, 5, 0, 0, 0);
    Mirror(*array, MirrorAxis::Vertical, 100);
    EXPECT_EQ(Rect(array->GetRect(false)), "175,0,25,4");
    Mirror(*array, MirrorAxis::Horizontal, 50);
    EXPECT_EQ(Rect(array->GetRect(false)), "175,96,25,4");
    shapes.push_back(std::move(array));
    EXPECT_EQ(Rect(RectAroundShapes(shapes)), "175,96,25,4");
    // The first cell lies 10 to the right of its members: 10 below them after a quarter turn about their middle.
    auto moved = MakeGroup<CShapeArray>({NewRect({0, 0, 4, 4})});
    moved->SetArrayInfo(1, 1, 0, 0, 0, 0);
    moved->Rotate(0, {12, 2}, Qt::ZAxis); // moves cells alone
    Turn(*moved, 90, {2, 2});
    EXPECT_EQ(Rect(moved->GetRect(false)), "0,10,4,4");
}

TEST(PictureInput, leaves_no_file_open)
{
    const ImageStores stores;
    const auto opened = [] {
        CShapeImage picture;
        EXPECT_THROW(OpenPicture(picture, "/nowhere.png", {}), Failure);
        return QDir("/proc/self/fd").entryList(QDir::Files | QDir::System).size();
    };
    const auto before = opened();
    EXPECT_EQ(opened(), before);
}

TEST(TextShape, setting_is_in_millimetres_of_the_drawing)
{
    const auto text = NewText("A", {});
    SText& fields = *text->GetTextP();
    fields.font.dSize = 5;
    fields.dCharSpacing = 4;
    fields.dLineSpacing = 3;
    fields.dScaleX = 2;
    const TextSetting setting = SettingOf(*text);
    EXPECT_EQ(setting.size, 10);
    EXPECT_EQ(setting.charSpacing, 8);
    EXPECT_EQ(setting.lineSpacing, 6);
}

TEST(FillMarker, copies_the_last_runs_start)
{
    CShapeVector closed = Vector(EVECTOR_POLYLINE, "| 0,0 9,0 | 5,5 6,5 5,5"),
                 empty = Vector(EVECTOR_POLYLINE, "0,0 9,0 |");
    EXPECT_TRUE(MarkAsFilled(closed) && !MarkAsFilled(empty));
    EXPECT_EQ(Outline(closed) + "; " + Outline(empty), "| 0,0 9,0 | 5,5 6,5 5,5 f5,5; 0,0 9,0 |");
}

TEST(TextFindings, tell_each_kind_of_trouble_once)
{
    const auto lines = [](const char32_t* text, const QString& family = "Liberation Sans") {
        TextFindings findings;
        for (const QString& each : {family, QString("Liberation Sans")})
            findings.Add(each, QString::fromUcs4(text));
        return findings.Lines().join("; ").toStdString();
    };
    const std::string boxes =
        "boxes, or nothing, stand for characters that no font has or that lie beyond the first plane: ";
    const std::string alone = "letters are set one by one from left to right, which these need otherwise: ";
    EXPECT_EQ(lines(U"AB 1\n\u00DF\u00AD"), "") << "a soft hyphen does not join";
    EXPECT_EQ(lines(U"A\U0001F600\uE8F0"), boxes + "U+E8F0, U+1F600");
    EXPECT_EQ(lines(U"\t\r"), "white space and control characters that take no room: U+0009, U+000D");
    EXPECT_EQ(lines(U"\u05D0\u0301"), alone + "U+0301, U+05D0");
    EXPECT_EQ(lines(U"\uE8F0\uE8F1\uE8F2\uE8F3\uE8F4\uE8F5\uE8F6\uE8F7\uE8F8\uE8F9\uE8FA\uE8FB\uE8FC\uE8FD")
                  .substr(boxes.size()),
              "U+E8F0, U+E8F1, U+E8F2, U+E8F3, U+E8F4, U+E8F5, U+E8F6, U+E8F7, U+E8F8, U+E8F9, U+E8FA, U+E8FB, 2 more");
    EXPECT_EQ(lines(U"A", "No Such Family").find("fonts that are not installed are replaced: \"No Such Family\" by \""),
              0u);
}

} // namespace

TEST(RoundStep, is_the_next_of_one_two_and_five)
{
    const std::pair<double, double> rows[] = {{1, 1}, {1.1, 2}, {2.1, 5}, {6, 10}, {30, 50}, {0.25, 0.5}};
    for (const auto& [least, step] : rows)
        EXPECT_DOUBLE_EQ(RoundStep(least), step) << least;
}

TEST(SnapLines, the_nearest_edge_or_middle_is_taken)
{
    const double nan = std::nan("");
    const SnapLines lines({{10, 100, 20, 40}, {50, 50, 0, 0}, {nan, 0, 1, 1}, {0, 0, HUGE_VAL, 1}});
    const struct
    {
        std::vector<double> places;
        double reach;
        std::optional<double> x, y; // the lines
    } rows[] = {{{10.5}, 1, 10, {}},           {{19}, 1, 20, {}},   {{31}, 1, 30, {}},       {{31.5}, 1, {}, {}},
                {{0, 22, 31, 99}, 2, 30, 100}, {{50}, 0, 50, 50},   {{nan}, 1e9, {}, {}},    {{}, 1e9, {}, {}},
                {{-1000}, 2000, 10, 50},       {{121}, 3, {}, 120}, {{141, 138}, 3, {}, 140}};
    for (const auto& row : rows) {
        const auto x = lines.NearestX(row.places, row.reach), y = lines.NearestY(row.places, row.reach);
        EXPECT_EQ(x ? std::optional(x->line) : std::nullopt, row.x);
        EXPECT_EQ(y ? std::optional(y->line) : std::nullopt, row.y);
    }
    EXPECT_EQ(lines.NearestX(std::array{32.0, 21.5}, 5)->shift, -1.5);
    EXPECT_FALSE(SnapLines().NearestX(std::array{0.0}, 1));
}

TEST(SnapLines, nodes_are_ends_and_not_control_points)
{
    QPainterPath path({0, 0});
    path.cubicTo({0, 10}, {10, 10}, {10, 0});
    path.lineTo(20, 0);
    const std::tuple<QPointF, double, std::optional<QPointF>> rows[] = {{{0, 9}, 2, {}},
                                                                        {{9, 0}, 2, QPointF(10, 0)},
                                                                        {{14, 0}, 9, QPointF(10, 0)},
                                                                        {{16, 0}, 9, QPointF(20, 0)},
                                                                        {{0, 2}, 2, QPointF(0, 0)}};
    for (const auto& [place, reach, node] : rows)
        EXPECT_EQ(NearestNode(path, place, reach), node);
    EXPECT_FALSE(NearestNode({}, {}, 1));
}
