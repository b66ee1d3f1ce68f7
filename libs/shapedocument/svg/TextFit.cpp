#include "svg/TextFit.h"

#include "svg/PathText.h"

#include "geometry/Geometry.h"
#include "geometry/PathSteps.h"
#include "text/ShapeText.h"

#include <opencv2/core.hpp>

#include <algorithm>
#include <cmath>
#include <cstring>
#include <limits>
#include <numbers>
#include <optional>

namespace shapedocument::drawing {

namespace {

constexpr double kTolerance = 0.05;     ///< mm
constexpr double kMeasuringSize = 1000; ///< font pixels; hints of small sizes would show
constexpr double kTriedSpacing = 100;   ///< font pixels; to see what spacing moves
constexpr int kMostFitted = 20'000;     ///< of an outline; a text of some hundred letters
constexpr double kDegrees = 180 / std::numbers::pi;

/// How a layout becomes the outline: letters spread, then scaled and turned. The place is found afterwards.
struct Fit
{
    double scale = 1;   ///< mm per font pixel
    double angle = 0;   ///< degrees
    double spacing = 0; ///< font pixels
};

SText Parameters(const QString& words, const STextFont& font, const Fit& fit)
{
    SText text;
    std::strncpy(text.pText, words.toUtf8().constData(), TEXT_BUFFER_SIZE - 1);
    text.font = font;
    text.dScaleX = text.dScaleY = fit.scale;
    text.dAngle = fit.angle;
    text.dCharSpacing = fit.spacing;
    return text;
}

QPainterPath OutlineOf(CShapeText& shape)
{
    return MachineOutline(*shape.GetPath(false), Ink::Area, 0);
}

QPainterPath LaidOut(const QString& words, const STextFont& font, const Fit& fit)
{
    CShapeText shape;
    SText text = Parameters(words, font, fit);
    shape.SetText(text);
    return OutlineOf(shape);
}

/// Whether both have the same elements in the same order, wherever they are.
bool HaveSameElements(const QPainterPath& a, const QPainterPath& b)
{
    bool same = a.elementCount() == b.elementCount() && a.elementCount() > 1;
    for (int i = 0; same && i < a.elementCount(); ++i)
        same = a.elementAt(i).type == b.elementAt(i).type;
    return same;
}

/// Weighted least squares, six numbers each: rows 2i and 2i + 1 are the ones of element i.
cv::Mat_<double> Solved(const cv::Mat_<double>& terms, const cv::Mat_<double>& ends, const cv::Mat_<double>& weights)
{
    cv::Mat_<double> weighted = terms.clone(), found;
    for (int column = 0; column < terms.cols; ++column)
        weighted.col(column) = weighted.col(column).mul(weights);
    // By normal equations; a single letter says nothing of the spread, and the shortest solution has none.
    cv::solve(weighted.t() * terms, weighted.t() * ends, found, cv::DECOMP_SVD);
    return found;
}

/// The solution with the smallest of the largest distances (mm): by Lawson's algorithm, which weights each element
/// again and again by how far it was off.
cv::Mat_<double> SmallestLargest(const cv::Mat_<double>& terms, const cv::Mat_<double>& ends)
{
    constexpr int kRounds = 40;
    cv::Mat_<double> weights(ends.rows, 1, 1.0), best;
    double least = std::numeric_limits<double>::infinity();
    for (int round = 0; round < kRounds && least > kTolerance / 10; ++round) {
        const cv::Mat_<double> found = Solved(terms, ends, weights);
        const cv::Mat_<double> off(cv::Mat(terms * found - ends));
        double largest = 0, sum = 0;
        for (int i = 0; i < off.rows; i += 2) {
            const double distance = std::hypot(off(i), off(i + 1));
            largest = std::max(largest, distance);
            weights(i) *= distance;
            sum += weights(i);
        }
        for (int i = 0; i < off.rows; i += 2)
            weights(i + 1) = weights(i) /= sum;
        if (!(largest < least))
            continue;
        least = largest;
        best = found;
    }
    return best;
}

/// For outline = turn * layout + shift + spread * (spaced - layout), all of them complex numbers.
std::optional<Fit> FitOf(const QPainterPath& layout, const QPainterPath& spaced, const QPainterPath& outline)
{
    const int count = layout.elementCount();
    cv::Mat_<double> terms(2 * count, 6), ends(2 * count, 1);
    for (int i = 0; i < count; ++i) {
        const QPointF at = layout.elementAt(i), moved = QPointF(spaced.elementAt(i)) - at, end = outline.elementAt(i);
        const double x[] = {at.x(), -at.y(), 1, 0, moved.x(), -moved.y()};
        const double y[] = {at.y(), at.x(), 0, 1, moved.y(), moved.x()};
        std::copy_n(x, 6, terms[2 * i]);
        std::copy_n(y, 6, terms[2 * i + 1]);
        ends(2 * i) = end.x();
        ends(2 * i + 1) = end.y();
    }
    const cv::Mat_<double> found = SmallestLargest(terms, ends);
    if (found.empty())
        return {};
    const double scale = std::hypot(found(0), found(1));
    const double spread = (found(4) * found(0) + found(5) * found(1)) / (scale * scale);
    if (!(scale > 0) || !std::isfinite(scale) || !std::isfinite(spread))
        return {};
    return Fit{scale, std::atan2(found(1), found(0)) * kDegrees, spread * kTriedSpacing};
}

/// What moves the elements of a nearest to those of b, by the largest distance along each axis.
QPointF ShiftOnto(const QPainterPath& a, const QPainterPath& b)
{
    QPolygonF ways;
    for (int i = 0; i < a.elementCount(); ++i)
        ways << QPointF(b.elementAt(i)) - QPointF(a.elementAt(i));
    return ways.boundingRect().center();
}

bool IsWithin(const QPolygonF& corners, const QPolygonF& line, double reach)
{
    return std::all_of(corners.begin(), corners.end(), [&](QPointF corner) {
        for (qsizetype i = 1; i < line.size(); ++i)
            if (shapes::SegmentDistance2(corner, line[i - 1], line[i]) <= reach * reach)
                return true;
        return false;
    });
}

/// Sub-path by sub-path, which stand in the same order.
bool Agree(const QPainterPath& a, const QPainterPath& b)
{
    constexpr double kFiner = 100; // flattened to about a hundredth of a unit
    const QTransform finer = QTransform::fromScale(kFiner, kFiner);
    const QList<QPolygonF> inA = a.toSubpathPolygons(finer), inB = b.toSubpathPolygons(finer);
    bool agree = inA.size() == inB.size();
    for (qsizetype i = 0; agree && i < inA.size(); ++i)
        agree = IsWithin(inA[i], inB[i], kTolerance * kFiner) && IsWithin(inB[i], inA[i], kTolerance * kFiner);
    return agree;
}

std::unique_ptr<CShapeText> WithFont(const QString& words, const STextFont& font, const QPainterPath& outline)
{
    const QPainterPath layout = LaidOut(words, font, {});
    if (!HaveSameElements(layout, outline))
        return nullptr;
    const QPainterPath spaced = LaidOut(words, font, {.spacing = kTriedSpacing});
    const auto fit = HaveSameElements(layout, spaced) ? FitOf(layout, spaced, outline) : std::nullopt;
    if (!fit)
        return nullptr;
    auto shape = std::make_unique<CShapeText>();
    SText text = Parameters(words, font, *fit);
    shape->SetText(text);
    if (!HaveSameElements(OutlineOf(*shape), outline))
        return nullptr;
    const QPointF shift = ShiftOnto(OutlineOf(*shape), outline);
    shape->Offset(shift.x(), shift.y());
    return Agree(OutlineOf(*shape), outline) ? std::move(shape) : nullptr;
}

/// Empty where it does not begin with a sub-path.
QPainterPath PartOf(const QPainterPath& path, int begin, int count)
{
    QPainterPath part;
    const int end = std::min(begin + count, path.elementCount());
    if (begin >= end || !path.elementAt(begin).isMoveTo())
        return part;
    for (const shapes::PathStep& step : shapes::PathSteps(path, begin)) {
        if (step.EndIndex() >= end)
            break;
        if (step.IsMove())
            part.moveTo(step.End());
        else if (step.IsLine())
            part.lineTo(step.End());
        else
            part.cubicTo(step.points[0], step.points[1], step.points[2]);
    }
    return part;
}

FittedTexts WholeText(const QString& words, const STextFont& font, const QPainterPath& outline)
{
    FittedTexts texts;
    if (auto text = WithFont(words, font, outline))
        texts.push_back(std::move(text));
    return texts;
}

/// All words, or none.
FittedTexts WordByWord(const QString& words, const STextFont& font, const QPainterPath& outline)
{
    FittedTexts texts;
    int begin = 0;
    for (const QString& word : words.split(u' ')) {
        const int count = LaidOut(word, font, {}).elementCount();
        auto text = WithFont(word, font, PartOf(outline, begin, count));
        if (!text)
            return {};
        texts.push_back(std::move(text));
        begin += count;
    }
    return begin == outline.elementCount() ? std::move(texts) : FittedTexts();
}

/// fit: of words in one of the families, upright or italic, bold or not.
template <class FitWithFont>
FittedTexts InAnyFont(const QStringList& families, FitWithFont fit)
{
    for (const QString& family : families) {
        STextFont font;
        font.dSize = kMeasuringSize;
        std::strncpy(font.szFamily, family.toUtf8().constData(), sizeof font.szFamily - 1);
        font.szFamily[sizeof font.szFamily - 1] = 0;
        for (const int style : {0, 1, 2, 3}) {
            font.bBold = style & 1;
            font.bItalic = (style >> 1) & 1;
            if (FittedTexts texts = fit(font); !texts.empty())
                return texts;
        }
    }
    return {};
}

} // namespace

FittedTexts FitTexts(const QString& words, const QStringList& families, const QPainterPath& outline, QRgb color)
{
    if (words.toUtf8().size() >= qsizetype{TEXT_BUFFER_SIZE} || outline.elementCount() > kMostFitted)
        return {};
    FittedTexts texts = InAnyFont(families, [&](const STextFont& font) { return WholeText(words, font, outline); });
    if (texts.empty() && words.contains(u' '))
        texts = InAnyFont(families, [&](const STextFont& font) { return WordByWord(words, font, outline); });
    for (const auto& text : texts)
        text->SetColor(color);
    return texts;
}

} // namespace shapedocument::drawing
