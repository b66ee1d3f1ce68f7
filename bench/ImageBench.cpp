/// Display images, copies and loading of pictures, each beside the limit it cannot beat.
#include "image/ImageMgr.h"
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

constexpr int kSide = 4096;       ///< pixels of the picture that is warped
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

struct Stores
{
    ImageMgr image, original, cache;
    Stores()
    {
        CShapeImage::SetImageMgr(&image);
        CShapeImage::SetOrgImageMgr(&original);
        CShapeImage::SetCacheImageMgr(&cache);
    }
    ~Stores()
    {
        CShapeImage::SetImageMgr(nullptr);
        CShapeImage::SetOrgImageMgr(nullptr);
        CShapeImage::SetCacheImageMgr(nullptr);
    }
};

void Place(CShapeImage& shape, cv::Mat& picture)
{
    shape.SetOrgRect({0, 0, 2 * kHalf, 2 * kHalf * picture.rows / picture.cols}, true);
    shape.SetImage(picture, false);
}

// The display image of a picture turned by 30 degrees: the warp alone, and the shape's.

void WarpLimit(benchmark::State& state)
{
    const cv::Mat picture = Picture(kSide, kSide);
    const double turn = kAngle * CV_PI / 180, reach = std::cos(turn) + std::sin(turn);
    const auto far = static_cast<float>(kSide);
    const auto near = static_cast<float>(kSide * std::sin(turn) / reach), rest = far - near;
    const std::array<cv::Point2f, 4> from{{{0, 0}, {far, 0}, {far, far}, {0, far}}};
    const std::array<cv::Point2f, 4> to{{{near, 0}, {far, near}, {rest, far}, {0, rest}}};
    const cv::Mat matrix = cv::getPerspectiveTransform(from.data(), to.data());
    for (auto _ : state) {
        cv::Mat warped;
        cv::warpPerspective(picture, warped, matrix, picture.size(), cv::INTER_NEAREST, cv::BORDER_CONSTANT,
                            cv::Scalar::all(255));
        benchmark::DoNotOptimize(warped.data);
    }
}
BENCHMARK(WarpLimit)->Unit(benchmark::kMillisecond);

void DisplayImageTurned(benchmark::State& state)
{
    Stores stores;
    CShapeImage shape;
    cv::Mat picture = Picture(kSide, kSide);
    Place(shape, picture);
    shape.Rotate(kAngle, {kHalf, kHalf}, Qt::ZAxis);
    for (auto _ : state) {
        shape.RemoveImageCache();
        benchmark::DoNotOptimize(shape.GetImage(false).data);
    }
}
BENCHMARK(DisplayImageTurned)->Unit(benchmark::kMillisecond);

// Pictures that need no warp: one deep copy, and the shape's.

void CopyLimit(benchmark::State& state)
{
    const cv::Mat picture = Picture(kSide, kSide);
    for (auto _ : state)
        benchmark::DoNotOptimize(picture.clone().data);
}
BENCHMARK(CopyLimit)->Unit(benchmark::kMillisecond);

void DisplayImageUnedited(benchmark::State& state)
{
    Stores stores;
    CShapeImage shape;
    cv::Mat picture = Picture(kSide, kSide);
    Place(shape, picture);
    for (auto _ : state) {
        shape.RemoveImageCache();
        benchmark::DoNotOptimize(shape.GetImage(false).data);
    }
}
BENCHMARK(DisplayImageUnedited)->Unit(benchmark::kMillisecond);

void DisplayImageCached(benchmark::State& state)
{
    Stores stores;
    CShapeImage shape;
    cv::Mat picture = Picture(kSide, kSide);
    Place(shape, picture);
    shape.Rotate(kAngle, {kHalf, kHalf}, Qt::ZAxis);
    shape.GetImage(false);
    for (auto _ : state)
        benchmark::DoNotOptimize(shape.GetImage(false).data);
}
BENCHMARK(DisplayImageCached)->Unit(benchmark::kMillisecond);

// Filing a picture: comparing the bytes, and the store with an equal picture that lies elsewhere or in the same buffer.

void CompareLimit(benchmark::State& state)
{
    const cv::Mat picture = Picture(kSide, kSide), again = picture.clone();
    for (auto _ : state)
        benchmark::DoNotOptimize(std::memcmp(picture.data, again.data, picture.total()));
}
BENCHMARK(CompareLimit)->Unit(benchmark::kMillisecond);

void FilePicture(benchmark::State& state, bool sameBuffer)
{
    ImageMgr store;
    CShapeImage first, second;
    cv::Mat picture = Picture(kSide, kSide), again = sameBuffer ? picture : picture.clone();
    store.Add(picture, &first);
    for (auto _ : state) {
        store.Add(again, &second);
        store.Remove(&second);
    }
}
BENCHMARK_CAPTURE(FilePicture, equal_bytes, false)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(FilePicture, same_buffer, true)->Unit(benchmark::kMillisecond);

/// 1000 copies of a turned picture of 10 megapixels, each shown; the counters say what the stores then hold.
void ThousandClones(benchmark::State& state)
{
    Stores stores;
    CShapeImage shape;
    cv::Mat picture = Picture(4000, 2500);
    Place(shape, picture);
    stores.original.Add(picture, &shape);
    shape.Rotate(kAngle, {kHalf, kHalf}, Qt::ZAxis);
    std::set<const unsigned char*> buffers;
    for (auto _ : state) {
        shape.GetImage(false);
        std::vector<std::unique_ptr<CShape>> clones;
        CShape* last = &shape;
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

// Loading: one decode in the mode that the file needs, and the shape's.

struct LoadedFile
{
    const char* name;
    int type;
    int decode;
};
const std::array<LoadedFile, 4> kFiles{{{"grey.png", CV_8UC1, cv::IMREAD_GRAYSCALE},
                                        {"colour.png", CV_8UC3, cv::IMREAD_GRAYSCALE},
                                        {"clear.png", CV_8UC4, cv::IMREAD_UNCHANGED},
                                        {"photo.jpg", CV_8UC3, cv::IMREAD_GRAYSCALE}}};

QByteArray PathOf(const LoadedFile& file)
{
    static const QTemporaryDir folder;
    const QString path = folder.filePath(file.name);
    if (!QFile::exists(path))
        cv::imwrite(path.toStdString(), Picture(kLoadedSide, kLoadedSide, file.type));
    return path.toUtf8();
}

void DecodeLimit(benchmark::State& state)
{
    const LoadedFile& loaded = kFiles[static_cast<size_t>(state.range(0))];
    state.SetLabel(loaded.name);
    QFile file(QString::fromUtf8(PathOf(loaded)));
    file.open(QIODevice::ReadOnly);
    const QByteArray bytes = file.readAll();
    const std::vector<char> encoded(bytes.begin(), bytes.end());
    for (auto _ : state)
        benchmark::DoNotOptimize(cv::imdecode(encoded, loaded.decode).data);
}

void OpenPicture(benchmark::State& state)
{
    const LoadedFile& loaded = kFiles[static_cast<size_t>(state.range(0))];
    state.SetLabel(loaded.name);
    QByteArray path = PathOf(loaded);
    Stores stores;
    for (auto _ : state) {
        CShapeImage shape;
        benchmark::DoNotOptimize(shape.OpenImage(path.data()));
    }
}

void LoadedFiles(benchmark::internal::Benchmark* rows)
{
    rows->DenseRange(0, static_cast<int>(kFiles.size()) - 1)->Unit(benchmark::kMillisecond);
}
BENCHMARK(DecodeLimit)->Apply(LoadedFiles);
BENCHMARK(OpenPicture)->Apply(LoadedFiles);

} // namespace
