/// Display images, copies and loading of pictures, each beside the limit it cannot beat.
#include "Goals.h"

#include "image/ImageStores.h"
#include "image/ShapeImage.h"

#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <opencv2/imgcodecs.hpp>
#include <opencv2/imgproc.hpp>

#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <set>
#include <vector>

namespace {

using namespace bench;

constexpr int kSide = 4096;       ///< pixels of the picture that is warped
constexpr int kSmallSide = 64;    ///< pixels of the picture that is added to the stores
constexpr int kLoadedSide = 2048; ///< of the pictures in files
constexpr double kAngle = 30;
constexpr double kHalf = 50; ///< model units

cv::Mat Picture(int columns, int rows, int type = CV_8UC1)
{
    cv::Mat noise(rows, columns, type), picture(rows, columns, type);
    cv::randu(noise, 0, 16);
    for (int row = 0; row < rows; ++row)
        picture.row(row).setTo(cv::Scalar::all(128 + 90 * std::sin(row * 0.01)));
    return picture + noise;
}

struct Stores : ImageStores
{
    ImageMgr &image = Working(), &original = Original(), &cache = Cache();
};

/// A shape with a picture, in stores of its own.
struct Shown
{
    Stores stores;
    CShapeImage shape;

    explicit Shown(cv::Mat picture)
    {
        shape.SetOrgRect({0, 0, 2 * kHalf, 2 * kHalf * picture.rows / picture.cols}, true);
        shape.SetImage(picture, false);
    }
    void Turn() { shape.Rotate(kAngle, {kHalf, kHalf}, Qt::ZAxis); }
};

/// The display image, made anew each time.
Side DisplayAnew(const std::shared_ptr<Shown>& shown)
{
    return {[shown] {
        shown->shape.RemoveImageCache();
        benchmark::DoNotOptimize(shown->shape.GetImage(false).data);
    }};
}

Side WarpAlone(const cv::Mat& picture)
{
    const double turn = kAngle * CV_PI / 180, reach = std::cos(turn) + std::sin(turn);
    const auto far = static_cast<float>(kSide);
    const auto near = static_cast<float>(kSide * std::sin(turn) / reach), rest = far - near;
    const std::array<cv::Point2f, 4> from{{{0, 0}, {far, 0}, {far, far}, {0, far}}};
    const std::array<cv::Point2f, 4> to{{{near, 0}, {far, near}, {rest, far}, {0, rest}}};
    return {[picture, matrix = cv::getPerspectiveTransform(from.data(), to.data())] {
        cv::Mat warped;
        cv::warpPerspective(picture, warped, matrix, picture.size(), cv::INTER_NEAREST, cv::BORDER_CONSTANT,
                            cv::Scalar::all(255));
        benchmark::DoNotOptimize(warped.data);
    }};
}

Side DeepCopy(const cv::Mat& picture)
{
    return {[picture] { benchmark::DoNotOptimize(picture.clone().data); }};
}

Sides TurnedBesideWarp()
{
    const cv::Mat picture = Picture(kSide, kSide);
    const auto shown = std::make_shared<Shown>(picture);
    shown->Turn();
    return {DisplayAnew(shown), WarpAlone(picture)};
}

Sides UneditedBesideCopy()
{
    const cv::Mat picture = Picture(kSide, kSide);
    return {DisplayAnew(std::make_shared<Shown>(picture)), DeepCopy(picture)};
}

Sides CachedBesideCopy()
{
    const auto shown = std::make_shared<Shown>(Picture(kSide, kSide));
    shown->Turn();
    const cv::Mat displayed = shown->shape.GetImage(false);
    return {{[shown] { benchmark::DoNotOptimize(shown->shape.GetImage(false).data); }}, DeepCopy(displayed)};
}

/// Adds a picture for a second shape to a store that holds an equal one, and removes it again.
Side FileBeside(const cv::Mat& picture, const cv::Mat& equal)
{
    struct Store
    {
        ImageMgr store;
        CShapeImage first, second;
        cv::Mat again;
    };
    const auto filed = std::make_shared<Store>();
    filed->again = equal;
    cv::Mat stored = picture;
    filed->store.Add(stored, &filed->first);
    return {[filed] {
        filed->store.Add(filed->again, &filed->second);
        filed->store.Remove(&filed->second);
    }};
}

Side FileShared(int side)
{
    const cv::Mat picture = Picture(side, side);
    return FileBeside(picture, picture);
}

Sides FiledBesideCompare()
{
    const cv::Mat picture = Picture(kSide, kSide), again = picture.clone();
    const Side compare{[=] { benchmark::DoNotOptimize(std::memcmp(picture.data, again.data, picture.total())); }};
    return {FileBeside(picture, again), compare};
}

/// A picture file and the mode in which it must be decoded.
struct LoadedFile
{
    const char* name;
    int type;
    int decode;
};

QByteArray PathOf(const LoadedFile& file)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(file.name);
    if (!QFile::exists(path))
        cv::imwrite(path.toStdString(), Picture(kLoadedSide, kLoadedSide, file.type));
    return path.toUtf8();
}

Sides OpenedBesideDecoded(const LoadedFile& loaded)
{
    const QByteArray path = PathOf(loaded);
    QFile file(QString::fromUtf8(path));
    (void)file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    const auto open = [path = QByteArray(path), stores = std::make_shared<Stores>()]() mutable {
        CShapeImage shape;
        benchmark::DoNotOptimize(shape.OpenImage(path.data()));
    };
    const auto decode = [mode = loaded.decode, encoded = std::vector<char>(bytes.begin(), bytes.end())] {
        benchmark::DoNotOptimize(cv::imdecode(encoded, mode).data);
    };
    return {{open}, {decode}};
}

Row OpenRow(const LoadedFile& file)
{
    return {.name = std::string("I5 open ") + file.name + ", 2048 x 2048",
            .against = "one imdecode in the mode needed",
            .goal = AtMost(1.15),
            .sides = [file] { return OpenedBesideDecoded(file); },
            .rounds = 9};
}

const bool kRegistered = Register({
    {.name = "I1 display image, 4096 x 4096 turned by 30 degrees",
     .against = "warpPerspective alone",
     .goal = AtMost(1.05),
     .sides = TurnedBesideWarp},
    {.name = "I2 display image, no operations",
     .against = "one deep copy",
     .goal = AtMost(1.5),
     .sides = UneditedBesideCopy},
    {.name = "I3 display image, cached", .against = "one deep copy", .goal = AtMost(1.25), .sides = CachedBesideCopy},
    {.name = "I4 file a shared picture, 4096 x 4096",
     .against = "64 x 64",
     .goal = AtMost(1.2),
     .sides =
         [] {
             return Sides{FileShared(kSide), FileShared(kSmallSide)};
         }},
    {.name = "I4 file equal bytes that lie elsewhere",
     .against = "memcmp",
     .goal = AtMost(1.1),
     .sides = FiledBesideCompare},
    OpenRow({"grey.png", CV_8UC1, cv::IMREAD_GRAYSCALE}),
    OpenRow({"colour.png", CV_8UC3, cv::IMREAD_GRAYSCALE}),
    OpenRow({"clear.png", CV_8UC4, cv::IMREAD_UNCHANGED}),
    OpenRow({"photo.jpg", CV_8UC3, cv::IMREAD_GRAYSCALE}),
});

/// 1000 copies of a turned picture of 10 megapixels, each shown; the counter says what the stores then hold.
void ThousandClones(benchmark::State& state)
{
    cv::Mat picture = Picture(4000, 2500);
    Shown shown(picture);
    Stores& stores = shown.stores;
    stores.original.Add(picture, &shown.shape);
    shown.Turn();
    std::set<const unsigned char*> buffers;
    for (auto _ : state) {
        shown.shape.GetImage(false);
        std::vector<std::unique_ptr<CShape>> clones;
        CShape* last = &shown.shape;
        for (int i = 0; i < 1000; ++i)
            last = clones.emplace_back(last->Clone()).get();
        state.PauseTiming();
        for (const auto& clone : clones) {
            for (ImageMgr* store : {&stores.image, &stores.original, &stores.cache})
                if (const cv::Mat* image = store->Get(static_cast<CShapeImage*>(clone.get())))
                    buffers.insert(image->data);
        }
        state.counters["pictures"] = static_cast<double>(buffers.size());
        buffers.clear();
        clones.clear();
        state.ResumeTiming();
    }
}
BENCHMARK(ThousandClones)->Unit(benchmark::kMillisecond);

} // namespace
