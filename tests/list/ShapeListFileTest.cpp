/// CShapeList: the document stream and the upgrade of old documents.
#include "support/HostDouble.h"
#include "support/Lists.h"

#include <functional>
#include <tuple>
#include <unistd.h>

using namespace test;

namespace {

/// "type outline" of vectors, separated by "; ".
std::string Told(CShapeList& list)
{
    std::string text;
    for (unsigned int i = 0; i < list.GetCount(); ++i) {
        auto* vector = dynamic_cast<CShapeVector*>(list.GetShape(i));
        text += (i ? "; " : "") + (vector ? std::to_string(vector->GetVectorType()) + " " + Outline(*vector) : "other");
    }
    return text;
}

/// A host's own vector class, which writes to the file by itself and may run the host's code meanwhile.
struct HostVector : CShapeVector
{
    int Save(QFile* file) override { return whenSaved(), CShapeVector::Save(file); }
    std::function<void()> whenSaved = [] {};
};

TEST(ShapeListFile, holds_the_records_that_each_shape_saves_alone)
{
    const Document list = MakeList<Document>({nullptr});
    QByteArray alone = Raw(10);
    std::vector<QPointF> points;
    for (const int count : {0, 3, 50'000, 50'007, 50'100}) { // more bytes than are read and written at once
        while (std::ssize(points) < count)
            points.emplace_back(points.size(), -2);
        for (CShapeVector* shape : std::initializer_list<CShapeVector*>{new CShapeVector, new HostVector}) {
            shape->SetShapePoints(points, std::vector<unsigned char>(points.size() / 2, 1));
            list->AddTail(shape);
            alone += Raw(1) + StreamOf(*shape);
        }
    }
    EXPECT_TRUE(StreamOf(*list) == alone && list->Save(nullptr) == 0);
    EXPECT_TRUE(StreamOf(*ListFrom(alone)) == alone);

    CShapeVector taken;
    HostVector changing;
    const View changed = MakeList({&changing, &taken});
    changing.whenSaved = [&] { changed->AddTail(&taken), changed->Remove(&taken); };
    EXPECT_EQ(StreamOf(*changed).first(4), Raw(2)) << "as many shapes as it has counted";
    EXPECT_EQ(StreamOf(*changed).size(), 4 + 2 * (4 + 44 + 5));
}

/// Forty vectors with a group of a vector among them, 40 kB.
QByteArray LongDocument()
{
    const Document list = MakeList<Document>();
    for (int i = 0; i < 41; ++i) {
        auto* shape = new CShapeVector;
        shape->SetShapePoints(std::vector<QPointF>(100, {double(i), 0.5}), std::vector<unsigned char>(100, i % 3));
        list->AddTail(Nested(i == 31, shape));
    }
    return StreamOf(*list);
}

TEST(ShapeListFile, a_long_document_is_read_to_its_end_or_not_at_all)
{
    const QByteArray whole = LongDocument();
    const auto size = whole.size(), entry = qsizetype{4 + 44 + 900 + 5};
    // Cut nowhere, in the last vector's flag, its points and its tag, and in the group's member.
    const std::pair<qsizetype, int> rows[] = {
        {size + 4, 0}, {size, 0}, {size - 1, 0}, {size - 500, 0}, {size - entry + 3, 5}, {31 * entry + 4 + 60, 5}};
    for (const auto& [length, code] : rows) {
        SCOPED_TRACE(length);
        StreamFile stream;
        stream.Fill((whole + "more").first(length));
        const Document list = MakeList<Document>();
        EXPECT_EQ(list->Read(stream.File(), 14), code);
        EXPECT_EQ(stream.File()->pos(), std::min(length, size));
        ASSERT_EQ(list->GetCount(), code == 0 ? 41u : 0u);
        const qsizetype intact = std::min(length, size) - (length < size ? entry : 0);
        EXPECT_TRUE(code != 0 || StreamOf(*list).first(intact) == whole.first(intact));
    }
}

TEST(ShapeListFile, a_pipe_is_read_to_the_end_of_the_document_and_no_further)
{
    int ends[2];
    ASSERT_EQ(pipe(ends), 0);
    const QByteArray bytes = LongDocument() + "rest";
    ASSERT_EQ(write(ends[1], bytes.data(), size_t(bytes.size())), bytes.size());
    close(ends[1]);
    QFile file;
    ASSERT_TRUE(file.open(ends[0], QIODevice::ReadOnly, QFileDevice::AutoCloseHandle));
    StubShape held("held"); // reading frees nothing that the list held
    const Document list = MakeList<Document>({&held});
    EXPECT_EQ(list->Read(nullptr, 14), 0);
    EXPECT_EQ(Names(*list), "held");
    EXPECT_EQ(list->Read(&file, 14), 0);
    EXPECT_EQ(list->GetCount(), 41u);
    EXPECT_EQ(file.readAll(), "rest");
}

TEST(ShapeListFile, unknown_tags_end_the_load_right_behind_them)
{
    const std::string vector = "01000000" + kEmptyCommon + "00000000 00"; // 4 + 44 + 5 bytes
    const std::tuple<std::string, int, const char*> rows[] = {
        {"01000000" + vector + "AAAAAAAA", 14, "0 at 57: 0 "},
        {"03000000" + vector + "09000000" + vector, 14, "5 at 61: "},
        {"FFFFFFFF" + vector + vector, 14, "5 at 110: "}, // a tag that cannot be read is an unknown tag
        {"02000000" + vector + "01", 14, "5 at 58: "},
        {"01000000 01000000" + kEmptyCommon + "06000000", 2, "0 at 56: "},  // no points, no shape
        {"01000000 01000000" + kEmptyCommon + "06000000", -1, "0 at 52: "}, // and none of a vector's fields
    };
    for (const auto& [hex, version, expected] : rows) {
        StreamFile stream(hex);
        const Document list = MakeList<Document>();
        const std::string result = std::to_string(list->Read(stream.File(), version));
        EXPECT_EQ(result + " at " + std::to_string(stream.File()->pos()) + ": " + Told(*list), expected);
    }
}

TEST(ShapeListFile, vectors_up_to_version_2_become_one_shape_per_sub_path)
{
    CShapeVector shape = Vector(EVECTOR_MIXED, "| 1,2 10,0 | 5,5 c6,5 c7,6 c7,7 8,8");
    shape.SetColor(0xFF);
    shape.Select(true);
    shape.SetGuideLine({2, 0, 1, 0, 1});
    const QByteArray stored = StreamOf(*MakeList({&shape})).chopped(1); // no contour flag before version 7

    EXPECT_EQ(Told(*ListFrom(stored, 3)), "6 | 1,2 10,0 | 5,5 c6,5 c7,6 c7,7 8,8");
    for (int version : {2, 1, 0})
        EXPECT_EQ(Told(*ListFrom(stored, version)), "6 1,2 10,0; 6 5,5 c6,5 c7,6 c7,7 8,8") << version;
    const Document list = ListFrom(stored, 2);
    CShape& first = *list->GetShape(0);
    EXPECT_EQ(PathText(first), "M 1,2 L 10,0");
    EXPECT_TRUE(first.GetColor() == 0xFF && first.GetStatus() == 0 && first.GetGuideLine().nMode == 1)
        << "the colour alone is kept";
}

TEST(ShapeListFile, texts_up_to_version_1_become_vectors_however_large_their_stored_outline)
{
    const Document large = ListFrom(Raw(1, 2) + OldText(1, "lll", 40'000), 1);
    EXPECT_TRUE(large->GetCount() == 3 && large->GetShape(0)->GetShapeType() == ESHAPE_VECTOR);
    TakeLog();

    // Texts that fill their buffers have room until outlines take it: of blanks none, of 2,000 letters some 8 MB. The
    // document says it once, however many stay.
    const QByteArray blanks(16'383, ' '), curves(2'000, '@'), full(16'383, 'l');
    QByteArray bytes = Raw(6);
    for (const QByteArray& text : {blanks, curves, curves, full, full})
        bytes += Raw(2) + OldText(1, text);
    bytes += Raw(2) + OldText(1, "l", 2'000); // its outline counts for no letters
    const Document list = ListFrom(bytes, 1);
    std::vector<unsigned int> texts;
    for (unsigned int i = 0; i < list->GetCount(); ++i)
        if (list->GetShape(i)->GetShapeType() == ESHAPE_TEXT)
            texts.push_back(i);
    EXPECT_EQ(texts, (std::vector{list->GetCount() - 3, list->GetCount() - 2}));
    EXPECT_EQ(TakeLog(), "1 2 texts of version 1 stay texts: no fonts, or too large as outlines");
}

} // namespace
