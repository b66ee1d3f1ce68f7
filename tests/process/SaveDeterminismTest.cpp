/// The same document gives the same bytes, whatever lay in the memory that its shapes were made in.
#include "ProcessTest.h"
#include "support/EveryKind.h"

#include <QProcess>

#include <iostream>

using namespace test;

namespace {

constexpr char kWriter[] = "WRITES_DOCUMENT";

/// The document as a process of its own writes it whose fresh memory holds the byte.
QByteArray WrittenWithPoison(int byte)
{
    QProcess process;
    auto environment = QProcessEnvironment::systemEnvironment();
    environment.insert("MALLOC_PERTURB_", QString::number(byte));
    environment.insert(kWriter, "1");
    environment.insert("ASAN_OPTIONS", QString("max_malloc_fill_size=1000000000:malloc_fill_byte=%1").arg(byte));
    process.setProcessEnvironment(environment);
    process.start(QCoreApplication::applicationFilePath(), {"--gtest_filter=*two_processes*"});
    process.waitForFinished();
    EXPECT_TRUE(process.exitStatus() == QProcess::NormalExit && process.exitCode() == 0);
    return process.readAllStandardError();
}

TEST(SaveDeterminism, two_processes_write_the_same_bytes)
{
    const ImageStores stores;
    if (qEnvironmentVariableIsSet(kWriter)) {
        std::cerr << StreamOf(*EveryKind()).toHex().toStdString();
        return;
    }
    const QByteArray first = WrittenWithPoison(0x55);
    EXPECT_GT(first.size(), 1'000);
    EXPECT_EQ(first, WrittenWithPoison(0xAA));
}

TEST(SaveDeterminism, saving_and_loading_again_change_nothing)
{
    const ImageStores stores;
    const Document list = EveryKind();
    const QByteArray first = StreamOf(*list);
    EXPECT_EQ(StreamOf(*list), first) << "saving changes what is saved";
    QByteArray before =
        StreamOf(*ListFrom(first)); // fits turned pictures' pixels to their rectangles, which is done once
    for (int round = 0; round < 50; ++round)
        ASSERT_EQ(StreamOf(*ListFrom(before)), before) << round;
}

} // namespace
