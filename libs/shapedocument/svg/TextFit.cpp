#include "svg/TextFit.h"

#include "svg/PathText.h"

#include "geometry/Geometry.h"
#include "text/ShapeText.h"

#include <opencv2/core.hpp>

#include <cmath>
#include <cstring>
#include <numbers>
#include <optional>

namespace shapedocument::drawing {

namespace {

constexpr double kTolerance = 0.05;   ///< mm
constexpr double kLayoutSize = 1000;  ///< font pixels; hints of small sizes would show
constexpr double kTriedSpacing = 100; ///< font pixels; to see what spacing moves
constexpr int kMostElements = 20'000; ///< of an outline; a text of some hundred letters
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

/// Least squares for outline = turn * layout + shift + spread * (spaced - layout), all of them complex numbers.
std::optional<Fit> FitOf(const QPainterPath& layout, const QPainterPath& spaced, const QPainterPath& outline)
{
    const int count = layout.elementCount();
    cv::Mat_<double> sums(2 * count, 6), ends(2 * count, 1), found;
    for (int i = 0; i < count; ++i) {
        const QPointF at = layout.elementAt(i), moved = QPointF(spaced.elementAt(i)) - at, end = outline.elementAt(i);
        const double x[] = {at.x(), -at.y(), 1, 0, moved.x(), -moved.y()};
        const double y[] = {at.y(), at.x(), 0, 1, moved.y(), moved.x()};
        std::copy_n(x, 6, sums[2 * i]);
        std::copy_n(y, 6, sums[2 * i + 1]);
        ends(2 * i) = end.x();
        ends(2 * i + 1) = end.y();
    }
    // By normal equations; a single letter says nothing of the spread, and the shortest solution has none.
    cv::solve(sums.t() * sums, sums.t() * ends, found, cv::DECOMP_SVD);
    const double scale = std::hypot(found(0), found(1));
    const double spread = (found(4) * found(0) + found(5) * found(1)) / (scale * scale);
    if (!(scale > 0) || !std::isfinite(scale) || !std::isfinite(spread))
        return {};
    return Fit{scale, std::atan2(found(1), found(0)) * kDegrees, spread * kTriedSpacing};
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
    const QPointF shift = outline.boundingRect().center() - OutlineOf(*shape).boundingRect().center();
    shape->Offset(shift.x(), shift.y());
    return Agree(OutlineOf(*shape), outline) ? std::move(shape) : nullptr;
}

} // namespace

std::unique_ptr<CShapeText> FittedText(const QString& words, const QStringList& families, const QPainterPath& outline,
                                       QRgb color)
{
    if (words.toUtf8().size() >= qsizetype{TEXT_BUFFER_SIZE} || outline.elementCount() > kMostElements)
        return nullptr;
    for (const QString& family : families) {
        STextFont font;
        font.dSize = kLayoutSize;
        std::strncpy(font.szFamily, family.toUtf8().constData(), sizeof font.szFamily - 1);
        font.szFamily[sizeof font.szFamily - 1] = 0;
        for (const int style : {0, 1, 2, 3}) {
            font.bBold = style & 1;
            font.bItalic = (style >> 1) & 1;
            if (auto shape = WithFont(words, font, outline)) {
                shape->SetColor(color);
                return shape;
            }
        }
    }
    return nullptr;
}

} // namespace shapedocument::drawing
