/// CShape, the base of every item of a drawing.
#pragma once

#include "shape/ShapeTypes.h"
#include "shapemodel_export.h"

#include <QLineF>
#include <QPainterPath>
#include <QRectF>

#include <atomic>
#include <cstdint>
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
/// **Identity.** A new shape takes the next number of a process-wide counter; every kind of copy keeps its source's
/// number; numbers are not stored in documents.
///
/// **Threads.** Different documents may be used on different threads. One document (its lists, their shapes, and the
/// paths and pictures that they lend) belongs to one thread at a time. State that documents share is guarded: the id
/// counter, the configuration, the image stores, and the curve plug-in, which is called by one thread at a time. Before
/// a second thread starts, the host sets its stores (CShapeImage::SetImageMgr, SetOrgImageMgr, SetCacheImageMgr) and
/// creates its application object. The library calls the host (log, theme name, ruler) on every thread that works on a
/// document. A shape may be copied into another document only while no other thread uses the source's document: copying
/// may build the source's painter path.
///
/// **Costs.** n is the number of the outline's points and of the painter path's elements. What has no cost of its own
/// below is O(1), getters and setters of single values among them; what builds the painter path is O(n) once, and the
/// plug-in's time for a polyline. Groups and arrays pass operations to their members, and cost the sum of theirs.
class SHAPEMODEL_EXPORT CShape
{
public:
    /// A default-constructed shape of the class for the type, owned by the caller; null for any other number.
    static CShape* NewShape(ESHAPE_TYPE type);

    /// Destroys and frees the shape; null is ignored. Cost: O(n).
    static void Release(CShape* shape);

    /// Frees the shape's painter path; the next GetPath builds it anew. Null is ignored. Cost: O(n).
    static void DeletePath(CShape* shape);

    /// Member-wise copies keep every field, the id included, but start without painter path and temporary path.
    /// Cost: O(n).
    CShape(const CShape&);
    /// As the copy constructor; drops the painter path and the temporary path that this shape had. Cost: O(n).
    CShape& operator=(const CShape&);

    // The order of the virtual operations from here to UpdatePainterPath is part of the binary interface: add nothing
    // between them.

    /// Frees the painter path only when it is not empty; hosts may hold on to an empty one. The temporary path is not
    /// freed: end an interactive edit with ExitPathTmp first.
    virtual ~CShape();

    /// Writes the common record (44 bytes and 9 per point, little-endian) at the file's position. Always 0; write
    /// errors show in the file's own state. A null file is ignored. Cost: O(n).
    virtual int Save(QFile* file);

    /// Reads the common record and appends its points to the outline. Always 0: a short stream leaves the fields it
    /// does not reach as they were and keeps the points that are whole. Does not rebuild the painter path: read into
    /// new shapes. Cost: O(n) in the points read, whatever count the stream claims.
    virtual int Read(QFile* file, int version);

    /// Deep copy of colour, status, guide line, painter path, micro lines, outline and id. Builds the source's painter
    /// path when it is absent; where the source builds none, the copy's is empty. False for null.
    /// Cost: O(n); the painter path is shared until one of the two is changed.
    virtual bool Copy(CShape* src);

    /// Whether p lies within 8.0 / scale of the outline (scale: the caller's view scale). The inside does not count.
    /// Cost: O(1) away from the rectangle, else O(n).
    virtual bool Contains(QPointF p, double scale);

    /// Moves points and painter path (built when absent). False, and nothing moved, for a non-finite distance. Here and
    /// in all transforms, magnitudes beyond 1e100 count as not finite. Cost: O(n).
    virtual bool Offset(double dx, double dy);

    /// Maps the points from GetRect(false) onto target. A side without extent is moved, not stretched. Drops the
    /// painter path. False, and nothing changed, for a non-finite target. Cost: O(n).
    virtual bool Resize(QRectF target);

    /// Rotates by -90 degrees about centre. Cost: O(n).
    virtual bool RotateLeft(QPointF centre);
    /// Rotates by 90 degrees about centre. Cost: O(n).
    virtual bool RotateRight(QPointF centre);

    /// Turns the points about centre, always in the drawing plane whatever the axis. Drops the painter path. False,
    /// and nothing changed, for non-finite arguments. Cost: O(n).
    virtual bool Rotate(double angle, QPointF centre, Qt::Axis axis);

    /// Mirrors the points across the vertical line x = axis. Drops the painter path. False, and nothing changed, for a
    /// non-finite axis. Cost: O(n).
    virtual bool MirrorX(double axis);
    /// The same across the horizontal line y = axis. Cost: O(n).
    virtual bool MirrorY(double axis);

    /// Mirrors the points across the line through p1 and p2; the flag is for subclasses. Coincident points change
    /// nothing. Drops the painter path. False, and nothing changed, for non-finite points. Cost: O(n).
    virtual bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bCommit);

    /// MirrorX(value) when bVertical, else MirrorY(value). Cost: O(n).
    virtual bool MirrorAttachLine(double value, bool bVertical);

    /// Bounding rectangle of the painter path, control points not counted; null when there is none. The flag is for
    /// subclasses. Cost: O(n) for a path that has not been measured yet, else O(1).
    virtual QRectF GetRect(bool bUpdate);

    /// A null rectangle here; groups return their frame in whole units.
    virtual QRect GetRectUI(double scale);

    /// Sets the colour field, 0xRRGGBB by convention of the hosts; any number is kept.
    virtual void SetColor(unsigned int color);

    /// Whether the outline ends within 1e-6 of its start in x and in y. False with fewer than two points.
    virtual bool IsClose();

    // Closing and filling belong to vector shapes.

    /// False here, and nothing changed.
    virtual bool Close(double tolerance, bool bFill);
    /// False here.
    virtual bool IsFilled();
    /// Does nothing here.
    virtual void RestoreFilledShape();
    /// Does nothing here.
    virtual void ProcessFilledShape();

    /// Sets the leads (model units), see CShapeVector::GetGuideLinePoints. The outline stays.
    virtual void SetGuideLine(SGuideLine guideLine);

    /// Makes the painter path a copy of *path; the points stay. Null is ignored; path may be the shape's own.
    /// Cost: O(n) where the path has not been measured yet, else O(1): paths share their elements.
    virtual void SetPath(QPainterPath* path);

    /// Sets the select bit; clears it by subtracting it when IsSelect().
    virtual void Select(bool bSelect);

    /// The micro lines as lines (model units), in order, with a null line before each that starts a further sub-path.
    /// Subclasses generate them anew first; here they are those of the last generation.
    /// Cost: O(n) and O(1) for each micro line.
    /// @param tolerance ignored here and in every class: fineness is fixed, see the subclasses
    virtual std::vector<QLineF> Flatten(double tolerance);

    /// Whether the select bit is set.
    virtual bool IsSelect();
    /// The kind of the shape, the tag of its record in a document.
    virtual ESHAPE_TYPE GetShapeType() = 0;

    /// Whether p hits the shape; what the second argument means is each class's own.
    virtual bool Hit(QPointF p, int& part) = 0;

    /// A deep copy, owned by the caller. Cost: O(n), as Copy.
    virtual CShape* Clone() = 0;

    /// Builds the painter path from the shape's own data. Leaves a path in place, possibly an empty one. Cost: O(n).
    virtual void UpdatePainterPath() = 0;

    // End of the virtual operations.

    /// The process-wide number of the shape, see Identity above.
    unsigned int GetShapeId();

    /// The status word, bits SHAPE_STATUS_…. Bits are cleared by subtraction, see the setters.
    unsigned int GetStatus();
    /// Sets the lock bit; clears it by subtracting it when IsLock().
    void Lock(bool bLock);
    /// Sets the hide bit; clears it by subtracting it when IsHide().
    void Hide(bool bHide);

    /// Sets the group bit; SetGroup(false) subtracts it when the shape is *selected*. On a selected shape without group
    /// bit the subtraction borrows from the higher bits, which are then set: hosts rely on this.
    void SetGroup(bool bGroup);
    /// Whether the lock bit is set.
    bool IsLock();
    /// Whether the hide bit is set.
    bool IsHide();
    /// Whether the group bit is set: the shape is a member of a group.
    bool IsGroup();

    /// The colour field; for a group with members, the colour of its first member.
    unsigned int GetColor();

    /// The leads, as set or read.
    SGuideLine GetGuideLine();

    /// A number of the host: kept and copied, not interpreted, never stored.
    ESHAPE_VECTOR_TYPE GetShapeVectorType();
    /// Sets that number.
    void SetShapeVectorType(ESHAPE_VECTOR_TYPE type);
    /// Every number but 0 to 3 counts as 0.
    void SetShapeVectorType(int type);

    /// Replaces the outline, all points of one type. Drops the painter path. points may be the shape's own list.
    /// Cost: O(n).
    void SetShapePoints(const std::vector<QPointF>& points, ESHAPE_LINE_SEGMENT_TYPE type);
    /// Replaces the outline; the lengths are not compared. Drops the painter path. Both may be the shape's own lists.
    /// Cost: O(n).
    void SetShapePoints(const std::vector<QPointF>& points, const std::vector<unsigned char>& types);
    /// The outline as it is kept, until the shape is next used: building the painter path may replace it, too.
    const std::vector<QPointF>& GetShapePoints() const { return m_listPoints; }
    /// The types of these points; a type that is missing counts as 0.
    const std::vector<unsigned char>& GetShapePointTypes() const { return m_listTypes; }
    /// Copies the outline out. Cost: O(n).
    void GetShapePathData(std::vector<QPointF>& points, std::vector<unsigned char>& types);

    /// Whether there are as many types as points, and at least two points.
    bool IsValid() const;

    /// First point (after a leading separator) and last point. With fewer than two points both outputs stay as they
    /// are.
    void GetInAndOutPoint(QPointF& in, QPointF& out);

    /// Reverses the list of points and the list of types. The painter path stays. Cost: O(n).
    void ReverseDir();

    /// Euclidean distance.
    double CalDistance(QPointF& a, QPointF& b);

    /// The points mirrored across the infinite line through line.p1() and line.p2(), in order; unchanged when the two
    /// coincide. Cost: O(points).
    std::vector<QPointF> GetMirroredPoint(std::vector<QPointF> points, const QLineF& line);

    /// Centre of GetRect(false). Cost: as GetRect.
    QPointF GetRectCenter();

    /// The painter path, built when absent or when bUpdate asks for it. Owned by the shape: neither free it nor keep it
    /// across an edit. Cost: O(n) when it is built, else O(1).
    QPainterPath* GetPath(bool bUpdate);
    /// Always null.
    QPainterPath* GetPathUI(double scale);

    // Reserved for closed outlines; no class implements them.

    /// Always false.
    static bool HasCloseFlag(unsigned char type);
    /// Always false.
    bool HasCloseFlag();
    /// Does nothing.
    static void SetInPoint(QPainterPath* path, unsigned int index, double scale);
    /// Does nothing.
    void SetInPoint(unsigned int index, double scale);
    /// Does nothing.
    void UpdatePathDataByClose(bool bClose, CShape* shape) const;

    /// Always 3.
    static ESHAPE_LINE_SEGMENT_TYPE LineSegmentType(QPainterPath* path);

    // Temporaries of an interactive edit.

    /// Only calls GetRect(false), when there is no temporary path. Cost: as GetRect.
    void InitPathTmp();
    /// Frees the temporary path.
    void ExitPathTmp();
    /// The temporary path, null when there is none. Owned by the shape.
    QPainterPath* GetPathTmp();
    /// Always empty.
    std::vector<SHAPE_VECTOR_PATHDATA> GetPathDataTmp();
    /// Keeps a pointer for the host, which goes on owning the shape.
    void SetShapeTmp(CShape* shape);
    /// The pointer that SetShapeTmp was given last, null at first.
    CShape* GetShapeTmp();

    /// Writes a string of a record: int32 length in bytes, then the bytes. False when file is null; a null text counts
    /// as empty. Cost: O(bytes).
    bool SaveString(QFile* file, char* const text);
    /// Reads such a string into buffer and terminates it. The buffer must hold the stored length and one byte more;
    /// only what the stream holds is written to it. False when file or buffer is null. Cost: O(bytes).
    bool ReadString(QFile* file, char* const buffer);

protected:
    CShape();

    /// Replaces the painter path by a new empty one and returns it.
    QPainterPath* NewPath();
    /// The painter path, made empty when absent.
    QPainterPath* EnsurePath();
    /// The painter path as it is, null when absent.
    QPainterPath* CachedPath() const;
    /// Drops the painter path and defers its rebuild until it is asked for. Code that changes what the path is made of,
    /// but must not change the path, calls BuildDeferredPath first.
    void DeferPathRebuild();
    /// Builds the painter path if its rebuild was deferred, else does nothing.
    void BuildDeferredPath();
    /// Replaces the painter path by the join of parts, which is made when the path is asked for.
    void SetPathParts(std::shared_ptr<const shapes::OutlineParts> parts);
    /// Drops the painter path if it is still in parts. To be called before the outlines in them change: keeping the
    /// parts would make each of those outlines be copied.
    void DropPathParts();
    /// Adds the shape's painter path, built when absent, to parts. A path that is itself in parts is not joined.
    static void AddPathTo(shapes::OutlineParts& parts, CShape& shape);
    /// Maps every point and drops the painter path.
    void MapPoints(const QTransform& transform);
    /// Type of point i; 0 where the type list is shorter.
    unsigned char PointType(size_t i) const;
    /// 1 when the outline begins with a separator, else 0.
    size_t FirstPointIndex() const;
    /// To be called whenever the outline is replaced: what is known of the old points does not hold for the new ones.
    void ForgetOutline() { m_outlineNotes = {}; }
    /// Replaces the temporary path; null removes it.
    void SetPathTmp(std::unique_ptr<QPainterPath> path);
    /// Writes the common record, whose size is CommonRecordBytes().
    void WriteCommonRecord(shapes::RecordWriter& writer) const;
    /// Bytes of the common record: 44 and 9 for each point.
    size_t CommonRecordBytes() const;
    /// Reads the common record, see Read.
    void ReadCommonRecord(shapes::RecordReader& reader);

private:
    friend class CShapeList;

    SHAPEMODEL_NO_EXPORT bool HasPath() const;
    SHAPEMODEL_NO_EXPORT void CopyPath(CShape& source);
    SHAPEMODEL_NO_EXPORT void ReadPoints(shapes::RecordReader& reader, size_t count);
    SHAPEMODEL_NO_EXPORT void AppendPoints(const char* records, size_t count);
    SHAPEMODEL_NO_EXPORT void PackPoints(size_t first, size_t count, char* record) const;

    /// Owns at most one path. A copy of a slot is empty, so that member-wise copies of a shape share nothing; assigning
    /// another slot empties this one.
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

    /// A value that is not copied: a copy starts with the default, assigning another object resets this one.
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
    /// What is known of the outline's present points; copied together with them.
    struct OutlineNotes
    {
        int fillMarker = -1;    ///< index at which IsFilled found a marker last, -1 for none
        bool fitted = false;    ///< the points come from curve fitting: fitting them again would add error to error
        bool mirroredX = false; ///< a mirror of a text, left to right, that its points have undergone
        bool mirroredY = false; ///< the same, top to bottom
    };

    unsigned int m_nStatus = 0; ///< bits SHAPE_STATUS_…
    mutable PathSlot m_pPath;   ///< painter path; read only through CachedPath, dropped only through DeletePath
    unsigned int m_nColor = 0;  ///< as SetColor was given it
    ESHAPE_VECTOR_TYPE m_eShapeVectorType = ESHAPE_VECTOR_0; ///< the host's number
    std::vector<SHAPE_VECTOR_PATHDATA> m_listPathData;       ///< micro lines of the last generation
    std::vector<QPointF> m_listPoints;                       ///< outline, model units
    std::vector<unsigned char> m_listTypes;                  ///< one of ESHAPE_LINE_SEGMENT_TYPE for each point
    SGuideLine m_guideLine;                                  ///< leads
    PathSlot m_pPathTmp;                                     ///< path shown while a transform is being dragged
    CShape* m_pShapeTmp = nullptr;                           ///< the host's
    unsigned int m_nShapeId;                                 ///< see Identity above
    OutlineNotes m_outlineNotes;                             ///< what is known of the present points

private:
    NotCopied<bool> m_pathDeferred; ///< see DeferPathRebuild
    /// What the painter path is to be joined from, see SetPathParts; m_pPath is null then.
    mutable NotCopied<std::shared_ptr<const shapes::OutlineParts>> m_pathParts;
    /// Room for a pointer in later versions: hosts derive from this class, so its size may not change.
    [[maybe_unused]] std::uintptr_t m_nReserved = 0;
    bool m_bVisited = false; ///< set only while one list operation runs, so that a shape listed twice is freed once
};
