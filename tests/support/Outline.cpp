#include "support/Outline.h"

#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <sstream>

namespace test {

namespace {

void Append(std::string& text, const std::string& word)
{
    text += (text.empty() ? "" : " ") + word;
}

std::string PointWord(QPointF point, int type)
{
    static const char* const prefixes[] = {"", "c", "|", "f"};
    if (type == ELINE_SEGMENT_SEPARATOR && point.x() == 0.0 && point.y() == 0.0)
        return "|";
    return (type < 4 ? prefixes[type] : std::to_string(type) + ":") + Point(point);
}

} // namespace

std::string Number(double value)
{
    char text[40];
    const double rounded = std::round(value * 1e6) / 1e6;
    std::snprintf(text, sizeof text, "%.12g", rounded == 0.0 ? 0.0 : rounded);
    return text;
}

std::string Point(QPointF point)
{
    return Number(point.x()) + "," + Number(point.y());
}

std::string Rect(QRectF rect)
{
    return Point(rect.topLeft()) + "," + Number(rect.width()) + "," + Number(rect.height());
}

std::string Outline(CShape& shape)
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    std::string text;
    for (size_t i = 0; i < points.size(); ++i)
        Append(text, i < types.size() ? PointWord(points[i], types[i]) : "?" + Point(points[i]));
    for (size_t i = points.size(); i < types.size(); ++i)
        Append(text, "+" + std::to_string(types[i]));
    return text;
}

void SetOutline(CShape& shape, const std::string& outline)
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    std::istringstream words(outline);
    for (std::string word; words >> word;) {
        const char first = word.front();
        if (first == '+') {
            types.push_back(static_cast<unsigned char>(word[1] - '0'));
            continue;
        }
        if (first != '?')
            types.push_back(first == 'c' ? 1 : first == '|' ? 2 : first == 'f' ? 3 : 0);
        if (word == "|")
            word = "|0,0";
        char* comma = nullptr;
        const bool prefixed = first == 'c' || first == '|' || first == 'f' || first == '?';
        const double x = std::strtod(word.c_str() + (prefixed ? 1 : 0), &comma);
        points.emplace_back(x, std::strtod(comma + 1, nullptr));
    }
    shape.SetShapePoints(points, types);
}

std::string PathText(const QPainterPath& path)
{
    std::string text;
    for (int i = 0; i < path.elementCount(); ++i) {
        static const char* const prefixes[] = {"M ", "L ", "C ", ""};
        const QPainterPath::Element element = path.elementAt(i);
        Append(text, prefixes[element.type] + Point(element));
    }
    return text;
}

std::string PathText(CShape& shape)
{
    const QPainterPath* path = shape.GetPath(false);
    return path ? PathText(*path) : "none";
}

std::string Frame(QRectF rect)
{
    QPainterPath path;
    path.addRect(rect);
    return PathText(path);
}

std::string LinesText(const std::vector<QLineF>& lines)
{
    std::string text;
    for (const QLineF& line : lines)
        Append(text, line == QLineF(0, 0, 0, 0) ? "null" : Point(line.p1()) + ">" + Point(line.p2()));
    return text;
}

std::string LinesText(const std::vector<SHAPE_VECTOR_PATHDATA>& lines)
{
    std::string text;
    for (const SHAPE_VECTOR_PATHDATA& line : lines)
        Append(text, std::to_string(line.eType) + ":" + Point(line.ptStart) + ">" + Point(line.ptEnd));
    return text;
}

} // namespace test
