/// Many pictures: filing them, saving documents of them, arrays of them.
#include "Goals.h"
#include "Growth.h"
#include "Limits.h"

#include "group/ShapeArray.h"
#include "image/ImageStores.h"
#include "image/ShapeImage.h"

#include <QFile>
#include <QHashFunctions>
#include <QTemporaryDir>

#include <benchmark/benchmark.h>

#include <opencv2/imgproc.hpp>

#include <memory>
#include <vector>

namespace {

using namespace bench;

constexpr int kFiled = 200;
constexpr int kFiledSide = 256;
constexpr int kSaved = 20;
constexpr int kSavedSide = 1024;
constexpr int kColumns = 40, kRows = 25; ///< of an array of 1,000 cells

QString FilePath(const QString& name)
{
    static const QTemporaryDir folder;
    return folder.filePath(name);
}

cv::Mat Noise(int side)
{
    cv::Mat noise(side, side, CV_8UC1);
    cv::randu(noise, 0, 255);
    return noise;
}

/// Of one size, each with its own two bytes in the middle, so that samples hardly tell them apart.
std::vector<cv::Mat> NearlyEqual(int count)
{
    const cv::Mat noise = Noise(kFiledSide);
    std::vector<cv::Mat> pictures;
    for (int i = 0; i < count; ++i) {
        unsigned char* bytes = pictures.emplace_back(noise.clone()).ptr(kFiledSide / 2 + 1);
        bytes[3] = static_cast<unsigned char>(i % 256);
        bytes[5] = static_cast<unsigned char>(i / 256);
    }
    return pictures;
}

Side FileAll(int count)
{
    struct Filed
    {
        ImageMgr store;
        std::vector<std::unique_ptr<CShapeImage>> users;
        std::vector<cv::Mat> pictures;
    };
    const auto filed = std::make_shared<Filed>();
    filed->pictures = NearlyEqual(count);
    for (int i = 0; i < count; ++i)
        filed->users.push_back(std::make_unique<CShapeImage>());
    return {[filed] {
                for (size_t i = 0; i < filed->users.size(); ++i)
                    filed->store.Add(filed->pictures[i], filed->users[i].get());
            },
            [filed] { filed->store.Clear(); }};
}

Side HashAll(int count)
{
    return {[pictures = NearlyEqual(count)] {
        for (const cv::Mat& picture : pictures)
            benchmark::DoNotOptimize(qHashBits(picture.data, picture.total()));
    }};
}

/// Turned pictures, whose display images are warped and kept.
struct Pictures : ImageStores
{
    ImageMgr &image = Working(), &original = Original(), &cache = Cache();
    std::vector<std::unique_ptr<CShapeImage>> shapes;

    explicit Pictures(int count)
    {
        for (int i = 0; i < count; ++i) {
            cv::Mat picture = Noise(kSavedSide);
            CShapeImage& shape = *shapes.emplace_back(std::make_unique<CShapeImage>());
            shape.SetOrgRect({0, 0, 100, 100}, true);
            shape.SetImage(picture, false);
            shape.Rotate(10, {50, 50}, Qt::ZAxis);
        }
        Save();
    }
    void Save() const
    {
        QFile file(FilePath("pictures.bin"));
        (void)file.open(QIODevice::WriteOnly);
        for (const auto& shape : shapes)
            shape->Save(&file);
    }
    void EditOne() const { shapes.front()->Rotate(1, {50, 50}, Qt::ZAxis); }
};

Side SaveAfterEdit(const std::shared_ptr<Pictures>& pictures)
{
    return {[=] { pictures->Save(); }, [=] { pictures->EditOne(); }};
}

/// The limit: the original of each picture is warped onto its corners, as it is saved beside what is shown.
Side WarpAndWrite(int count)
{
    const cv::Mat turn = cv::getRotationMatrix2D({kSavedSide / 2, kSavedSide / 2}, 10, 1);
    cv::Mat matrix = cv::Mat::eye(3, 3, CV_64F);
    turn.copyTo(matrix.rowRange(0, 2));
    const auto reach = static_cast<int>(1.16 * kSavedSide); // of the turned square
    return {[=, picture = Noise(kSavedSide), write = WriteOnce(FilePath("pictures.bin"), FilePath("once.bin"))] {
        cv::Mat warped;
        for (int i = 0; i < count; ++i)
            cv::warpPerspective(picture, warped, matrix, cv::Size(reach, reach), cv::INTER_NEAREST);
        benchmark::DoNotOptimize(warped.data);
        write.run();
    }};
}

/// The shapes of all cells of an array of one picture; their pixels are shared.
Side ShapesOfCells(const std::shared_ptr<Pictures>& pictures, int rows)
{
    const auto array = std::make_shared<CShapeArray>();
    array->GetShapeList()->AddTail(pictures->shapes.front()->Clone());
    array->SetArrayInfo(kColumns, rows, 1, 1, 0, 0);
    return {[=] {
        CShapeList* all = array->GetAllShapeList();
        all->DeleteAll();
        CShapeList::Release(all);
    }};
}

Side ClonesOfPicture(const std::shared_ptr<Pictures>& pictures, int count)
{
    return {[=] {
        std::vector<CShape*> clones;
        for (int i = 0; i < count; ++i) {
            clones.push_back(pictures->shapes.front()->Clone());
            clones.back()->Offset(1, 1);
        }
        for (CShape* clone : clones)
            CShape::Release(clone);
    }};
}

const bool kRegistered = Register({
    GrowthRow("N7 200 different pictures of 256 x 256 filed", kFiled, FileAll),
    {.name = "N7 the same",
     .against = "each byte hashed once",
     .goal = AtMost(2.5),
     .sides =
         [] {
             return Sides{FileAll(kFiled), HashAll(kFiled)};
         }},
    {.name = "N8 saving 20 pictures of 1024 x 1024, one edited",
     .against = "one warp a picture, one write",
     .goal = AtMost(1.3),
     .sides =
         [] {
             const auto pictures = std::make_shared<Pictures>(kSaved);
             return Sides{SaveAfterEdit(pictures), WarpAndWrite(kSaved)};
         },
     .rounds = 7},
    {.name = "N9 shapes of an array of 1,000 pictures",
     .against = "as many clones, moved",
     .goal = AtMost(1.2),
     .sides =
         [] {
             const auto pictures = std::make_shared<Pictures>(1);
             return Sides{ShapesOfCells(pictures, kRows), ClonesOfPicture(pictures, kColumns * kRows)};
         },
     .rounds = 9},
    {.name = "N9 shapes of an array of 10,000 pictures",
     .against = "1,000 pictures",
     .goal = AtMost(12),
     .sides =
         [] {
             const auto pictures = std::make_shared<Pictures>(1);
             return Sides{ShapesOfCells(pictures, 10 * kRows), ShapesOfCells(pictures, kRows)};
         },
     .rounds = 7},
});

} // namespace
