#include "svg/PathText.h"

#include "geometry/PathSteps.h"

#include <charconv>
#include <cmath>

namespace shapedocument::drawing {

namespace {

void SkipPageSeparators(std::string_view& text)
{
    text.remove_prefix(std::min(text.find_first_not_of(" ,\t\r\n"), text.size()));
}

QPointF ReadPoint(std::string_view& text)
{
    const double x = ReadNumber(text);
    return {x, ReadNumber(text)};
}

/// Appends the elements from begin to end as one sub-path.
void AppendRun(QPainterPath& outline, const QPainterPath& path, int begin, int end, bool closed, double grid)
{
    const QPointF start = path.elementAt(begin);
    const QPointF gap = QPointF(path.elementAt(end - 1)) - start;
    const bool meets = end - begin > 2 && std::abs(gap.x()) <= grid && std::abs(gap.y()) <= grid;
    outline.moveTo(start);
    for (const shapes::PathStep& step : shapes::PathSteps(path, begin + 1)) {
        if (step.index >= end)
            break;
        const QPointF to = meets && step.EndIndex() == end - 1 ? start : step.End();
        if (step.IsCurve())
            outline.cubicTo(step.points[0], step.points[1], to);
        else
            outline.lineTo(to);
    }
    if (closed && !meets && end - begin > 2) // two points enclose nothing
        outline.lineTo(start);
}

} // namespace

double ReadNumber(std::string_view& text)
{
    SkipPageSeparators(text);
    double number = 0;
    const auto [rest, fault] = std::from_chars(text.data(), text.data() + text.size(), number);
    text.remove_prefix(static_cast<size_t>(rest - text.data()));
    SkipPageSeparators(text);
    return std::isfinite(number) ? number : 0;
}

QTransform PlaceOf(std::string_view text)
{
    constexpr std::string_view kBegin = "matrix(", kMove = "translate(";
    if (text.starts_with(kMove)) {
        text.remove_prefix(kMove.size());
        const QPointF by = ReadPoint(text);
        return QTransform::fromTranslate(by.x(), by.y());
    }
    if (!text.starts_with(kBegin))
        return {};
    text.remove_prefix(kBegin.size());
    double m[6];
    for (double& number : m)
        number = ReadNumber(text);
    return {m[0], m[1], m[2], m[3], m[4], m[5]};
}

QPainterPath PathOf(std::string_view text)
{
    QPainterPath path;
    while (SkipPageSeparators(text), !text.empty()) {
        const char command = text.front();
        text.remove_prefix(1);
        if (command == 'M') {
            path.moveTo(ReadPoint(text));
        } else if (command == 'L') {
            path.lineTo(ReadPoint(text));
        } else if (command == 'C') {
            const QPointF control1 = ReadPoint(text), control2 = ReadPoint(text);
            path.cubicTo(control1, control2, ReadPoint(text));
        } else if (command == 'Z') {
            path.closeSubpath();
        } else {
            break;
        }
    }
    return path;
}

QPainterPath MachineOutline(const QPainterPath& path, Ink ink, double grid)
{
    QPainterPath outline;
    outline.setFillRule(path.fillRule());
    for (int begin = 0; begin < path.elementCount();) {
        int end = begin + 1;
        while (end < path.elementCount() && !path.elementAt(end).isMoveTo())
            ++end;
        if (end - begin > (ink == Ink::Area ? 2 : 1))
            AppendRun(outline, path, begin, end, ink != Ink::Line, grid);
        begin = end;
    }
    return outline;
}

} // namespace shapedocument::drawing
