/// The table of the format beside the classes that read and write records, and beside its description for readers.
#include "record/RecordFormat.h"
#include "check/StreamCheck.h"
#include "image/Pictures.h"
#include "support/Lists.h"
#include "support/StreamFile.h"

#include <gtest/gtest.h>

#include <QFile>

#include <cstring>

using namespace test;
using namespace shapes;

namespace {

/// Writes records by the table. The values differ from field to field, so that fields read in another order are seen.
class TableWriter
{
public:
    explicit TableWriter(int version) : m_version(version) {}

    QByteArray Bytes() const { return m_bytes; }

    void PutList(const std::vector<const RecordFormat*>& formats)
    {
        Put(static_cast<uint32_t>(formats.size()));
        for (const RecordFormat* format : formats) {
            Put(format->tag);
            PutFields(kCommonFields);
            for (const std::span<const Field> part : format->parts)
                PutFields(part);
        }
    }

private:
    template <class Number>
    void Put(Number value)
    {
        m_bytes.append(reinterpret_cast<const char*>(&value), sizeof value);
    }

    void PutFields(std::span<const Field> fields)
    {
        for (const Field& field : fields)
            if (m_version >= field.since)
                PutField(field);
    }

    void PutField(const Field& field)
    {
        ++m_number;
        switch (field.type) {
        case Content::Int32:
        case Content::Bits:
            Put(static_cast<int32_t>(field.range.Holds(m_number) ? m_number : field.range.high));
            break;
        case Content::Byte:
            Put(static_cast<uint8_t>(m_number % 2));
            break;
        case Content::Color:
            Put(uint32_t{0x102030});
            break;
        case Content::Float:
            Put(static_cast<float>(m_number));
            break;
        case Content::Double:
            Put(m_number + 0.5);
            break;
        case Content::Unused:
            m_bytes.append(field.range.high, '\0');
            break;
        case Content::Text:
            Put(int32_t{2});
            m_bytes.append("T").append(static_cast<char>('A' + m_number % 26));
            break;
        case Content::Picture:
            for (const int32_t size : {4, 1, 8, 4})
                Put(size);
            m_bytes.append(4, static_cast<char>(m_number));
            break;
        case Content::Rows:
            PutRows(field);
            break;
        case Content::Members:
            PutList({FormatOf(ESHAPE_VECTOR)});
            break;
        }
    }

    /// As many rows as a picture has corners, 4 x 1: the one outline that all kinds of shapes read and write alike.
    void PutRows(const Field& field)
    {
        constexpr float kCorners[][2] = {{0, 0}, {4, 0}, {4, 1}, {0, 1}, {0, 0}};
        Put(int32_t{5});
        for (const auto& corner : kCorners) {
            if (field.rows == &kPointRow) {
                Put(corner[0]);
                Put(corner[1]);
                Put(uint8_t{0});
            } else {
                for (const Field& part : field.rows->fields)
                    PutField(part);
            }
        }
    }

    int m_version;
    int m_number = 0;
    QByteArray m_bytes;
};

// Every class reads exactly the bytes that the table says, in every version, and what it writes is what the table says.
TEST(RecordFormat, classes_read_and_write_what_the_table_says)
{
    const Stores stores;
    for (const RecordFormat& format : kRecordFormats)
        for (int version = kFirstVersion; version <= kLatestVersion; ++version) {
            SCOPED_TRACE(std::string(format.name) + ", version " + std::to_string(version));
            TableWriter writer(version);
            writer.PutList({&format, FormatOf(ESHAPE_VECTOR)});
            StreamFile stream(writer.Bytes().toHex().toStdString());
            const auto list = MakeList<Document>();
            ASSERT_EQ(list->Read(stream.File(), version), 0);
            EXPECT_TRUE(stream.File()->atEnd());

            StreamFile saved;
            list->Save(saved.File());
            const QByteArray bytes = QByteArray::fromHex(QByteArray::fromStdString(saved.Hex()));
            const auto fault = shapedocument::CheckStream(
                {reinterpret_cast<const unsigned char*>(bytes.data()), static_cast<size_t>(bytes.size())}, 0,
                kLatestVersion);
            EXPECT_FALSE(fault.fault) << fault.fault->path.toStdString() << fault.fault->reason.toStdString();
            if (version == kLatestVersion && format.tag != ESHAPE_TEXT) { // whose outline is laid out anew
                EXPECT_EQ(saved.Hex(), writer.Bytes().toHex().toStdString());
            }
        }
}

QString Row(const QStringList& cells)
{
    return "| " + cells.join(" | ") + " |\n";
}

QString Number(int64_t value)
{
    return value == std::numeric_limits<int32_t>::max() ? "2^31 - 1" : QString::number(value);
}

QString TypeText(const Field& field)
{
    switch (field.type) {
    case Content::Int32:
        return "int32";
    case Content::Byte:
        return "uint8";
    case Content::Bits:
        return "uint32 of bits";
    case Content::Color:
        return "uint32, 0xRRGGBB";
    case Content::Float:
        return "float32";
    case Content::Double:
        return "float64";
    case Content::Unused:
        return QString("%1 bytes, 0").arg(field.range.high);
    case Content::Text:
        return "text";
    case Content::Picture:
        return "picture";
    case Content::Rows:
        return QString("int32 count, then as many rows \"%1\"").arg(field.rows->name.data());
    case Content::Members:
        return "a list";
    }
    return {};
}

QString RangeText(const Field& field)
{
    const bool whole = field.type == Content::Int32 || field.type == Content::Byte || field.type == Content::Bits;
    if (field.type == Content::Text)
        return QString("%1 to %2 bytes").arg(field.range.low).arg(Number(field.range.high));
    if (!whole || field.range.low == std::numeric_limits<int32_t>::min())
        return "";
    return QString("%1 to %2").arg(field.range.low).arg(field.range.high);
}

QString TableText(std::string_view title, std::span<const Field> fields)
{
    QString text = QString("\n### %1\n\n").arg(title.data());
    text += Row({"field", "bytes", "since version", "values"}) + "| --- | --- | --- | --- |\n";
    for (const Field& field : fields)
        text += Row({field.name.data(), TypeText(field), QString::number(field.since), RangeText(field)});
    return text;
}

/// What stands before the list in document files.
QString HeaderText()
{
    return "\n### header, of document files\n\n" + Row({"field", "bytes", "since version", "values"}) +
           "| --- | --- | --- | --- |\n" +
           Row({"magic", QString("%1 bytes").arg(shapedocument::kFileHeaderBytes - int(sizeof(int32_t))), "0",
                QString("the letters %1").arg(shapedocument::kFileMagic)}) +
           Row({"version", "int32", "0", QString("%1 to %2").arg(kFirstVersion).arg(kLatestVersion)});
}

/// The tables of docs/file-format.md.
QString FormatText()
{
    QString text = HeaderText() + TableText("common fields, of every shape", kCommonFields);
    text += TableText("row \"point\"", kPointFields) + TableText("vector", kVectorFields);
    text += TableText("text, behind the fields of a vector", kTextFields) + TableText("image", kImageFields);
    text += TableText("code image, behind the fields of an image", kCodeFields);
    text += TableText("group", kMemberFields) + TableText("array, behind the fields of a group", kCellListFields);
    return text + TableText("row \"cell\"", kCellFields);
}

// SHAPEMODEL_WRITE_DOCS=1 in the environment writes the tables anew (scripts/write_file_format.sh).
TEST(RecordFormat, description_tells_the_table)
{
    const QString begin = "<!-- tables: begin -->\n", end = "\n<!-- tables: end -->";
    QFile file(FILE_FORMAT_DOCUMENT);
    ASSERT_TRUE(file.open(QIODevice::ReadOnly)) << FILE_FORMAT_DOCUMENT;
    const QString text = QString::fromUtf8(file.readAll());
    file.close();
    const qsizetype from = text.indexOf(begin) + begin.size(), to = text.indexOf(end);
    ASSERT_TRUE(from >= begin.size() && to >= from);
    if (qEnvironmentVariableIsSet("SHAPEMODEL_WRITE_DOCS")) {
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write((text.first(from) + FormatText() + text.sliced(to)).toUtf8());
        return;
    }
    EXPECT_EQ(text.sliced(from, to - from).toStdString(), FormatText().toStdString());
}

} // namespace
