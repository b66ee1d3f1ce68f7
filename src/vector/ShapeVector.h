/// CShapeVector, the drawn geometry: rectangles, ellipses, lines, regular polygons and free paths.
#pragma once

#include "shape/Shape.h"

#include <QList>
#include <QPolygonF>

/// Layout of a vector shape's points; the numbers are stored. Any other number is kept and draws nothing.
enum EVECTOR_TYPE : int32_t
{
    EVECTOR_RECT = 0,         ///< 5 straight points: top left, top right, bottom right, bottom left, top left
    EVECTOR_ELLIPSE = 1,      ///< 13 curve points: start, then 4 cubics of 3 points
    EVECTOR_POLYLINE = 2,     ///< runs of straight points, each behind a separator
    EVECTOR_POLYLINE_B = 3,   ///< as EVECTOR_POLYLINE; nothing in the library assigns it
    EVECTOR_BEZIER_CHAIN = 4, ///< a start point, then triples (control, control, end)
    EVECTOR_BEZIER_SET = 5,   ///< groups of 4 points, each an independent cubic
    EVECTOR_MIXED = 6         ///< separators, straight points and curve triples as their types say
};

/// The host's drawing tools that matter to this class.
enum ETOOL_MODE : int32_t
{
    ETOOL_ISOGON = 20,        ///< regular polygon, first vertex in the direction of the drag
    ETOOL_ISOGON_ROTATED = 21 ///< the same turned by half a step
};

/// A vector outline. Its geometry is the outline of CShape; the vector type says how it is laid out.
///
/// **Costs** are those of CShape, n in the points and l in the micro lines, unless said below.
class SHAPEMODEL_EXPORT CShapeVector : public CShape
{
public:
    CShapeVector();
    /// As CShape's: every field, no paths.
    CShapeVector(const CShapeVector&);
    /// As CShape's: every field, no paths.
    CShapeVector& operator=(const CShapeVector&);
    ~CShapeVector() override;

    /// How the points are laid out; EVECTOR_RECT in a new shape.
    EVECTOR_TYPE GetVectorType();
    /// Does not rebuild the painter path.
    void SetVectorType(EVECTOR_TYPE type);
    /// A flag of the host: kept, copied and saved, not interpreted.
    void SetExtractContour(bool bExtract);
    /// That flag; false in a new shape.
    bool IsExtractContour();

    // Primitives. They do not change the vector type: set it too, because the next rebuild reads the points by it.

    /// 5 straight points, clockwise on screen from the top left corner and back to it.
    void SetShapeRect(QRectF rect);
    /// 13 points: four cubics from the middle of the right edge, downwards first.
    void SetShapeEllipse(QRectF rect);
    /// Sets the painter path only; the points stay.
    void SetShapeLine(QPointF a, QPointF b);
    /// Does nothing: bounding rectangles are not kept.
    void SetShapeBoundRect(QRectF rect);
    /// Does nothing: rounded corners are not kept.
    void SetCornerRadio(double radius);

    /// Makes this shape a regular polygon. Cost: O(sides).
    /// @param n number of sides
    /// @param side length of a side, model units
    /// @param centre its centre
    /// @param toward the first vertex lies in this point's direction; directions within 4 degrees of a multiple of 45
    ///        lock onto it
    /// @param mode ETOOL_ISOGON_ROTATED turns the polygon by half a step
    /// @param angleDeg receives the direction used, 0 to 360 degrees
    /// @return a new empty vector shape, owned by the caller (the geometry is in this shape); null, with nothing
    ///         changed, for a drag below 0.01, n below 3 or above a million, non-finite arguments, or a polygon that
    ///         SetPath does not accept.
    CShape* SetShapeIsogon(int n, float side, QPointF centre, QPointF toward, bool, ETOOL_MODE mode, double& angleDeg);

    /// Fills out[0..3] with the lead-in line (out[0] to out[1]) and the lead-out line (out[2] to out[3]). Open outlines
    /// are entered along the first segment of their first run and left along the last segment of their last run; closed
    /// ones along the bisector of the corner at the start of their first run. A leading separator is removed from the
    /// outline. False when no lead is active, or when the active lead-in finds no point that differs from the start; a
    /// lead-out alone then has no length. Cost: O(n).
    bool GetGuideLinePoints(QPointF* out);

    /// Replaces the outline by the elements of path as EVECTOR_MIXED; the painter path stays.
    /// Cost: O(elements of path).
    void ConvertPainterPathToLocalShapePoints(QPainterPath& path);

    // Micro lines (model units). Flatten chooses the generator that suits the path.

    /// Of the painter path of a rectangle; curves are flattened coarsely, without magnification. Cost: O(n + l).
    std::vector<SHAPE_VECTOR_PATHDATA> GenRectMicroLine();
    /// Of the painter path of straight lines; curves are flattened coarsely, without magnification. Cost: O(n + l).
    std::vector<SHAPE_VECTOR_PATHDATA> GenLineMicroLine();
    /// Of the 13 points of an ellipse, in parameter steps of 0.03; empty with fewer points. Cost: O(1), 139 lines.
    std::vector<SHAPE_VECTOR_PATHDATA> GenEllipseMicroLine();
    /// Of any painter path; curves are flattened at a magnification of 250. Cost: O(n + l).
    std::vector<SHAPE_VECTOR_PATHDATA> GenComplextMicroLine();
    /// One micro line per pair of neighbouring points, of type 2 for the first of a polygon, else 0. The argument type
    /// has no effect. Cost: O(l).
    std::vector<SHAPE_VECTOR_PATHDATA> PathPolygons(ESHAPE_LINE_SEGMENT_TYPE type, QList<QPolygonF> polygons);

    /// Common record, vector type (4 bytes), extract-contour flag (1 byte). Cost: O(n).
    int Save(QFile* file) override;
    /// Versions 0 to 6 carry the vector type, 7 to 14 also the flag, all others (negative ones too) neither.
    /// Cost: O(n).
    int Read(QFile* file, int version) override;
    /// False, and nothing changed, unless src is a vector shape. Cost: O(n).
    bool Copy(CShape* src) override;
    /// Whether every sub-path ends within 1e-6 of its own start; false with fewer than three points. Cost: O(n).
    bool IsClose() override;
    /// Appends the start point, as fill marker when bFill, else when it lies within tolerance (x and y each), and makes
    /// the shape EVECTOR_MIXED. A fill marker closes the last run: it is a copy of that run's start. Drops the painter
    /// path unless there are fewer than three points or the ends already meet. Always true. Cost: O(n).
    bool Close(double tolerance, bool bFill) override;
    /// Whether there is a fill marker. Remembers its index for RestoreFilledShape, until the outline is replaced.
    /// Cost: O(n).
    bool IsFilled() override;
    /// Removes the point that IsFilled found last, once; nothing without one. Cost: O(n).
    void RestoreFilledShape() override;
    /// Turns fill markers into straight points. Cost: O(n).
    void ProcessFilledShape() override;
    /// Makes the painter path a copy of *path and the points its flattened form (EVECTOR_POLYLINE). Null and paths with
    /// points that are not finite, or too far away to be magnified, are ignored.
    /// Cost: O(elements of path and points of the flattened form).
    void SetPath(QPainterPath* path) override;
    /// Generates the micro lines anew; EVECTOR_BEZIER_SET and unknown types keep the ones they had. Curves in a
    /// polyline's painter path are flattened as finely as those of free paths. Cost: O(n + l).
    /// @param tolerance ignored: fineness is fixed. Curves are flattened at a magnification of 250, rectangles at 1,
    ///                  ellipses in parameter steps of 0.03.
    std::vector<QLineF> Flatten(double tolerance) override;
    ESHAPE_TYPE GetShapeType() override;
    /// Whether p lies in GetRect(false) and nearer to the micro lines than tolerance (model units; never written).
    /// Sides up to 1 of a polyline's or free path's rectangle are widened by tolerance first. Generates the micro lines
    /// anew, as Flatten does. Cost: O(1) away from the rectangle, else O(n + l).
    bool Hit(QPointF p, int& tolerance) override;
    CShape* Clone() override;
    /// A polyline is fitted by the curve-fitting plug-in first; when that makes it shorter, it becomes EVECTOR_MIXED. A
    /// polyline whose types mark curves is drawn with them. Cost: O(n), and the plug-in's time.
    void UpdatePainterPath() override;

protected:
    /// Appends the outline of the present points as the vector type says, without curve fitting.
    void BuildOutline(QPainterPath& path) const;
    /// Whether p lies in the rectangle, widened where needed, in which Hit looks for the outline.
    bool IsInHitRect(QPointF p, double reach);

private:
    friend class CShapeList;

    /// Writes what Save writes.
    SHAPEMODEL_NO_EXPORT void WriteRecord(shapes::RecordWriter& writer) const;
    /// Reads what Read reads.
    SHAPEMODEL_NO_EXPORT void ReadRecord(shapes::RecordReader& reader, int version);

    SHAPEMODEL_NO_EXPORT void RenewMicroLines();
    SHAPEMODEL_NO_EXPORT void OptimizeShape(std::vector<QPointF>& outPoints, std::vector<unsigned char>& outTypes);
    SHAPEMODEL_NO_EXPORT bool AdoptOptimizedOutline();
    SHAPEMODEL_NO_EXPORT void RefitMixedOutline();
    SHAPEMODEL_NO_EXPORT void MarkAsPolyline();
    SHAPEMODEL_NO_EXPORT void LayOutCubics();
    /// Whether SetPath accepts this path.
    SHAPEMODEL_NO_EXPORT static bool CanSetPath(const QPainterPath& path);
    SHAPEMODEL_NO_EXPORT void BuildRect(QPainterPath& path) const;
    SHAPEMODEL_NO_EXPORT void BuildEllipse(QPainterPath& path) const;
    SHAPEMODEL_NO_EXPORT void BuildBezierChain(QPainterPath& path) const;
    SHAPEMODEL_NO_EXPORT void BuildBezierSet(QPainterPath& path) const;

    EVECTOR_TYPE m_eVectorType = EVECTOR_RECT;
    bool m_bExtractContour = false;
    bool m_bFitFaultKnown = false; ///< a fault of the plug-in with this shape has been logged
};
