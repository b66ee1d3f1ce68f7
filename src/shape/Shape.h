/// CShape, the base of every item of a drawing.
#pragma once

#include "shape/ShapeTypes.h"
#include "shapemodel_export.h"

#include <QLineF>
#include <QPainterPath>
#include <QRectF>

#include <atomic>
#include <memory>
#include <vector>

class QFile;
class QTransform;

namespace shapes {
class OutlineParts;
class RecordReader;
class RecordWriter;
} // namespace shapes

/// Abstract base of vectors, texts, images, code images, groups and arrays.
///
/// **Units.** Coordinates are model units, normally millimetres, x to the right, y down; angles are degrees, positive
/// clockwise as seen on screen.
///
/// **Outline.** A list of points with one type byte per point (ESHAPE_LINE_SEGMENT_TYPE). Both lists have the same
/// length in a valid shape; a type that is missing counts as 0.
///
/// **Painter path.** Built from the outline when first asked for (GetPath), kept, and dropped by operations that change
/// points unless they say otherwise. Building it may replace the points of a polyline by a fitted outline.
///
/// **Ownership.** Shapes are made with NewShape or a constructor, freed with Release; a CShapeList owns what it holds.
/// A shape owns its painter path and its temporary path.
///
/// **Identity.** A new shape draws the next number of a process-wide counter; every kind of copy keeps its source's
/// number; numbers are not stored.
///
/// **Threads.** Two documents on two threads are safe, one document belongs to one thread at a time: its lists, their
/// shapes and the paths and pictures that they lend. What documents share looks after itself: the id counter, the
/// configuration, the stores of pictures, the curve plug-in, which is called by one thread at a time. Before a second
/// thread begins, the host hands its stores over (CShapeImage::SetImageMgr and its fellows) and makes its application
/// object. It answers the library's calls (log, theme name, ruler) on every thread that works on a document. A shape
/// goes to another document between two calls, never during one: copying may build the source's painter path.
class SHAPEMODEL_EXPORT CShape
{
public:
    /// A default-constructed shape of the class for the type, owned by the caller; null for any other number.
    static CShape* NewShape(ESHAPE_TYPE type);

    /// Destroys and frees the shape; null is ignored.
    static void Release(CShape* shape);

    /// Frees the shape's painter path; the next GetPath builds it anew. Null is ignored.
    static void DeletePath(CShape* shape);

    /// Member-wise copies keep every field, the id included, but start without painter path and temporary path.
    CShape(const CShape&) = default;
    CShape& operator=(const CShape&) = default;

    // The order of the virtual operations from here to UpdatePainterPath is part of the binary interface: add nothing
    // between them.

    /// Frees the painter path only when it is not empty; hosts may hold on to an empty one. The temporary path is not
    /// freed: end an interactive edit with ExitPathTmp first.
    virtual ~CShape();

    /// Writes the common record (44 bytes and 9 per point, little-endian) at the file's position. Always 0; write
    /// errors show in the file's own state. A null file is ignored.
    virtual int Save(QFile* file);

    /// Reads the common record and appends its points to the outline. Always 0: a short stream leaves the fields it
    /// does not reach as they were and keeps the points that are whole. The painter path stays; read into new shapes.
    virtual int Read(QFile* file, int version);

    /// Deep copy of colour, status, guide line, painter path, micro lines, outline and id. The source may build its
    /// painter path on the way; a source that builds none leaves an empty one here. False for null.
    virtual bool Copy(CShape* src);

    /// Whether p lies within 8.0 / scale of the outline (scale: the caller's view scale). The inside does not count.
    virtual bool Contains(QPointF p, double scale);

    /// Moves points and painter path (built when absent). False, and nothing moved, for a non-finite distance. Here and
    /// in all transforms, magnitudes beyond 1e100 count as not finite.
    virtual bool Offset(double dx, double dy);

    /// Maps the points from GetRect(false) onto target. A side without extent is moved, not stretched. Drops the
    /// painter path. False, and nothing changed, for a non-finite target.
    virtual bool Resize(QRectF target);

    /// Rotate by -90 and by 90 degrees about centre.
    virtual bool RotateLeft(QPointF centre);
    virtual bool RotateRight(QPointF centre);

    /// Turns the points about centre, always in the drawing plane whatever the axis. Drops the painter path. False,
    /// and nothing changed, for non-finite arguments.
    virtual bool Rotate(double angle, QPointF centre, Qt::Axis axis);

    /// Mirrors the points across the vertical line x = axis, the horizontal line y = axis. Drops the painter path.
    /// False, and nothing changed, for a non-finite axis.
    virtual bool MirrorX(double axis);
    virtual bool MirrorY(double axis);

    /// Mirrors the points across the line through p1 and p2; the flag is for subclasses. Coincident points change
    /// nothing. Drops the painter path. False, and nothing changed, for non-finite points.
    virtual bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit);

    /// MirrorX(value) when bVertical, else MirrorY(value).
    virtual bool MirrorAttachLine(double value, bool bVertical);

    /// Bounding rectangle of the painter path, control points not counted; null when there is none. The flag is for
    /// subclasses.
    virtual QRectF GetRect(bool bUpdate);

    /// A null rectangle here; subclasses answer their frame in whole units.
    virtual QRect GetRectUI(double scale);

    virtual void SetColor(unsigned int color);

    /// Whether the outline ends within 1e-6 of its start in x and in y. False with fewer than two points.
    virtual bool IsClose();

    /// Closing and filling belong to vector shapes: here Close and IsFilled answer false and the others do nothing.
    virtual bool Close(double tolerance, bool bFill);
    virtual bool IsFilled();
    virtual void RestoreFilledShape();
    virtual void ProcessFilledShape();

    virtual void SetGuideLine(SGuideLine guideLine);

    /// Makes the painter path a copy of *path; the points stay. Null is ignored; the shape's own path is welcome.
    virtual void SetPath(QPainterPath* path);

    /// Sets the select bit; clears it by subtracting it when IsSelect().
    virtual void Select(bool bSelect);

    /// The micro lines as lines (model units), in order, with a null line before each that starts a further sub-path.
    /// Subclasses generate them anew first; here they are those of the last generation.
    /// @param tolerance ignored here and in every class: fineness is fixed, see the subclasses
    virtual std::vector<QLineF> Flatten(double tolerance);

    virtual bool IsSelect();
    virtual ESHAPE_TYPE GetShapeType() = 0;

    /// Whether p hits the shape; what the second argument means is each class's own.
    virtual bool Hit(QPointF p, int& part) = 0;

    /// A deep copy, owned by the caller.
    virtual CShape* Clone() = 0;

    /// Builds the painter path from the shape's own data. Leaves a path in place, possibly an empty one.
    virtual void UpdatePainterPath() = 0;

    // End of the virtual operations.

    unsigned int GetShapeId();

    /// The status word, bits SHAPE_STATUS_…. Bits are cleared by subtraction, see the setters.
    unsigned int GetStatus();
    void Lock(bool bLock);
    void Hide(bool bHide);

    /// Sets the group bit; SetGroup(false) subtracts it when the shape is *selected*. A selected shape that is in no
    /// group therefore borrows from the higher bits: hosts rely on this.
    void SetGroup(bool bGroup);
    bool IsLock();
    bool IsHide();
    bool IsGroup();

    /// The colour field; for a group with members, the colour of its first member.
    unsigned int GetColor();

    SGuideLine GetGuideLine();

    ESHAPE_VECTOR_TYPE GetShapeVectorType();
    void SetShapeVectorType(ESHAPE_VECTOR_TYPE type);
    /// 0 to 3 are taken as they are, every other number as 0.
    void SetShapeVectorType(int type);

    /// Replaces the outline, every point with the same type. Drops the painter path. The shape's own list is welcome.
    void SetShapePoints(const std::vector<QPointF>& points, ESHAPE_LINE_SEGMENT_TYPE type);
    /// Replaces the outline; the lengths are not compared. Drops the painter path. The shape's own lists are welcome.
    void SetShapePoints(const std::vector<QPointF>& points, const std::vector<unsigned char>& types);
    /// Copies the outline out.
    void GetShapePathData(std::vector<QPointF>& points, std::vector<unsigned char>& types);

    /// Whether there are as many types as points, and at least two points.
    bool IsValid() const;

    /// First point (after a leading separator) and last point. Both outputs stay as they are with fewer than two.
    void GetInAndOutPoint(QPointF& in, QPointF& out);

    /// Reverses the points and the types, each for itself; the painter path stays.
    void ReverseDir();

    /// Euclidean distance.
    double CalDistance(QPointF& a, QPointF& b);

    /// The points mirrored across the infinite line through line.p1() and line.p2(), in order; unchanged when the two
    /// coincide.
    std::vector<QPointF> GetMirroredPoint(std::vector<QPointF> points, const QLineF& line);

    /// Centre of GetRect(false).
    QPointF GetRectCenter();

    /// The painter path, built when absent or when bUpdate asks for it. Owned by the shape: neither free it nor keep it
    /// across an edit.
    QPainterPath* GetPath(bool bUpdate);
    /// Null.
    QPainterPath* GetPathUI(double scale);

    /// Hooks for closed outlines that no class of this library fills: false, or nothing done.
    static bool HasCloseFlag(unsigned char type);
    bool HasCloseFlag();
    static void SetInPoint(QPainterPath* path, unsigned int index, double scale);
    void SetInPoint(unsigned int index, double scale);
    void UpdatePathDataByClose(bool bClose, CShape* shape) const;

    /// 3, whatever the path.
    static ESHAPE_LINE_SEGMENT_TYPE LineSegmentType(QPainterPath* path);

    /// Temporaries of an interactive edit. InitPathTmp does nothing but look at the shape's rectangle here; ExitPathTmp
    /// frees the temporary path. The temporary shape is the caller's.
    void InitPathTmp();
    void ExitPathTmp();
    QPainterPath* GetPathTmp();
    std::vector<SHAPE_VECTOR_PATHDATA> GetPathDataTmp();
    void SetShapeTmp(CShape* shape);
    CShape* GetShapeTmp();

    /// A string of a record: int32 length in bytes, then the bytes. False when file is null; a null text is empty.
    bool SaveString(QFile* file, char* const text);
    /// Reads such a string into buffer and terminates it. The buffer must hold the stored length and one byte more;
    /// only what the stream holds is written to it. False when file or buffer is null.
    bool ReadString(QFile* file, char* const buffer);

protected:
    CShape();

    /// Replaces the painter path by a new empty one and answers it.
    QPainterPath* NewPath();
    /// The painter path, made empty when absent.
    QPainterPath* EnsurePath();
    /// The painter path as it is, null when absent.
    QPainterPath* CachedPath() const;
    /// Leaves a rebuild to whoever asks for the painter path first. Whoever changes what the path is made of without
    /// meaning to change the path calls BuildDeferredPath before.
    void DeferPathRebuild();
    /// Rebuilds a painter path that waits; does nothing for one that is there, or absent for another reason.
    void BuildDeferredPath();
    /// Makes the painter path the join of parts, which is made when somebody asks for the path.
    void SetPathParts(std::shared_ptr<const shapes::OutlineParts> parts);
    /// Drops a painter path that nobody has asked for since SetPathParts, for instance because the outlines that its parts
    /// keep as they were are about to change and the path with them.
    void DropPathParts();
    /// Adds the shape's painter path, built when absent; one that is in parts itself is not joined for it.
    static void AddPathTo(shapes::OutlineParts& parts, CShape& shape);
    /// Maps every point and drops the painter path.
    void MapPoints(const QTransform& transform);
    /// Type of point i; 0 where the type list is shorter.
    unsigned char PointType(size_t i) const;
    /// 1 when the outline begins with a separator, else 0.
    size_t FirstPointIndex() const;
    /// Whoever replaces the outline calls this: what is known of the old points does not hold for the new ones.
    void ForgetOutline() { m_outlineNotes = {}; }
    /// Replaces the temporary path; null ends it.
    void SetPathTmp(std::unique_ptr<QPainterPath> path);
    /// What CShape::Save writes.
    void WriteCommonRecord(shapes::RecordWriter& writer) const;
    size_t CommonRecordBytes() const;
    /// What CShape::Read reads.
    void ReadCommonRecord(shapes::RecordReader& reader);

private:
    friend class CShapeList;

    bool HasPath() const;
    void CopyPath(CShape& source);
    void ReadPoints(shapes::RecordReader& reader, size_t count);
    void AppendPoints(const char* records, size_t count);
    void PackPoints(size_t first, size_t count, char* record) const;

    /// Owns at most one path. Copies of a slot are empty, so that a member-wise copy shares nothing; assigning to a slot
    /// empties it, except from itself.
    class PathSlot
    {
    public:
        PathSlot() = default;
        PathSlot(const PathSlot&) {}
        PathSlot& operator=(const PathSlot& other)
        {
            if (this != &other)
                m_path.reset();
            return *this;
        }
        std::unique_ptr<QPainterPath> m_path;
    };

    /// A value that copies start without; assigning takes it away, except from itself.
    template <class Value>
    class NotCopied
    {
    public:
        NotCopied() = default;
        NotCopied(const NotCopied&) {}
        NotCopied& operator=(const NotCopied& other)
        {
            if (this != &other)
                m_value = {};
            return *this;
        }
        Value m_value = {};
    };

    static std::atomic<unsigned int> s_nID;

protected:
    /// What is known of the points that the outline has now; assigned with them.
    struct OutlineNotes
    {
        int fillMarker = -1;    ///< where the fill marker was found last
        bool fitted = false;    ///< the points come from curve fitting: fitting them again would add error to error
        bool mirroredX = false; ///< how a text has mirrored them, as it was itself when it was laid out last
        bool mirroredY = false;
    };

    unsigned int m_nStatus = 0;
    mutable PathSlot m_pPath; ///< painter path; comes only through CachedPath, goes only through DeletePath
    unsigned int m_nColor = 0;
    ESHAPE_VECTOR_TYPE m_eShapeVectorType = ESHAPE_VECTOR_0;
    std::vector<SHAPE_VECTOR_PATHDATA> m_listPathData; ///< micro lines of the last generation
    std::vector<QPointF> m_listPoints;
    std::vector<unsigned char> m_listTypes;
    SGuideLine m_guideLine;
    PathSlot m_pPathTmp; ///< path shown while a transform is being dragged
    CShape* m_pShapeTmp = nullptr;
    unsigned int m_nShapeId;
    OutlineNotes m_outlineNotes;

private:
    NotCopied<bool> m_pathDeferred; ///< see DeferPathRebuild
    /// Instead of m_pPath: what that is to be joined of, see SetPathParts.
    mutable NotCopied<std::shared_ptr<const shapes::OutlineParts>> m_pathParts;
    bool m_bVisited = false; ///< set only while one list operation runs, so that a shape listed twice is freed once
};
