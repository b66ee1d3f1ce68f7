/// What reading a document of n bytes may cost, whatever it says: 64 MiB and 32 bytes of memory per byte, a second and
/// two microseconds per byte. Measured by the system on the whole process, hence without sanitizers. Left out are texts
/// that reading must lay out (20 microseconds and a kilobyte a letter): mirrored texts that bring points, which are
/// mirrored with them. Also what groups around groups cost: one outline, however many they are.
#include "ProcessTest.h"
#include "image/ImageStores.h"
#include "support/Lists.h"

#include <malloc.h>

#include <ctime>
#include <fstream>
#include <functional>

using namespace test;

namespace {

constexpr uint32_t kImage = 0, kVector = 1, kText = 2, kGroup = 3, kArray = 4, kCodeImage = 16;
constexpr uint32_t kNone = 0, kOne = 1, kHuge = 0xffffffff;
constexpr int32_t kLong = 0x7fffffff;

/// The common record with the given point count and points.
QByteArray Common(uint32_t count = 0, const QByteArray& points = {})
{
    return QByteArray(40, '\0') + Raw(count) + points;
}

QByteArray Vector(const QByteArray& points = {})
{
    return Common(static_cast<uint32_t>(points.size() / 9), points) + Raw(int32_t{6}, uint8_t{0});
}

QByteArray Text(const QByteArray& text)
{
    return Vector() + Raw(static_cast<int32_t>(text.size())) + text + Raw(kNone) + QByteArray(3, '\0') +
           Raw(20.0, 0.0, 5.0, 5.0) + Raw(uint8_t{0}, uint8_t{0}, 1.0, 1.0, int32_t{0}, 0.0, 0.0, int32_t{0});
}

QByteArray Picture(int32_t width, int32_t height, int32_t stride, const QByteArray& pixels = {})
{
    return Raw(width, height, int32_t{8}, stride) + pixels;
}

/// As far as its display picture.
QByteArray ImageHead(const QByteArray& display)
{
    return Common() + Raw(int32_t{3}, kNone) + display;
}

/// With the same picture twice.
QByteArray Image(const QByteArray& picture)
{
    return ImageHead(picture) + Raw(uint64_t{0}) + picture + QByteArray(6 * 4 + 8 + 2 * 4, '\0');
}

QByteArray List(uint32_t tag, const QByteArray& record, int times = 20'000)
{
    return Raw(static_cast<uint32_t>(times)) + (Raw(tag) + record).repeated(times);
}

/// Groups one inside the other, and around the whole a list of count such towers.
QByteArray Towers(int depth, int count)
{
    QByteArray tower = Common() + Raw(kNone);
    for (int i = 1; i < depth; ++i)
        tower = Common() + Raw(kOne, kGroup) + tower;
    return List(kGroup, tower, count);
}

QByteArray DifferentPictures()
{
    QByteArray stream = Raw(uint32_t{20'000});
    for (int32_t i = 0; i < 20'000; ++i)
        stream += Raw(kImage) + Image(Picture(4, 1, 4, Raw(i)));
    return stream;
}

/// Of two cells, in as many levels of arrays around it.
QByteArray Array(const QByteArray& member, uint32_t tag, int levels = 0)
{
    const QByteArray cell = Raw(int32_t{0}, 0.0, 0.0, uint8_t{1}, uint8_t{0});
    const QByteArray array = Common() + List(tag, member, 1) + Raw(int32_t{2}) + cell.repeated(2);
    return levels == 0 ? array : Array(array, kArray, levels - 1);
}

struct Case
{
    const char* name;
    std::function<QByteArray()> stream;
    int code = 0; ///< the result of Read
    int version = 14;
};

const QByteArray kLongText(16'383, 'W'), kLines = Raw(0.F, 0.F, '\2', 1.F, 2.F, '\0', 3.F, 4.F, '\0');

const Case kCases[] = {
    {"ShapeCount", [] { return Raw(kHuge); }, 5},
    {"PointCount", [] { return Raw(kOne, kVector) + Common(kHuge); }},
    {"OneShapeOfPoints", [] { return List(kVector, Vector(Raw(1.0F, 2.0F, uint8_t{0}).repeated(1'000'000)), 1); }},
    {"EmptyVectors", [] { return List(kVector, Vector()); }},
    {"EmptyVectorsWithoutVersion", [] { return List(kVector, Common()); }, 0, -1},
    {"SubpathsOfVersion2", [] { return List(kVector, Common(300'000, kLines.repeated(100'000)) + Raw(6), 1); }, 0, 2},
    {"EmptyTexts", [] { return List(kText, Text("")); }},
    {"ShortTexts", [] { return List(kText, Text("a")); }},
    {"LongTexts", [] { return List(kText, Text(kLongText), 100); }},
    {"LongTextsOfVersion1", [] { return List(kText, OldText(1, kLongText), 100); }, 0, 1},
    {"ShortTextsOfVersion1", [] { return List(kText, OldText(1, "abcde")); }, 0, 1},
    {"TextLength", [] { return Raw(kOne, kText) + Vector() + Raw(kLong); }},
    {"EmptyGroups", [] { return List(kGroup, Common() + Raw(kNone)); }},
    {"Towers", [] { return Towers(255, 100); }},
    {"TooHighTower", [] { return Towers(20'000, 1); }, 5},
    {"EmptyArrays", [] { return List(kArray, Common() + Raw(kNone, kNone)); }},
    {"CellCount", [] { return List(kArray, Common() + Raw(kNone, kLong), 1); }},
    {"Cells", [] { return List(kArray, Common() + Raw(kNone, 100'000) + QByteArray(2'200'000, 1), 1); }},
    {"ArraysOfLongTexts", [] { return List(kArray, Array(Text(kLongText), kText), 100); }},
    {"ArraysOfShortTexts", [] { return List(kArray, Array(Text("a"), kText)); }},
    {"ArraysInArrays", [] { return List(kArray, Array(Text(kLongText), kText, 200), 40); }},
    {"ShortPicture", [] { return Raw(kOne, kImage) + ImageHead(Picture(11584, 11584, 11584)); }},
    {"ShortPictureWithGaps", [] { return Raw(kOne, kImage) + ImageHead(Picture(11580, 11584, 11584)); }},
    {"EqualPictures", [] { return List(kImage, Image(Picture(4, 1, 4, "abcd"))); }},
    {"DifferentPictures", DifferentPictures},
    {"EmptyPictures", [] { return List(kImage, Image(Picture(0, 0, 0))); }},
    {"CodeLength", [] { return Raw(kOne, kCodeImage) + Image(Picture(0, 0, 0)) + Raw(uint8_t{1}, kLong); }},
};

/// One of the process's memory figures, in bytes; 0 for an unknown name.
qint64 MemoryFigure(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word && word != name)
        ;
    qint64 kilobytes = 0;
    status >> kilobytes;
    return kilobytes * 1024;
}

void ForgetPeak()
{
    std::ofstream("/proc/self/clear_refs") << '5';
}

TEST(ReadBounds, memory_and_time_follow_the_size_of_the_file)
{
    const ImageStores stores;
    for (const Case& one : kCases) {
        SCOPED_TRACE(one.name);
        StreamFile stream;
        stream.Fill(one.stream());
        malloc_trim(0); // What earlier cases have freed must not hide what this one takes.
        const qint64 size = stream.File()->size();
        ForgetPeak();
        const qint64 before = MemoryFigure("VmRSS:");
        ASSERT_GT(before, 0);
        const std::clock_t start = std::clock(); // processor time
        Document list = MakeList<Document>();
        EXPECT_EQ(list->Read(stream.File(), one.version), one.code);
        list.reset(); // Freeing lays nothing out either.
        const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        EXPECT_LE(MemoryFigure("VmHWM:") - before, (64LL << 20) + 32 * size) << "file of " << size;
        EXPECT_LE(seconds, 1 + 2e-6 * static_cast<double>(size)) << "file of " << size;
    }
}

TEST(TowerOfGroups, costs_one_outline)
{
    std::vector<QPointF> points;
    for (int i = 0; i < 100'000; ++i)
        points.emplace_back(i % 1'000, i / 1'000); // with type and place in a path 41 bytes each
    auto* shape = new CShapeVector;
    shape->SetVectorType(EVECTOR_MIXED);
    shape->SetShapePoints(points, ELINE_SEGMENT_STRAIGHT);
    CShape* tower = Nested(250, shape);
    const Document list = MakeList<Document>({tower});
    malloc_trim(0);
    ForgetPeak();
    const qint64 before = MemoryFigure("VmRSS:");
    list->AddTail(tower->Clone());
    list->Resize({5, 5, 50, 40});
    list->GetShape(0)->GetPath(false);
    EXPECT_LE(MemoryFigure("VmHWM:") - before, 64LL << 20); // two copies of the points, four of the outline
}

} // namespace
