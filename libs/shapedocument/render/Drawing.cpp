#include "render/Drawing.h"

#include "document/Failure.h"
#include "document/PicturePixels.h"
#include "document/Reach.h"
#include "document/ShapeWalk.h"
#include "machine/MachineJob.h"
#include "plane/RoundStep.h"
#include "render/OutlineStrokes.h"

#include "image/ShapeImage.h"
#include "list/ShapeList.h"
#include "shape/Shape.h"

#include <QFont>
#include <QImage>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

namespace shapedocument {

namespace {

constexpr double kOutline = 1.3; // pen widths and letter heights in units of the sheet
constexpr double kHairline = 0.8;
constexpr double kScaleLetter = 15;
constexpr double kOrderLetter = 9;
constexpr double kArrow = 7;
constexpr size_t kMostNumbers = 150;
const QColor kFrameColor(0x55, 0x5b, 0x66);
const QColor kMoveColor(0x8a, 0x93, 0xa3);

QColor ColorOf(unsigned int color)
{
    return QColor::fromRgb(QRgb(color & 0xFFFFFFu));
}

/// The text as an outline of the given height, centred at the origin: text drawn with fonts of these sizes looks bad.
QPainterPath TextOutline(const QString& text, double height)
{
    constexpr int kFontPixels = 100;
    QFont font("Liberation Sans");
    font.setPixelSize(kFontPixels);
    font.setHintingPreference(QFont::PreferNoHinting);
    QPainterPath outline;
    outline.addText(0, 0, font, text);
    const QRectF bounds = outline.boundingRect();
    if (bounds.height() <= 0)
        return {};
    const double scale = height / bounds.height();
    return QTransform::fromScale(scale, scale).map(outline.translated(-bounds.center()));
}

void DrawText(QPainter& painter, const QString& text, QPointF centre, double height, const QColor& color)
{
    painter.fillPath(TextOutline(text, height).translated(centre), color);
}

void DrawMove(QPainter& painter, QPointF from, QPointF to, double unit)
{
    QPen pen(kMoveColor, kHairline * unit, Qt::DashLine, Qt::FlatCap);
    painter.setPen(pen);
    painter.drawLine(from, to);
    const QLineF move(from, to);
    if (move.length() < 3 * kArrow * unit)
        return;
    QLineF barb = QLineF(move.center(), from);
    barb.setLength(kArrow * unit);
    pen.setStyle(Qt::SolidLine);
    painter.setPen(pen);
    for (const double angle : {20.0, -20.0}) {
        QLineF side = barb;
        side.setAngle(barb.angle() + angle);
        painter.drawLine(side);
    }
}

void DrawPicture(QPainter& painter, CShapeImage& picture)
{
    const cv::Mat pixels = ExpectMemory(picture, picture.GetImage(false));
    if (pixels.type() != CV_8UC1)
        return;
    const QImage image(pixels.data, pixels.cols, pixels.rows, qsizetype(pixels.step[0]), QImage::Format_Grayscale8);
    painter.drawImage(picture.GetRect(true), image);
}

bool HoldsPicture(CShapeList& document)
{
    bool holds = false;
    ForEachShape(document, [&holds](CShape& shape, int) { holds |= dynamic_cast<CShapeImage*>(&shape) != nullptr; });
    return holds;
}

} // namespace

Sheet::Sheet(const QRectF& content, const QString& file)
{
    constexpr double kSmallest = 1e-3;
    constexpr double kAir = 0.03; // part of the longer side
    constexpr int kMostTicks = 12;
    constexpr double kMargin = 60; // units around the frame for the numbers
    if (!WithinReach(content))
        throw Failure{file, "reaches too far to be shown"};
    const double side = std::max({content.width(), content.height(), kSmallest});
    const double air = kAir * side;
    m_frame = content.adjusted(-air, -air, air, air);
    m_step = RoundStep(side / kMostTicks);
    const double margin = kMargin * Unit();
    m_sheet = m_frame.adjusted(-margin, -margin, margin / 2, margin / 2);
}

double Sheet::Unit() const
{
    return std::max(m_frame.width(), m_frame.height()) / 1000;
}

void Sheet::SetUp(QPainter& painter, double width) const
{
    const double scale = width / m_sheet.width();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale, scale);
    painter.translate(-m_sheet.topLeft());
}

void Sheet::DrawFrame(QPainter& painter) const
{
    painter.fillRect(m_sheet, Qt::white);
    painter.setPen(QPen(kFrameColor, kHairline * Unit()));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(m_frame);
    DrawScale(painter, m_frame.left(), m_frame.right(), false);
    DrawScale(painter, m_frame.top(), m_frame.bottom(), true);
    DrawText(painter, "mm", m_frame.topLeft() - QPointF(30, 22) * Unit(), 0.8 * kScaleLetter * Unit(), kFrameColor);
}

void Sheet::DrawScale(QPainter& painter, double from, double to, bool vertical) const
{
    constexpr int kTicksPerStep = 10;
    constexpr double kLongTick = 8;
    constexpr double kShortTick = 4;
    constexpr double kNumberDistance = 13;
    const double tick = m_step / kTicksPerStep;
    const auto last = static_cast<qint64>(std::floor(to / tick));
    for (auto i = static_cast<qint64>(std::ceil(from / tick)); i <= last; ++i) {
        const bool numbered = i % kTicksPerStep == 0;
        const double at = static_cast<double>(i) * tick;
        const double length = (numbered ? kLongTick : kShortTick) * Unit();
        const QPointF edge = vertical ? QPointF(m_frame.left(), at) : QPointF(at, m_frame.top());
        const QPointF out = vertical ? QPointF(-1, 0) : QPointF(0, -1);
        painter.setPen(QPen(kFrameColor, kHairline * Unit()));
        painter.drawLine(edge, edge + out * length);
        if (!numbered)
            continue;
        const QPainterPath number = TextOutline(QString::number(at, 'g', 7), kScaleLetter * Unit());
        const QRectF size = number.boundingRect();
        const double away = kNumberDistance * Unit() + (vertical ? size.width() : size.height()) / 2;
        painter.fillPath(number.translated(edge + out * away), kFrameColor);
    }
}

void DrawShapes(QPainter& painter, CShapeList& document, double unit, const WorkProgress& progress)
{
    const size_t outlines = progress ? OutlineCount(document) : 0;
    WorkWatch pictures(progress, WorkStep::Drawing, outlines), watch(progress, WorkStep::Drawing, outlines);
    if (HoldsPicture(document)) // else copies of cells would be made in vain
        ForEachVisibleOutline(document, [&](CShape& shape) {
            pictures.Next();
            if (auto* picture = dynamic_cast<CShapeImage*>(&shape))
                DrawPicture(painter, *picture);
        });
    painter.setBrush(Qt::NoBrush);
    OutlineStrokes strokes(painter);
    ForEachVisibleOutline(document, [&](CShape& shape) {
        watch.Next();
        if (const QPainterPath* path = shape.GetPath(false))
            strokes.Draw(*path, ColorOf(shape.GetColor()), kOutline * unit);
    });
}

namespace {

void DrawMoves(QPainter& painter, const MachineJob& job, double unit, const WorkProgress& progress)
{
    WorkWatch watch(progress, WorkStep::Drawing, job.PathCount());
    JobReader reader(job);
    std::optional<QPointF> last;
    while (reader.NextPath()) {
        watch.Next();
        for (bool first = true; const auto point = reader.NextPoint(); first = false) {
            if (first && last)
                DrawMove(painter, *last, point->point, unit);
            last = point->point;
        }
    }
}

void DrawPaths(QPainter& painter, const MachineJob& job, double unit, const WorkProgress& progress)
{
    WorkWatch watch(progress, WorkStep::Drawing, job.PathCount());
    JobReader reader(job);
    OutlineStrokes strokes(painter);
    while (const auto path = reader.NextPath()) {
        watch.Next();
        const double width = path->kind == PathKind::Cut ? kOutline : 2 * kOutline;
        strokes.Draw(reader.Points(), ColorOf(path->color), width * unit);
    }
}

void DrawNumbers(QPainter& painter, const MachineJob& job, double unit)
{
    JobReader reader(job);
    for (size_t number = 1; const auto path = reader.NextPath(); ++number) {
        const QPointF start = reader.NextPoint().value_or(JobPoint()).point;
        painter.setPen(QPen(ColorOf(path->color), kHairline * unit));
        painter.setBrush(Qt::white);
        painter.drawEllipse(start, kOrderLetter * unit, kOrderLetter * unit);
        const double letter = (number < 100 ? 1.0 : 0.75) * kOrderLetter; // three digits fit the circle, too
        DrawText(painter, QString::number(number), start, letter * unit, Qt::black);
    }
}

} // namespace

void DrawOrder(QPainter& painter, const MachineJob& job, double unit, const WorkProgress& progress)
{
    painter.setBrush(Qt::NoBrush);
    DrawMoves(painter, job, unit, progress);
    DrawPaths(painter, job, unit, progress);
    if (job.PathCount() <= kMostNumbers)
        DrawNumbers(painter, job, unit);
}

} // namespace shapedocument
