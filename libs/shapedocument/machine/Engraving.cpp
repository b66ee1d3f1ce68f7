#include "machine/Engraving.h"

#include "document/Failure.h"
#include "document/PicturePixels.h"
#include "document/Reach.h"
#include "document/ShapeWalk.h"
#include "machine/Dither.h"
#include "machine/HatchRows.h"
#include "machine/PictureRows.h"

#include "geometry/Tolerances.h"
#include "image/ShapeImage.h"
#include "vector/ShapeVector.h"

#include <algorithm>
#include <cmath>
#include <memory>

namespace shapedocument {

namespace {

using Corners = std::array<QPointF, 4>;
using RowVisit = std::function<void(const EngraveRow&)>;

constexpr double kFillFlatness = 0.01; // mm, of filled outlines

/// A row of dots is held in memory; a job of more than kMostDots would take days.
constexpr double kMostDotsInRow = 1e7;
constexpr double kMostDots = 1e11;

/// Whether the parallelogram has a finite area other than 0.
bool HasArea(const Corners& corners)
{
    const QPointF right = corners[1] - corners[0], down = corners[3] - corners[0];
    return std::isnormal(right.x() * down.y() - right.y() * down.x());
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

/// Neighbouring dots whose greys span no more than step become one span with the grey in their middle.
void CollectSpans(const std::vector<unsigned char>& dots, DotRange range, int step, double left, double pitch,
                  std::vector<EngraveSpan>& spans)
{
    spans.clear();
    for (size_t i = range.begin; i < range.end;) {
        int least = dots[i], most = dots[i];
        const size_t begin = i++;
        if (most == kWhite)
            continue;
        for (; i < range.end && dots[i] != kWhite; ++i) {
            const int lower = std::min<int>(least, dots[i]), upper = std::max<int>(most, dots[i]);
            if (upper - lower > step)
                break;
            least = lower;
            most = upper;
        }
        spans.push_back({left + static_cast<double>(begin) * pitch, left + static_cast<double>(i) * pitch,
                         static_cast<unsigned char>((least + most) / 2)});
    }
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
        std::vector<unsigned char> dots(rows.Dots());
        Dither dither(m_options.dither ? rows.Dots() : 0);
        for (size_t row = 0; row < rows.Rows(); ++row) {
            const DotRange range = rows.Covered(row);
            rows.Read(row, range, dots);
            if (m_options.dither)
                dither.Apply(dots, range);
            CollectSpans(dots, range, m_options.greyStep, rows.Left(), m_pitch, m_spans);
            HandOn(rows.CentreOf(row));
        }
    }

    void AddHatches(HatchRows rows)
    {
        for (size_t row = 0; row < rows.Rows(); ++row) {
            rows.Next(m_spans);
            HandOn(rows.CentreOf(row));
        }
    }

    void HandOn(double y)
    {
        if (!m_spans.empty()) {
            m_row.y = y;
            m_row.spans = m_spans;
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
    std::vector<EngraveSpan> m_spans;
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
