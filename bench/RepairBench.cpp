/// Repair of damaged documents.
#include "Drawings.h"
#include "Goals.h"
#include "Growth.h"

#include "check/StreamCheck.h"
#include "check/StreamRepair.h"

#include <QBuffer>
#include <QFile>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <cstring>
#include <random>

namespace {

using namespace bench;
using namespace shapedocument;

constexpr int kMegabyte = 1'000'000;
constexpr int kLarge = 100; ///< megabytes
constexpr int kVersion = 14;
constexpr int kPoints = 100;             ///< a shape
constexpr int kShapesPerMegabyte = 1049; ///< of 953 bytes

using Stream = std::shared_ptr<std::vector<unsigned char>>;

Stream Intact(int megabytes)
{
    const QTemporaryDir folder;
    QFile file(folder.filePath("drawing.bin"));
    (void)file.open(QIODevice::ReadWrite);
    Drawing(megabytes * kShapesPerMegabyte, kPoints)->Save(&file);
    file.seek(0);
    const QByteArray bytes = file.readAll();
    return std::make_shared<std::vector<unsigned char>>(bytes.begin(), bytes.end());
}

/// Each megabyte has a hole of 2,000 bytes of noise.
Stream Damaged(int megabytes)
{
    const Stream stream = Intact(megabytes);
    std::mt19937 random(5);
    for (size_t at = kMegabyte / 2; at + 2000 < stream->size(); at += kMegabyte)
        for (size_t i = 0; i < 2000; ++i)
            (*stream)[at + i] = static_cast<unsigned char>(random());
    return stream;
}

Side Repair(int megabytes)
{
    return {[stream = Damaged(megabytes)] {
        const Salvage salvage = SalvageStream(*stream, 0, kVersion);
        benchmark::DoNotOptimize(SavedStream(*stream, salvage).size());
    }};
}

/// The limit: the walk that finds no fault, and one copy.
Side WalkAndCopy(int megabytes)
{
    return {[stream = Intact(megabytes)] {
        benchmark::DoNotOptimize(CheckStream(*stream, 0, kVersion).shapes);
        benchmark::DoNotOptimize(
            QByteArray(reinterpret_cast<const char*>(stream->data()), static_cast<qsizetype>(stream->size())).size());
    }};
}

const bool kRegistered = Register({
    GrowthRow("R1 repair of 100 MB, a hole in each", kLarge, Repair),
    {.name = "R1 the same",
     .against = "intact bytes checked and copied once",
     .goal = AtMost(2),
     .sides =
         [] {
             return Sides{Repair(kLarge), WalkAndCopy(kLarge)};
         },
     .rounds = 3},
});

} // namespace
