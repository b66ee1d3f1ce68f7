// The 12 bytes in front of documents, as hosts read and write them.
#include "document/FileHeader.h"
#include "document/Failure.h"

#include "support/StreamFile.h"

#include <QBuffer>
#include <gtest/gtest.h>

#include <tuple>

using namespace test;
using namespace shapedocument;

namespace {

/// "14, at 12" of the version and of where the device stands behind it, or the failure's text.
std::string Read(const QByteArray& bytes)
{
    QBuffer device;
    device.setData(bytes);
    device.open(QIODevice::ReadOnly);
    try {
        const int version = ReadHeader(device, "a.shapes");
        return std::to_string(version) + ", at " + std::to_string(device.pos());
    } catch (const Failure& failure) {
        return (failure.file + " " + failure.reason).toStdString();
    }
}

TEST(FileHeader, is_written_recognised_and_read)
{
    const QByteArray magic = "SHAPEDOC", present = magic + Raw(14), list = Raw(0);
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    EXPECT_TRUE(WriteHeader(device));
    EXPECT_EQ(device.data(), present);
    device.close();
    EXPECT_FALSE(WriteHeader(device)) << "a closed device takes nothing";

    const std::tuple<QByteArray, std::optional<int>, const char*> rows[] = {
        {present + list, 14, "14, at 12"},
        {magic + Raw(0) + list, 0, "0, at 12"},
        {magic + Raw(15), 15, "a.shapes has version 15; 0 to 14 can be read"},
        {magic + Raw(-1), -1, "a.shapes has version -1; 0 to 14 can be read"},
        {present.first(11), std::nullopt, "a.shapes ends within its header"},
        {list + present, std::nullopt, "a.shapes is no shape document"},
        {"", std::nullopt, "a.shapes is no shape document"},
    };
    for (const auto& [bytes, recognised, read] : rows) {
        EXPECT_EQ(RecogniseHeader(Span(bytes)), recognised) << read;
        EXPECT_EQ(Read(bytes), read);
    }
}

} // namespace
