#include "machine/Engraving.h"

#include "document/Failure.h"
#include "document/PicturePixels.h"
#include "document/Reach.h"
#include "document/ShapeWalk.h"
#include "machine/HatchRows.h"
#include "machine/PictureSpans.h"

#include "geometry/Tolerances.h"
#include "image/ShapeImage.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <span>

namespace shapedocument {

namespace {

using Corners = std::array<QPointF, 4>;
using RowVisit = std::function<void(const EngraveRow&)>;

constexpr double kFillFlatness = 0.01; // mm, of filled outlines

/// A row of dots is held in memory; a job of more than kMostDots would take days.
constexpr double kMostDotsInRow = 1e7;
constexpr double kMostDots = 1e11;

/// Whether the parallelogram has a finite area, by which lengths can be divided.
bool HasArea(const Corners& corners)
{
    constexpr double kLeast = 1e-100; // mm²: a length divided by the part of one pixel stays finite
    const QPointF right = corners[1] - corners[0], down = corners[3] - corners[0];
    const double area = std::abs(right.x() * down.y() - right.y() * down.x());
    return std::isfinite(area) && area > kLeast;
}

QRectF RectOf(const Corners& corners)
{
    const auto [left, right] = std::minmax({corners[0].x(), corners[1].x(), corners[2].x(), corners[3].x()});
    const auto [top, bottom] = std::minmax({corners[0].y(), corners[1].y(), corners[2].y(), corners[3].y()});
    return {QPointF(left, top), QPointF(right, bottom)};
}

/// Flattens a copy, so that the shape itself does not keep the lines.
std::vector<QLineF> LinesOf(CShape& shape)
{
    const std::unique_ptr<CShape> copy(shape.Clone());
    std::vector<QLineF> lines = copy->Flatten(kFillFlatness);
    CShape::DeletePath(copy.get());
    CShape::DeletePath(&shape);
    return lines;
}

/// Painter paths, and with them Flatten, skip points that are not finite.
bool AreFinite(CShape& shape)
{
    std::vector<QPointF> points;
    std::vector<unsigned char> types;
    shape.GetShapePathData(points, types);
    return std::all_of(points.begin(), points.end(), [](const QPointF& point) { return shapes::IsFinite(point); });
}

/// What the rows of a shape are made from.
struct Material
{
    QString obstacle; ///< why there are none
    cv::Mat pixels;
    Corners corners;
    std::vector<QLineF> lines; ///< of a filled outline
};

Material PictureMaterial(CShapeImage& picture)
{
    Material material;
    material.pixels = ExpectMemory(picture, picture.GetUnwarpedImage(material.corners));
    if (material.pixels.empty())
        material.obstacle = "picture without pixels";
    else if (material.pixels.type() != CV_8UC1)
        material.obstacle = "picture that is not grey";
    else if (!HasArea(material.corners))
        material.obstacle = "picture without area";
    return material;
}

Material MaterialOf(CShape& shape)
{
    if (auto* picture = dynamic_cast<CShapeImage*>(&shape))
        return PictureMaterial(*picture);
    Material material;
    material.lines = LinesOf(shape);
    if (material.lines.empty())
        material.obstacle = "filled outline without lines";
    else if (!AreFinite(shape))
        material.obstacle = "filled outline with a place that is no number";
    return material;
}

/// Hands on the rows of one shape after the other.
class RowMaker
{
public:
    /// read may be empty.
    RowMaker(const EngraveOptions& options, const RowVisit& take, const std::function<void()>& read)
        : m_options(options), m_pitch(1 / options.linesPerMm), m_take(take), m_read(read)
    {}

    void Add(CShape& shape)
    {
        const Material material = MaterialOf(shape);
        if (!material.obstacle.isEmpty())
            return;
        ++m_row.shape;
        m_row.color = shape.GetColor();
        if (material.pixels.empty())
            AddHatches(HatchRows(material.lines, m_pitch));
        else
            AddPicture(PictureRows(material.pixels, material.corners, m_pitch));
    }

private:
    void AddPicture(const PictureRows& rows)
    {
        ForEachRowOf(rows, m_options,
                     [&](size_t row, std::span<const EngraveSpan> spans) { HandOn(rows.CentreOf(row), spans); });
    }

    void AddHatches(HatchRows rows)
    {
        for (size_t row = 0; row < rows.Rows(); ++row) {
            rows.Next(m_spans);
            HandOn(rows.CentreOf(row), m_spans);
        }
    }

    void HandOn(double y, std::span<const EngraveSpan> spans)
    {
        if (!spans.empty()) {
            m_row.y = y;
            m_row.spans = spans;
            m_take(m_row);
            m_row.backwards = !m_row.backwards && !m_options.oneWay;
        }
        if (m_read)
            m_read();
    }

    const EngraveOptions& m_options;
    double m_pitch;
    const RowVisit& m_take;
    const std::function<void()>& m_read;
    EngraveRow m_row;
    std::vector<EngraveSpan> m_spans; ///< of a hatched row
};

/// The cost of reading all rows, and the rectangle around them.
struct Extent
{
    QRectF rect;
    double dots = 0;
    double dotsInRow = 0;
};

Extent ExtentOf(const Material& material, double pitch)
{
    if (material.pixels.empty()) {
        const HatchRows rows(material.lines, pitch);
        return {rows.Rect(), rows.Crossings(), 0};
    }
    const QRectF rect = RectOf(material.corners);
    const double dotsInRow = rect.width() / pitch;
    const auto pixels = static_cast<double>(material.pixels.total());
    return {rect, std::max(dotsInRow * (rect.height() / pitch + 1), pixels), dotsInRow};
}

} // namespace

bool IsEngraved(CShape& shape)
{
    return dynamic_cast<CShapeImage*>(&shape) || shape.IsFilled();
}

QString EngravingObstacle(CShape& shape)
{
    return MaterialOf(shape).obstacle;
}

Engraving::Engraving(CShapeList& document, const EngraveOptions& options, const QString& file)
    : m_document(document), m_options(options)
{
    double dots = 0;
    ForEachVisibleOutline(document, [&](CShape& shape) {
        if (!IsEngraved(shape))
            return;
        const Material material = MaterialOf(shape);
        if (!material.obstacle.isEmpty())
            return;
        ++m_shapes;
        const Extent extent = ExtentOf(material, Pitch());
        if (!WithinReach(extent.rect))
            throw Failure{file, QString("engraved shape %1 lies out of reach").arg(m_shapes)};
        dots += extent.dots;
        if (extent.dotsInRow > kMostDotsInRow || dots > kMostDots)
            throw Failure{
                file,
                QString("engraved shape %1 is too large for %2 lines a mm").arg(m_shapes).arg(options.linesPerMm)};
        m_rows += DotCount(extent.rect.height(), Pitch());
        m_rect = m_shapes == 1 ? extent.rect : m_rect.united(extent.rect);
    });
}

void Engraving::ForEachRow(const RowVisit& take, const std::function<void()>& read) const
{
    RowMaker rows(m_options, take, read);
    ForEachVisibleOutline(m_document, [&](CShape& shape) {
        if (IsEngraved(shape))
            rows.Add(shape);
    });
}

} // namespace shapedocument
