/// What reading a document of n bytes may cost, whatever it says: 64 MiB and 32 bytes of memory per byte, a second and two
/// microseconds per byte. Measured by the system on the whole process, hence without sanitizers. Left out are texts that
/// reading must lay out (20 microseconds and a kilobyte a letter): mirrored texts that bring points, which are mirrored
/// with them. Also what groups around groups cost: one outline, however many they are.
#include "group/ShapeGroup.h"
#include "image/ImageStores.h"
#include "image/ShapeImage.h"
#include "list/ShapeListOwner.h"
#include "support/Lists.h"

#include <QFile>
#include <QGuiApplication>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <malloc.h>

#include <cstring>
#include <ctime>
#include <functional>

namespace {

constexpr uint32_t kImage = 0, kVector = 1, kText = 2, kGroup = 3, kArray = 4, kCodeImage = 16;
constexpr uint32_t kHuge = 0xffffffff;
constexpr int kShapes = 20'000;

template <class... Numbers>
QByteArray Bytes(Numbers... numbers)
{
    QByteArray bytes;
    (bytes.append(reinterpret_cast<const char*>(&numbers), sizeof numbers), ...);
    return bytes;
}

/// The common record with the given point count and points.
QByteArray Common(uint32_t count = 0, const QByteArray& points = {})
{
    return QByteArray(40, '\0') + Bytes(count) + points;
}

QByteArray Point(float x, float y, uint8_t type)
{
    return Bytes(x, y, type);
}

QByteArray Vector(const QByteArray& points = {})
{
    return Common(static_cast<uint32_t>(points.size() / 9), points) + Bytes(int32_t{6}, uint8_t{0});
}

QByteArray String(const QByteArray& text)
{
    return Bytes(static_cast<int32_t>(text.size())) + text;
}

QByteArray Text(const QByteArray& text)
{
    return Vector() + String(text) + String("") + Bytes(uint8_t{0}, uint8_t{0}, uint8_t{0}, 20.0, 0.0, 5.0, 5.0) +
           Bytes(uint8_t{0}, uint8_t{0}, 1.0, 1.0, int32_t{0}, 0.0, 0.0, int32_t{0});
}

/// As version 1 wrote it.
QByteArray OldText(const QByteArray& text)
{
    return Common() + Bytes(int32_t{0}) + String(text) + String("") +
           Bytes(uint8_t{0}, uint8_t{0}, uint8_t{0}, 20.0, 0.0);
}

QByteArray Picture(int32_t width, int32_t height, int32_t stride, const QByteArray& pixels = {})
{
    return Bytes(width, height, int32_t{8}, stride) + pixels;
}

QByteArray Image(const QByteArray& display, const QByteArray& original)
{
    return Common() + Bytes(int32_t{3}) + String("") + display + Bytes(uint64_t{0}) + original +
           QByteArray(6 * 4 + 8 + 2 * 4, '\0');
}

QByteArray Repeated(uint32_t tag, const QByteArray& record, int times = kShapes)
{
    return Bytes(static_cast<uint32_t>(times)) + (Bytes(tag) + record).repeated(times);
}

/// Groups one inside the other, each holding one, and around the whole a list of count such towers.
QByteArray Towers(int depth, int count)
{
    QByteArray tower = Common() + Bytes(uint32_t{0});
    for (int i = 1; i < depth; ++i)
        tower = Common() + Bytes(uint32_t{1}, kGroup) + tower;
    return Repeated(kGroup, tower, count);
}

/// Pictures of one size, each with other pixels.
QByteArray DifferentPictures(int count)
{
    QByteArray stream = Bytes(static_cast<uint32_t>(count));
    for (int i = 0; i < count; ++i) {
        const QByteArray pixel = Picture(4, 1, 4, Bytes(static_cast<int32_t>(i)));
        stream += Bytes(kImage) + Image(pixel, pixel);
    }
    return stream;
}

QByteArray Array(const QByteArray& member, uint32_t tag)
{
    const QByteArray cell = Bytes(int32_t{0}, 0.0, 0.0, uint8_t{1}, uint8_t{0});
    return Common() + Repeated(tag, member, 1) + Bytes(int32_t{2}) + cell.repeated(2);
}

struct Case
{
    const char* name;
    int code; ///< what Read answers
    int version;
    std::function<QByteArray()> stream;
};

const Case kCases[] = {
    {"ShapeCount", 5, 14, [] { return Bytes(kHuge); }},
    {"PointCount", 0, 14, [] { return Bytes(uint32_t{1}, kVector) + Common(kHuge); }},
    {"OneShapeOfPoints", 0, 14, [] { return Repeated(kVector, Vector(Point(1, 2, 0).repeated(1'000'000)), 1); }},
    {"EmptyVectors", 0, 14, [] { return Repeated(kVector, Vector()); }},
    {"EmptyVectorsWithoutVersion", 0, -1, [] { return Repeated(kVector, Common()); }},
    {"SubpathsOfVersion2", 0, 2,
     [] {
         const QByteArray points = (Point(0, 0, 2) + Point(1, 2, 0) + Point(3, 4, 0)).repeated(100'000);
         return Repeated(kVector, Common(300'000, points) + Bytes(int32_t{6}), 1);
     }},
    {"EmptyTexts", 0, 14, [] { return Repeated(kText, Text("")); }},
    {"ShortTexts", 0, 14, [] { return Repeated(kText, Text("a")); }},
    {"LongTexts", 0, 14, [] { return Repeated(kText, Text(QByteArray(16'383, 'W')), 100); }},
    {"LongTextsOfVersion1", 0, 1, [] { return Repeated(kText, OldText(QByteArray(16'383, 'W')), 100); }},
    {"ShortTextsOfVersion1", 0, 1, [] { return Repeated(kText, OldText("abcde")); }},
    {"TextLength", 0, 14, [] { return Bytes(uint32_t{1}, kText) + Vector() + Bytes(int32_t{0x7fffffff}); }},
    {"EmptyGroups", 0, 14, [] { return Repeated(kGroup, Common() + Bytes(uint32_t{0})); }},
    {"Towers", 0, 14, [] { return Towers(255, 100); }},
    {"TooHighTower", 5, 14, [] { return Towers(20'000, 1); }},
    {"EmptyArrays", 0, 14, [] { return Repeated(kArray, Common() + Bytes(uint32_t{0}, uint32_t{0})); }},
    {"CellCount", 0, 14, [] { return Repeated(kArray, Common() + Bytes(uint32_t{0}, uint32_t{0x7fffffff}), 1); }},
    {"Cells", 0, 14,
     [] { return Repeated(kArray, Common() + Bytes(uint32_t{0}, uint32_t{100'000}) + QByteArray(2'200'000, 1), 1); }},
    {"ArraysOfLongTexts", 0, 14, [] { return Repeated(kArray, Array(Text(QByteArray(16'383, 'W')), kText), 100); }},
    {"ArraysOfShortTexts", 0, 14, [] { return Repeated(kArray, Array(Text("a"), kText)); }},
    {"ArraysInArrays", 0, 14,
     [] {
         QByteArray array = Array(Text(QByteArray(16'383, 'W')), kText);
         for (int i = 0; i < 200; ++i)
             array = Array(array, kArray);
         return Repeated(kArray, array, 40);
     }},
    {"ShortPicture", 0, 14,
     [] {
         return Bytes(uint32_t{1}, kImage) + Common() + Bytes(int32_t{3}) + String("") + Picture(11584, 11584, 11584);
     }},
    {"ShortPictureWithGaps", 0, 14,
     [] {
         return Bytes(uint32_t{1}, kImage) + Common() + Bytes(int32_t{3}) + String("") + Picture(11580, 11584, 11584);
     }},
    {"EqualPictures", 0, 14,
     [] { return Repeated(kImage, Image(Picture(4, 1, 4, "abcd"), Picture(4, 1, 4, "abcd"))); }},
    {"DifferentPictures", 0, 14, [] { return DifferentPictures(kShapes); }},
    {"EmptyPictures", 0, 14, [] { return Repeated(kImage, Image(Picture(0, 0, 0), Picture(0, 0, 0))); }},
    {"CodeLength", 0, 14,
     [] {
         return Bytes(uint32_t{1}, kCodeImage) + Image(Picture(0, 0, 0), Picture(0, 0, 0)) +
                Bytes(uint8_t{1}, int32_t{0x7fffffff});
     }},
};

/// A line of the process's own memory figures, in bytes.
qint64 MemoryFigure(const char* name)
{
    QFile status("/proc/self/status");
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith(name))
            return line.mid(static_cast<qsizetype>(std::strlen(name))).simplified().split(' ').first().toLongLong() *
                   1024;
    return 0;
}

void ForgetPeak()
{
    QFile clear("/proc/self/clear_refs");
    if (clear.open(QIODevice::WriteOnly))
        clear.write("5");
}

double ProcessorSeconds()
{
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

class ReadBounds : public testing::TestWithParam<Case>
{};

TEST_P(ReadBounds, MemoryAndTimeFollowTheSizeOfTheFile)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("stream"));
    ASSERT_TRUE(file.open(QIODevice::ReadWrite));
    ASSERT_GT(file.write(GetParam().stream()), 0);
    file.seek(0);
    malloc_trim(0); // What earlier cases have freed must not hide what this one takes.
    const qint64 size = file.size();
    ForgetPeak();
    const qint64 before = MemoryFigure("VmRSS:");
    ASSERT_GT(before, 0);
    const double start = ProcessorSeconds();
    ShapeListOwner list = NewShapeList();
    EXPECT_EQ(list->Read(&file, GetParam().version), GetParam().code);
    list.reset(); // Freeing lays nothing out either.
    const double seconds = ProcessorSeconds() - start;
    const qint64 memory = MemoryFigure("VmHWM:") - before;
    EXPECT_LE(memory, (64LL << 20) + 32 * size) << "file of " << size;
    EXPECT_LE(seconds, 1 + 2e-6 * static_cast<double>(size)) << "file of " << size;
    RecordProperty("bytes", std::to_string(size));
    RecordProperty("memory", std::to_string(memory));
    RecordProperty("seconds", std::to_string(seconds));
}

TEST(TowerOfGroups, CostsOneOutline)
{
    std::vector<QPointF> points;
    for (int i = 0; i < 100'000; ++i)
        points.emplace_back(i % 1'000, i / 1'000); // with type and place in a path 41 bytes each
    auto* shape = new CShapeVector;
    shape->SetVectorType(EVECTOR_MIXED);
    shape->SetShapePoints(points, ELINE_SEGMENT_STRAIGHT);
    CShape* tower = shape;
    for (int i = 0; i < 250; ++i) {
        auto* group = new CShapeGroup;
        group->GetShapeList()->AddTail(tower);
        tower = group;
    }
    const test::Document list = test::MakeList<test::Document>({tower});
    malloc_trim(0);
    ForgetPeak();
    const qint64 before = MemoryFigure("VmRSS:");
    list->AddTail(tower->Clone());
    list->Resize({5, 5, 50, 40});
    list->GetShape(0)->GetPath(false);
    EXPECT_LE(MemoryFigure("VmHWM:") - before, 64LL << 20); // two copies of the points, four of the outline
}

INSTANTIATE_TEST_SUITE_P(Streams, ReadBounds, testing::ValuesIn(kCases),
                         [](const auto& one) { return std::string(one.param.name); });

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QGuiApplication application(argc, argv);
    const ImageStores stores;
    return RUN_ALL_TESTS();
}
