/// The same document gives the same bytes, whatever lay in the memory that its shapes were made in.
#include "EveryKind.h"

#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cstring>

using namespace test;

namespace {

constexpr char kWriteDocument[] = "--write-document";

/// Reads the document and saves it under the other name.
void SaveAgain(const QString& from, const QString& to)
{
    const Document list(CShapeList::New());
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
    const Document list = EveryKind();
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
    const ImageStores stores;
    if (argc == 3 && std::strcmp(argv[1], kWriteDocument) == 0) {
        Save(*EveryKind(), argv[2]);
        return 0;
    }
    return RUN_ALL_TESTS();
}
