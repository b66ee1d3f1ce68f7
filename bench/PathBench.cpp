/// Painter paths, and their flattening into points and micro lines.
#include "Drawings.h"
#include "Goals.h"

#include "geometry/PlainFlattening.h"
#include "vector/ShapeVector.h"

#include <QPolygonF>
#include <QTransform>

#include <benchmark/benchmark.h>
#include <cairo.h>

#include <random>

namespace {

using namespace bench;

constexpr double kMicroLineMagnification = 250;
constexpr double kPointsMagnification = 1000;

// Tolerances, in model units at the magnification, with which cairo's largest error equals that of the platform's
// flattening of the ellipses below.
constexpr double kCairoToleranceAt250 = 0.330;
constexpr double kCairoToleranceAt1000 = 0.327;

template <class Visit>
void ForEachShape(CShapeList& list, Visit visit)
{
    for (unsigned int i = 0; i < list.GetCount(); ++i)
        visit(static_cast<CShapeVector&>(*list.GetShape(i)));
}

/// Polylines of 100 points; no fitting is asked for before the painter paths are there.
SharedList Polylines()
{
    SharedList list = Drawing(10'000, 100);
    list->GetRect(false);
    ForEachShape(*list, [](CShapeVector& shape) { shape.SetVectorType(EVECTOR_POLYLINE); });
    return list;
}

/// 2,500 ellipses of radii 1 to 50.
std::vector<QPainterPath> Ellipses()
{
    std::mt19937 random(3);
    std::uniform_real_distribution<double> radius(1, 50), place(0, 500);
    std::vector<QPainterPath> paths;
    for (int i = 0; i < 2500; ++i) {
        const double x = place(random), y = place(random), rx = radius(random), ry = radius(random);
        paths.emplace_back().addEllipse(QPointF(x, y), rx, ry);
    }
    return paths;
}

/// The ellipses as free paths, every other one with lines and further sub-paths.
SharedList MixedOutlines()
{
    SharedList list = ShapeListOwner(CShapeList::New());
    int index = 0;
    for (QPainterPath& path : Ellipses()) {
        if (++index % 2 == 0) {
            path.lineTo(index % 500, index % 300);
            path.moveTo(path.currentPosition());
            path.lineTo(3, 4);
            path.moveTo(9, 9);
            path.lineTo(1, 7);
        }
        auto* shape = new CShapeVector;
        shape->ConvertPainterPathToLocalShapePoints(path);
        list->AddTail(shape);
    }
    list->GetRect(false);
    return list;
}

Side Flatten(const SharedList& list)
{
    return {[list] { ForEachShape(*list, [](CShape& shape) { benchmark::DoNotOptimize(shape.Flatten(0.01)); }); }};
}

Side SubpathPolygons(const SharedList& list, double magnification)
{
    const auto split = [by = QTransform::fromScale(magnification, magnification)](CShape& shape) {
        benchmark::DoNotOptimize(shape.GetPath(false)->toSubpathPolygons(by));
    };
    return {[=] { ForEachShape(*list, split); }};
}

Side PlainPasses(const SharedList& list, double magnification)
{
    const auto kept = std::make_shared<std::vector<std::vector<SHAPE_VECTOR_PATHDATA>>>(list->GetCount());
    return {[=] {
        for (unsigned int i = 0; i < list->GetCount(); ++i) {
            const QPainterPath& path = *list->GetShape(i)->GetPath(false);
            (*kept)[i] = test::PlainMicroLines(test::PlainPolygons(path, magnification, true));
            benchmark::DoNotOptimize(test::PlainLines((*kept)[i]));
        }
    }};
}

/// Each path becomes a shape's outline.
Side PointsFromPaths()
{
    return {[paths = Ellipses(), shape = std::make_shared<CShapeVector>()]() mutable {
        for (QPainterPath& path : paths)
            shape->SetPath(&path);
    }};
}

/// Each path becomes lists of points and types by way of mapped polygons.
Side PlainPointsFromPaths()
{
    struct Outline
    {
        QPainterPath path;
        std::vector<QPointF> points;
        std::vector<unsigned char> types;
    };
    return {[paths = Ellipses(), outline = std::make_shared<Outline>()] {
        for (const QPainterPath& path : paths) {
            outline->path = path;
            outline->points.clear();
            outline->types.clear();
            for (const QPolygonF& polygon : test::PlainPolygons(outline->path, kPointsMagnification, false)) {
                outline->points.emplace_back(0, 0);
                outline->types.push_back(ELINE_SEGMENT_SEPARATOR);
                for (const QPointF& point : polygon) {
                    outline->points.push_back(point);
                    outline->types.push_back(ELINE_SEGMENT_STRAIGHT);
                }
            }
        }
    }};
}

/// Flattens paths about their centres by cairo, into a list of points.
class CairoFlattening
{
public:
    CairoFlattening(double magnification, double tolerance)
        : m_surface(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1)), m_context(cairo_create(m_surface)),
          m_magnification(magnification)
    {
        cairo_set_tolerance(m_context, tolerance);
    }
    CairoFlattening(const CairoFlattening&) = delete;
    CairoFlattening& operator=(const CairoFlattening&) = delete;
    ~CairoFlattening()
    {
        cairo_destroy(m_context);
        cairo_surface_destroy(m_surface);
    }

    const std::vector<QPointF>& Flatten(const QPainterPath& path)
    {
        const QPointF centre = path.boundingRect().center();
        Build(path, centre);
        m_points.clear();
        cairo_path_t* flat = cairo_copy_path_flat(m_context);
        for (int i = 0; i < flat->num_data; i += flat->data[i].header.length)
            if (flat->data[i].header.length > 1) {
                const auto& at = flat->data[i + 1].point;
                m_points.emplace_back(at.x / m_magnification + centre.x(), at.y / m_magnification + centre.y());
            }
        cairo_path_destroy(flat);
        return m_points;
    }

private:
    void Build(const QPainterPath& path, QPointF centre)
    {
        const auto at = [&](int i) { return (QPointF(path.elementAt(i)) - centre) * m_magnification; };
        cairo_new_path(m_context);
        for (int i = 0; i < path.elementCount(); ++i) {
            const QPointF p = at(i);
            if (path.elementAt(i).isMoveTo()) {
                cairo_move_to(m_context, p.x(), p.y());
            } else if (path.elementAt(i).isLineTo()) {
                cairo_line_to(m_context, p.x(), p.y());
            } else {
                const QPointF q = at(i + 1), end = at(i + 2);
                cairo_curve_to(m_context, p.x(), p.y(), q.x(), q.y(), end.x(), end.y());
                i += 2;
            }
        }
    }

    cairo_surface_t* m_surface;
    cairo_t* m_context;
    double m_magnification;
    std::vector<QPointF> m_points;
};

Side CairoPoints(double magnification, double tolerance)
{
    return {[paths = Ellipses(), cairo = std::make_shared<CairoFlattening>(magnification, tolerance)] {
        for (const QPainterPath& path : paths)
            benchmark::DoNotOptimize(cairo->Flatten(path).data());
    }};
}

/// As many ellipses as make kLines micro lines.
constexpr size_t kLines = 300'000;

Side EllipseLines()
{
    auto shapes = std::make_shared<std::vector<CShapeVector>>();
    for (const QPainterPath& path : Ellipses())
        shapes->emplace_back().SetShapeEllipse(path.boundingRect());
    return {[shapes] {
        size_t lines = 0;
        for (size_t i = 0; lines < kLines; i = (i + 1) % shapes->size())
            lines += (*shapes)[i].GenEllipseMicroLine().size();
    }};
}

/// As many ellipses as cairo makes kLines points of, at the magnification of micro lines.
Side CairoLines()
{
    const auto cairo = std::make_shared<CairoFlattening>(kMicroLineMagnification, kCairoToleranceAt250);
    return {[paths = Ellipses(), cairo] {
        size_t points = 0;
        for (size_t i = 0; points < kLines; i = (i + 1) % paths.size())
            points += cairo->Flatten(paths[i]).size();
    }};
}

const bool kRegistered = Register({
    {.name = "F1 Flatten of 10,000 polylines of 100 points",
     .against = "toSubpathPolygons alone",
     .goal = AtMost(1.3),
     .sides =
         [] {
             const SharedList list = Polylines();
             return Sides{Flatten(list), SubpathPolygons(list, 1)};
         }},
    {.name = "F1 the same",
     .against = "pass by pass",
     .goal = TimesFaster(2.5),
     .sides =
         [] {
             const SharedList list = Polylines();
             return Sides{Flatten(list), PlainPasses(list, 1)};
         }},
    {.name = "F1 Flatten of 2,500 free outlines of 4 curves",
     .against = "toSubpathPolygons alone",
     .goal = AtMost(1.3),
     .sides =
         [] {
             const SharedList list = MixedOutlines();
             return Sides{Flatten(list), SubpathPolygons(list, kMicroLineMagnification)};
         }},
    {.name = "F1 the same curves",
     .against = "pass by pass",
     .goal = TimesFaster(2.5),
     .sides =
         [] {
             const SharedList list = MixedOutlines();
             return Sides{Flatten(list), PlainPasses(list, kMicroLineMagnification)};
         }},
    {.name = "F2 points from 2,500 ellipses, flattened at 1000-fold",
     .against = "pass by pass",
     .goal = AtMost(0.8),
     .sides =
         [] {
             return Sides{PointsFromPaths(), PlainPointsFromPaths()};
         }},
    {.name = "F2 the same",
     .against = "cairo at the same largest error",
     .goal = TimesFaster(3),
     .sides =
         [] {
             return Sides{PointsFromPaths(), CairoPoints(kPointsMagnification, kCairoToleranceAt1000)};
         }},
    {.name = "F3 300,000 micro lines of ellipses",
     .against = "as many points by cairo at 250-fold",
     .goal = AtMost(0.3),
     .sides =
         [] {
             return Sides{EllipseLines(), CairoLines()};
         }},
});

} // namespace
