/// The same document gives the same bytes, whatever lay in the memory that its shapes were made in.
#include "support/EveryKind.h"

#include <QGuiApplication>
#include <QProcess>
#include <QTemporaryDir>

using namespace test;

namespace {

constexpr char kWriteDocument[] = "--write-document";

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

TEST(SaveDeterminism, two_processes_write_the_same_bytes)
{
    const QTemporaryDir folder;
    const QByteArray first = WrittenWithPoison(folder.filePath("a"), 0x55);
    EXPECT_GT(first.size(), 1'000);
    EXPECT_EQ(first, WrittenWithPoison(folder.filePath("b"), 0xAA));
}

TEST(SaveDeterminism, saving_and_loading_again_change_nothing)
{
    const Document list = EveryKind();
    const QByteArray first = StreamOf(*list);
    EXPECT_EQ(StreamOf(*list), first) << "saving changes what is saved";
    QByteArray before =
        StreamOf(*ListFrom(first)); // fits turned pictures' pixels to their rectangles, which is done once
    for (int round = 0; round < 50; ++round)
        ASSERT_EQ(StreamOf(*ListFrom(before)), before) << round;
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
