/// shapedoc info: what a document holds.
#include "Arguments.h"
#include "Commands.h"
#include "PictureInfo.h"
#include "Progress.h"
#include "TextInfo.h"
#include "document/ShapeWalk.h"

#include "group/ShapeArray.h"
#include "image/ShapeImage.h"
#include "text/ShapeText.h"
#include "vector/ShapeVector.h"

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

struct ShapeFacts
{
    int depth = 0;
    QString type;
    QString vectorType; ///< empty unless it is a vector
    QList<ShapeArrayInfo> cells;
    qint64 points = 0; ///< separators not counted
    bool closed = false;
    QStringList status;
    QString color;
    QRectF rect;
    QJsonObject text; ///< parameters of a text, empty for every other shape
    QString textLine;
    std::optional<PictureFacts> picture;
};

QString TypeName(ESHAPE_TYPE type)
{
    switch (type) {
    case ESHAPE_IMAGE:
        return "image";
    case ESHAPE_VECTOR:
        return "vector";
    case ESHAPE_TEXT:
        return "text";
    case ESHAPE_GROUP:
        return "group";
    case ESHAPE_ARRAY:
        return "array";
    case ESHAPE_CODEIMAGE:
        return "code image";
    }
    return QString::number(type);
}

QString VectorTypeName(EVECTOR_TYPE type)
{
    switch (type) {
    case EVECTOR_RECT:
        return "EVECTOR_RECT";
    case EVECTOR_ELLIPSE:
        return "EVECTOR_ELLIPSE";
    case EVECTOR_POLYLINE:
        return "EVECTOR_POLYLINE";
    case EVECTOR_POLYLINE_B:
        return "EVECTOR_POLYLINE_B";
    case EVECTOR_BEZIER_CHAIN:
        return "EVECTOR_BEZIER_CHAIN";
    case EVECTOR_BEZIER_SET:
        return "EVECTOR_BEZIER_SET";
    case EVECTOR_MIXED:
        return "EVECTOR_MIXED";
    }
    return QString::number(type);
}

QStringList StatusNames(CShape& shape)
{
    QStringList names;
    if (shape.IsSelect())
        names << "selected";
    if (shape.IsLock())
        names << "locked";
    if (shape.IsHide())
        names << "hidden";
    if (shape.IsGroup())
        names << "grouped";
    return names;
}

ShapeFacts FactsOf(CShape& shape, int depth)
{
    ShapeFacts facts;
    facts.depth = depth;
    facts.type = TypeName(shape.GetShapeType());
    if (auto* vector = dynamic_cast<CShapeVector*>(&shape); vector && shape.GetShapeType() == ESHAPE_VECTOR)
        facts.vectorType = VectorTypeName(vector->GetVectorType());
    if (auto* array = dynamic_cast<CShapeArray*>(&shape))
        facts.cells = array->GetShapeArrayInfo();
    // Asked before the rectangle: building the path may fit curves to a polyline.
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    facts.points = qint64(points.size()) - std::count(types.begin(), types.end(), ELINE_SEGMENT_SEPARATOR);
    facts.closed = shape.IsClose();
    facts.status = StatusNames(shape);
    facts.color = QString("#%1").arg(shape.GetColor(), 6, 16, QChar('0'));
    facts.rect = shape.GetRect(false);
    if (auto* text = dynamic_cast<CShapeText*>(&shape)) {
        facts.text = TextJson(*text);
        facts.textLine = TextLine(*text);
    }
    if (auto* picture = dynamic_cast<CShapeImage*>(&shape))
        facts.picture = FactsOfPicture(*picture, LimitsOfPictures(false));
    if (facts.picture && facts.picture->file)
        WarnOfComplaints(facts.picture->name, facts.picture->file->complaints);
    return facts;
}

/// Adding 0.0 turns -0.0 into 0.0.
QJsonObject RectJson(const QRectF& rect)
{
    return {{"x", rect.x() + 0.0}, {"y", rect.y() + 0.0}, {"width", rect.width()}, {"height", rect.height()}};
}

QJsonObject Json(const ShapeFacts& facts)
{
    QJsonObject json{{"type", facts.type},
                     {"vectorType", facts.vectorType.isEmpty() ? QJsonValue() : QJsonValue(facts.vectorType)},
                     {"points", facts.points},
                     {"closed", facts.closed},
                     {"status", QJsonArray::fromStringList(facts.status)},
                     {"color", facts.color},
                     {"rect", RectJson(facts.rect)}};
    if (!facts.text.isEmpty())
        json["text"] = facts.text;
    return json;
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

/// The shapes at depth from position next on, each with its members.
QJsonArray JsonLevel(const std::vector<ShapeFacts>& shapes, size_t& next, int depth)
{
    QJsonArray level;
    while (next < shapes.size() && shapes[next].depth == depth) {
        const ShapeFacts& facts = shapes[next++];
        QJsonObject shape = Json(facts);
        if (!facts.cells.isEmpty())
            shape["cells"] = Json(facts.cells);
        if (facts.picture)
            shape["picture"] = PictureJson(*facts.picture);
        if (next < shapes.size() && shapes[next].depth > depth)
            shape["members"] = JsonLevel(shapes, next, depth + 1);
        level.append(shape);
    }
    return level;
}

void PrintJson(const std::vector<ShapeFacts>& shapes, const ShapeFacts& totals, int version)
{
    size_t next = 0;
    const QJsonObject json{
        {"version", version},
        {"shapes", JsonLevel(shapes, next, 0)},
        {"totals",
         QJsonObject{{"shapes", qint64(shapes.size())}, {"points", totals.points}, {"rect", RectJson(totals.rect)}}}};
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
    if (!facts.text.isEmpty())
        return facts.type;
    if (facts.cells.isEmpty())
        return "-";
    const auto valid =
        std::count_if(facts.cells.begin(), facts.cells.end(), [](const auto& cell) { return cell.bValid; });
    return QString("%1 of %2 cells").arg(valid).arg(facts.cells.size());
}

void PrintTable(const std::vector<ShapeFacts>& shapes, const ShapeFacts& totals, int version)
{
    const char* row = "%6s  %-12s %-21s %8s  %-6s  %-8s  %-9s  %s\n";
    std::printf(row, "", "type", "vector type", "points", "closed", "status", "colour", "size and place in mm");
    size_t number = 0;
    for (const ShapeFacts& facts : shapes) {
        std::printf(row, qPrintable(QString::number(++number)), qPrintable(QString(2 * facts.depth, ' ') + facts.type),
                    qPrintable(KindText(facts)), qPrintable(QString::number(facts.points)),
                    facts.closed ? "closed" : "open", facts.status.isEmpty() ? "-" : qPrintable(facts.status.join(',')),
                    qPrintable(facts.color), qPrintable(RectText(facts.rect)));
        if (!facts.textLine.isEmpty())
            std::printf("%8s%s\n", "", qPrintable(facts.textLine));
        if (facts.picture)
            std::printf("%6s  %s\n", "", qPrintable(PictureText(*facts.picture)));
    }
    std::printf("total: %zu shapes, %lld points, version %d, %s mm\n", shapes.size(),
                static_cast<long long>(totals.points), version, qPrintable(RectText(totals.rect).simplified()));
}

int Info(const InfoOptions& options)
{
    int version = 0;
    const Document document = OpenDocument(options.document, options.format, &version);
    std::vector<ShapeFacts> shapes;
    ShapeFacts totals;
    Progress progress("looking at shapes");
    const size_t count = CountShapes(*document);
    ForEachShape(*document, [&](CShape& shape, int depth) {
        shapes.push_back(FactsOf(shape, depth));
        totals.points += shapes.back().points;
        progress.At(shapes.size(), count);
    });
    totals.rect = document->GetRect(false);
    (options.json ? PrintJson : PrintTable)(shapes, totals, version);
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
