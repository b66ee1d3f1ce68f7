// The 12 bytes in front of documents, as hosts read and write them.
#include "document/FileHeader.h"
#include "document/Failure.h"

#include <QBuffer>
#include <gtest/gtest.h>

namespace shapedocument {

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
    const QByteArray present = QByteArray::fromHex("53484150 45444f43 0e000000"), list = QByteArray(4, '\0');
    QBuffer device;
    device.open(QIODevice::WriteOnly);
    EXPECT_TRUE(WriteHeader(device));
    EXPECT_EQ(device.data(), present);
    device.close();
    EXPECT_FALSE(WriteHeader(device)) << "a closed device takes nothing";

    const struct
    {
        const char* name;
        QByteArray bytes;
        std::optional<int> recognised;
        const char* read;
    } rows[] = {
        {"present version", present + list, 14, "14, at 12"},
        {"oldest version", QByteArray("SHAPEDOC") + list, 0, "0, at 12"},
        {"version to come", "SHAPEDOC" + QByteArray::fromHex("0f000000"), 15,
         "a.shapes has version 15; 0 to 14 can be read"},
        {"negative version", "SHAPEDOC" + QByteArray::fromHex("ffffffff"), -1,
         "a.shapes has version -1; 0 to 14 can be read"},
        {"torn", present.first(11), std::nullopt, "a.shapes ends within its header"},
        {"bare list", list + present, std::nullopt, "a.shapes is no shape document"},
        {"nothing", "", std::nullopt, "a.shapes is no shape document"},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(
            RecogniseHeader({reinterpret_cast<const unsigned char*>(row.bytes.constData()), size_t(row.bytes.size())}),
            row.recognised);
        EXPECT_EQ(Read(row.bytes), row.read);
    }
}

} // namespace

} // namespace shapedocument
