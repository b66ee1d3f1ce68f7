/// shapedoc info: what a document holds.
#include "Commands.h"
#include "DocumentArguments.h"
#include "PictureInfo.h"
#include "Progress.h"
#include "TextInfo.h"
#include "document/ShapeFacts.h"
#include "document/ShapeWalk.h"

#include "image/ShapeImage.h"

#include "OpenDocument.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <cstdio>
#include <optional>

using namespace shapedocument;

namespace {

struct InfoOptions
{
    QString document;
    StreamFormat format;
    bool json = false;
};

struct Row
{
    int depth = 0;
    ShapeFacts shape;
    std::optional<PictureFacts> picture;
};

struct InfoTotals
{
    qint64 points = 0;
    QRectF rect;
};

Row RowOf(CShape& shape, int depth)
{
    Row row{depth, FactsOf(shape), std::nullopt};
    if (auto* picture = dynamic_cast<CShapeImage*>(&shape))
        row.picture = FactsOfPicture(*picture, LimitsOfPictures(false));
    if (row.picture && row.picture->file)
        WarnOfComplaints(row.picture->name, row.picture->file->complaints);
    return row;
}

QStringList StatusNames(const ShapeFacts& shape)
{
    QStringList names;
    if (shape.selected)
        names << "selected";
    if (shape.locked)
        names << "locked";
    if (shape.hidden)
        names << "hidden";
    if (shape.grouped)
        names << "grouped";
    return names;
}

QString ColorText(unsigned int color)
{
    return QString("#%1").arg(color, 6, 16, QChar('0'));
}

/// Adding 0.0 turns -0.0 into 0.0.
QJsonObject RectJson(const QRectF& rect)
{
    return {{"x", rect.x() + 0.0}, {"y", rect.y() + 0.0}, {"width", rect.width()}, {"height", rect.height()}};
}

QJsonArray Json(const QList<ShapeArrayInfo>& cells)
{
    QJsonArray array;
    for (const ShapeArrayInfo& cell : cells)
        array.append(QJsonObject{{"index", cell.nIndex},
                                 {"x", cell.ptPos.x()},
                                 {"y", cell.ptPos.y()},
                                 {"valid", cell.bValid != 0},
                                 {"selected", cell.bSelect != 0}});
    return array;
}

QJsonObject Json(const ShapeFacts& facts)
{
    QJsonObject json{{"type", facts.type},
                     {"vectorType", facts.vectorType.isEmpty() ? QJsonValue() : QJsonValue(facts.vectorType)},
                     {"points", facts.points},
                     {"closed", facts.closed},
                     {"status", QJsonArray::fromStringList(StatusNames(facts))},
                     {"color", ColorText(facts.color)},
                     {"rect", RectJson(facts.rect)}};
    if (facts.text)
        json["text"] = TextJson(*facts.text);
    if (!facts.cells.isEmpty())
        json["cells"] = Json(facts.cells);
    return json;
}

/// The shapes at depth from position next on, each with its members.
QJsonArray JsonLevel(const std::vector<Row>& rows, size_t& next, int depth)
{
    QJsonArray level;
    while (next < rows.size() && rows[next].depth == depth) {
        const Row& row = rows[next++];
        QJsonObject shape = Json(row.shape);
        if (row.picture)
            shape["picture"] = PictureJson(*row.picture);
        if (next < rows.size() && rows[next].depth > depth)
            shape["members"] = JsonLevel(rows, next, depth + 1);
        level.append(shape);
    }
    return level;
}

void PrintShapesJson(const std::vector<Row>& rows, const InfoTotals& totals, int version)
{
    size_t next = 0;
    const QJsonObject json{
        {"version", version},
        {"shapes", JsonLevel(rows, next, 0)},
        {"totals",
         QJsonObject{{"shapes", qint64(rows.size())}, {"points", totals.points}, {"rect", RectJson(totals.rect)}}}};
    std::fputs(QJsonDocument(json).toJson().constData(), stdout);
}

QString Millimetres(double value)
{
    const QString text = QString::number(value, 'f', 3);
    return text == "-0.000" ? "0.000" : text;
}

QString RectText(const QRectF& rect)
{
    constexpr int kWidth = 9;
    return QString("%1 x %2 at %3, %4")
        .arg(Millimetres(rect.width()), kWidth)
        .arg(Millimetres(rect.height()), kWidth)
        .arg(Millimetres(rect.x()), kWidth)
        .arg(Millimetres(rect.y()), kWidth);
}

/// Text of the column of the vector type.
QString KindText(const ShapeFacts& facts)
{
    if (!facts.vectorType.isEmpty())
        return facts.vectorType;
    if (facts.text)
        return facts.type;
    if (facts.cells.isEmpty())
        return "-";
    const auto valid =
        std::count_if(facts.cells.begin(), facts.cells.end(), [](const auto& cell) { return cell.bValid; });
    return QString("%1 of %2 cells").arg(valid).arg(facts.cells.size());
}

void PrintShapes(const std::vector<Row>& rows, const InfoTotals& totals, int version)
{
    const char* form = "%6s  %-12s %-21s %8s  %-6s  %-8s  %-9s  %s\n";
    std::printf(form, "", "type", "vector type", "points", "closed", "status", "colour", "size and place in mm");
    size_t number = 0;
    for (const Row& row : rows) {
        const ShapeFacts& shape = row.shape;
        const QStringList status = StatusNames(shape);
        std::printf(form, qPrintable(QString::number(++number)), qPrintable(QString(2 * row.depth, ' ') + shape.type),
                    qPrintable(KindText(shape)), qPrintable(QString::number(shape.points)),
                    shape.closed ? "closed" : "open", status.isEmpty() ? "-" : qPrintable(status.join(',')),
                    qPrintable(ColorText(shape.color)), qPrintable(RectText(shape.rect)));
        if (shape.text)
            std::printf("%8s%s\n", "", qPrintable(TextLine(*shape.text)));
        if (row.picture)
            std::printf("%6s  %s\n", "", qPrintable(PictureText(*row.picture)));
    }
    std::printf("total: %zu shapes, %lld points, version %d, %s mm\n", rows.size(),
                static_cast<long long>(totals.points), version, qPrintable(RectText(totals.rect).simplified()));
}

int Info(const InfoOptions& options)
{
    int version = 0;
    const Document document = OpenDocument(options.document, options.format, &version);
    std::vector<Row> rows;
    InfoTotals totals;
    Progress progress("looking at shapes");
    const size_t count = CountShapes(*document);
    ForEachShape(*document, [&](CShape& shape, int depth) {
        rows.push_back(RowOf(shape, depth));
        totals.points += rows.back().shape.points;
        progress.At(rows.size(), count);
    });
    totals.rect = document->GetRect(false);
    (options.json ? PrintShapesJson : PrintShapes)(rows, totals, version);
    return 0;
}

} // namespace

void AddInfo(CommandLine& program)
{
    CommandArguments& command = program.AddCommand("info", "Show what a document holds, a row per shape");
    const auto options = std::make_shared<InfoOptions>();
    AddDocument(command, options->document);
    command.AddFlag("--json", options->json, "as JSON");
    AddStreamFormat(command, options->format);
    command.AddExample("info badge.shapes", "a table of the shapes");
    command.AddExample("info --json badge.shapes", "the same as data");
    command.Runs([options] { return Info(*options); });
}
