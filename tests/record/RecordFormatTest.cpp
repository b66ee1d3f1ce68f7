/// The table of the format beside the classes that read and write records, and beside its description for readers.
#include "record/RecordFormat.h"
#include "check/StreamCheck.h"
#include "image/Pictures.h"
#include "support/Lists.h"
#include "support/StreamFile.h"

#include <gtest/gtest.h>

#include <QFile>

using namespace test;
using namespace shapes;

namespace {

/// Writes records by the table. The values differ from field to field, so that fields read in another order are seen.
class TableWriter
{
public:
    explicit TableWriter(int version) : m_version(version) {}

    QByteArray List(const std::vector<const RecordFormat*>& formats)
    {
        QByteArray bytes = Raw(static_cast<uint32_t>(formats.size()));
        for (const RecordFormat* format : formats) {
            bytes += Raw(format->tag) + Fields(kCommonFields);
            for (const std::span<const Field> part : format->parts)
                bytes += Fields(part);
        }
        return bytes;
    }

private:
    QByteArray Fields(std::span<const Field> fields)
    {
        QByteArray bytes;
        for (const Field& field : fields)
            if (m_version >= field.since)
                bytes += Value(field);
        return bytes;
    }

    QByteArray Value(const Field& field)
    {
        ++m_number;
        switch (field.type) {
        case Content::Int32:
        case Content::Bits:
            return Raw(static_cast<int32_t>(field.range.Holds(m_number) ? m_number : field.range.high));
        case Content::Byte:
            return Raw(static_cast<uint8_t>(m_number % 2));
        case Content::Color:
            return Raw(0x102030);
        case Content::Float:
            return Raw(static_cast<float>(m_number));
        case Content::Double:
            return Raw(m_number + 0.5);
        case Content::Unused:
            return QByteArray(field.range.high, '\0');
        case Content::Text:
            return Raw(2) + "T" + static_cast<char>('A' + m_number % 26);
        case Content::Picture:
            return Raw(4, 1, 8, 4) + QByteArray(4, static_cast<char>(m_number));
        case Content::Rows:
            return Rows(field);
        case Content::Members:
            return List({FormatOf(ESHAPE_VECTOR)});
        }
        return {};
    }

    /// As many rows as a picture has corners, 4 x 1: the one outline that all kinds of shapes read and write alike.
    QByteArray Rows(const Field& field)
    {
        QByteArray bytes = Raw(5);
        for (const auto& [x, y] : {std::pair{0.f, 0.f}, {4.f, 0.f}, {4.f, 1.f}, {0.f, 1.f}, {0.f, 0.f}})
            bytes += field.rows == &kPointRow ? Raw(x, y, uint8_t{0}) : Fields(field.rows->fields);
        return bytes;
    }

    int m_version;
    int m_number = 0;
};

// Every class reads exactly the bytes that the table says, in every version, and what it writes is what the table says.
TEST(RecordFormat, classes_read_and_write_what_the_table_says)
{
    EXPECT_EQ(kLeastShapeBytes, 4 + 44 + 4) << "tag, common fields and type of a vector of version 0";
    const Stores stores;
    for (const RecordFormat& format : kRecordFormats)
        for (int version = kFirstVersion; version <= kLatestVersion; ++version) {
            SCOPED_TRACE(std::string(format.name) + ", version " + std::to_string(version));
            const QByteArray written = TableWriter(version).List({&format, FormatOf(ESHAPE_VECTOR)});
            const QByteArray saved = StreamOf(*ListFrom(written, version));
            const auto fault = shapedocument::CheckStream(Span(saved), 0, kLatestVersion).fault;
            EXPECT_FALSE(fault) << fault->path.toStdString() << fault->reason.toStdString();
            if (version == kLatestVersion && format.tag != ESHAPE_TEXT) { // whose outline is laid out anew
                EXPECT_EQ(saved, written);
            }
        }
}

QString Row(const QStringList& cells)
{
    return "| " + cells.join(" | ") + " |\n";
}

QString TypeText(const Field& field)
{
    // In the order of Content; %1 is how many, or of which row.
    constexpr const char* kTexts[] = {
        "int32",   "uint8",       "uint32 of bits", "uint32, 0xRRGGBB", "float32",
        "float64", "%1 bytes, 0", "text",           "picture",          "int32 count, then as many rows \"%1\"",
        "a list"};
    const QString count = field.rows ? field.rows->name.data() : QString::number(field.range.high);
    return QString(kTexts[static_cast<int>(field.type)]).replace("%1", count);
}

QString RangeText(const Field& field)
{
    const auto [low, high] = field.range;
    const bool whole = field.type == Content::Int32 || field.type == Content::Byte || field.type == Content::Bits;
    if (field.type != Content::Text && (!whole || low == std::numeric_limits<int32_t>::min()))
        return "";
    const QString most = high == std::numeric_limits<int32_t>::max() ? "2^31 - 1" : QString::number(high);
    return QString("%1 to %2%3").arg(low).arg(most, field.type == Content::Text ? " bytes" : "");
}

QString TableText(const QString& title, std::span<const Field> fields)
{
    QString text =
        "\n### " + title + "\n\n" + Row({"field", "bytes", "since version", "values"}) + "| --- | --- | --- | --- |\n";
    for (const Field& field : fields)
        text += Row({field.name.data(), TypeText(field), QString::number(field.since), RangeText(field)});
    return text;
}

/// The tables of docs/file-format.md.
QString FormatText()
{
    return TableText("header, of document files", {}) +
           Row({"magic", QString("%1 bytes").arg(shapedocument::kFileHeaderBytes - int(sizeof(int32_t))), "0",
                QString("the letters %1").arg(shapedocument::kFileMagic)}) +
           Row({"version", "int32", "0", QString("%1 to %2").arg(kFirstVersion).arg(kLatestVersion)}) +
           TableText("common fields, of every shape", kCommonFields) + TableText("row \"point\"", kPointFields) +
           TableText("vector", kVectorFields) + TableText("text, behind the fields of a vector", kTextFields) +
           TableText("image", kImageFields) + TableText("code image, behind the fields of an image", kCodeFields) +
           TableText("group", kMemberFields) + TableText("array, behind the fields of a group", kCellListFields) +
           TableText("row \"cell\"", kCellFields);
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
