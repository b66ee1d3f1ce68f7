/// The same document gives the same bytes, whatever lay in the memory that its shapes were made in.
#include "group/ShapeArray.h"
#include "image/CodeShapeImage.h"
#include "image/ImageMgr.h"
#include "support/Lists.h"
#include "text/ShapeText.h"

#include <QFile>
#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstring>

namespace {

constexpr int kVersion = 14;
constexpr char kWriteDocument[] = "--write-document";

void AddVectors(CShapeList& list)
{
    for (int type = EVECTOR_RECT; type <= EVECTOR_MIXED; ++type) {
        auto* shape = new CShapeVector;
        shape->SetShapeEllipse(QRectF(10 * type, 5, 8, 6));
        shape->SetVectorType(static_cast<EVECTOR_TYPE>(type));
        shape->SetExtractContour(type % 2);
        list.AddTail(shape);
    }
}

CShape* NewText()
{
    auto* shape = new CShapeText;
    SText text;
    std::strcpy(text.pText, "one\ntwo");
    text.bMirrorX = 1;
    shape->SetText(text);
    return shape;
}

template <class Image>
Image* NewImage(int brightness)
{
    auto* shape = new Image;
    cv::Mat picture(3, 5, CV_8U, cv::Scalar(brightness)); // 5 columns become a multiple of 4
    shape->SetOrgRect(QRectF(1, 2, 50, 30), true);
    shape->SetPoints(QRectF(1, 2, 50, 30));
    shape->SetImage(picture, false);
    shape->Rotate(20, QPointF(3, 4), Qt::ZAxis);
    return shape;
}

CShape* NewArray()
{
    auto* array = new CShapeArray;
    array->GetShapeList()->AddTail(test::NewRect(QRectF(0, 0, 4, 3)));
    array->GetShapeList()->AddTail(NewText());
    array->SetArrayInfo(2, 2, 1, 1, 0.5, 0);
    array->SetInvalid(3);
    return array;
}

test::Document EveryKind()
{
    test::Document list(CShapeList::New());
    AddVectors(*list);
    list->AddTail(NewText());
    list->AddTail(NewImage<CShapeImage>(70));
    auto* code = NewImage<CCodeShapeImage>(90);
    code->SetCodeText("code");
    list->AddTail(code);
    auto* group = new CShapeGroup;
    group->GetShapeList()->AddTail(NewImage<CShapeImage>(70));
    group->GetShapeList()->AddTail(NewArray());
    list->AddTail(group);
    return list;
}

QByteArray Content(const QString& name)
{
    QFile file(name);
    (void)file.open(QIODevice::ReadOnly);
    return file.readAll();
}

void Save(CShapeList& list, const QString& name)
{
    QFile file(name);
    (void)file.open(QIODevice::WriteOnly);
    list.Save(&file);
}

/// Reads the document and saves it under the other name.
void SaveAgain(const QString& from, const QString& to)
{
    const test::Document list(CShapeList::New());
    QFile file(from);
    (void)file.open(QIODevice::ReadOnly);
    ASSERT_EQ(list->Read(&file, kVersion), 0);
    ASSERT_TRUE(file.atEnd());
    Save(*list, to);
}

/// The document as a process of its own writes it whose fresh memory holds the byte.
QByteArray WrittenWithPoison(const QString& name, int byte)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("MALLOC_PERTURB_", QString::number(byte));
    environment.insert("ASAN_OPTIONS", QString("max_malloc_fill_size=1000000000:malloc_fill_byte=%1").arg(byte));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {kWriteDocument, name});
    process.waitForFinished();
    EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
    EXPECT_EQ(process.exitCode(), 0);
    return Content(name);
}

TEST(SaveDeterminism, TwoProcessesWriteTheSameBytes)
{
    const QTemporaryDir folder;
    const QByteArray first = WrittenWithPoison(folder.filePath("a"), 0x55);
    EXPECT_GT(first.size(), 1'000);
    EXPECT_EQ(first, WrittenWithPoison(folder.filePath("b"), 0xAA));
}

TEST(SaveDeterminism, SavingAndLoadingAgainChangeNothing)
{
    const QTemporaryDir folder;
    const QString first = folder.filePath("1"), second = folder.filePath("2"), third = folder.filePath("3");
    const test::Document list = EveryKind();
    Save(*list, first);
    Save(*list, second);
    EXPECT_EQ(Content(first), Content(second)) << "saving changes what is saved";
    SaveAgain(first, second); // fits the turned pictures' pixels to their rectangles, which is done once
    SaveAgain(second, third);
    EXPECT_EQ(Content(second), Content(third));
}

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleTest(&argc, argv);
    const QTemporaryDir configuration;
    qputenv("XDG_CONFIG_HOME", configuration.path().toUtf8());
    const QGuiApplication application(argc, argv);
    ImageMgr pictures, originals, shown;
    CShapeImage::SetImageMgr(&pictures);
    CShapeImage::SetOrgImageMgr(&originals);
    CShapeImage::SetCacheImageMgr(&shown);
    if (argc == 3 && std::strcmp(argv[1], kWriteDocument) == 0) {
        Save(*EveryKind(), argv[2]);
        return 0;
    }
    return RUN_ALL_TESTS();
}
