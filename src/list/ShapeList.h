/// CShapeList, the ordered container of shapes behind documents, clipboards, selections and groups.
#pragma once

#include "record/DocumentVersion.h"
#include "shapemodel_export.h"

#include <QPointF>
#include <QRectF>

#include <cstdint>
#include <vector>

class CShape;
class CShapeGroup;
class QFile;

/// Holds shapes in drawing order (index 0 first).
///
/// **Ownership** is decided per operation: the Delete… operations and Copy free shapes; Remove…, Replace and the
/// destructor leave them alive for the caller. A list that holds a document is emptied with DeleteAll before it is
/// released; a list used as a view is released as it is.
///
/// **Odd content.** Null entries are skipped by every walk and left out on saving. A shape that stands twice in one
/// list is freed once. A list may be passed to its own operations. A group that holds this list, at any depth, is not
/// added and stays the caller's.
///
/// **Re-entrance.** The message box about a missing plug-in runs the host's event loop while a list builds painter
/// paths. The host may use this list and its shapes meanwhile, but must not free shapes.
///
/// **Costs.** N is the number of entries. What walks the list is O(N) calls of the shapes' own operations, whose costs
/// stand in their classes. Getters are O(1) unless said below.
class SHAPEMODEL_EXPORT CShapeList
{
public:
    /// An empty list, to be destroyed with Release.
    static CShapeList* New();
    /// Destroys the list, not its shapes, and sets the pointer to null. Null is ignored. Cost: O(1).
    static void Release(CShapeList*& list);

    virtual ~CShapeList();

    /// Copies the pointers of other; no shape is freed or copied. Cost: O(N).
    CShapeList& operator=(const CShapeList& other);

    // Insertion: stores the pointers, frees nothing.

    /// Before the present shapes. A group that holds this list is refused, nothing changes.
    /// Cost: O(N), and in a group's list the members of a group that is added.
    void AddHead(CShape* shape);
    /// Behind the present shapes. A group that holds this list is refused, nothing changes.
    /// Cost: O(1), and in a group's list the members of a group that is added.
    void AddTail(CShape* shape);
    /// All shapes of other before the present ones, in other's order. Cost: O(N) of both lists.
    void AddHead(CShapeList& other);
    /// All shapes of other behind the present ones. Cost: O(N) of other.
    void AddTail(CShapeList& other);
    /// Before index, which may equal the count; false beyond it and for a group that holds this list.
    /// Cost: O(N), and in a group's list the members of a group that is added.
    bool Insert(CShape* shape, unsigned int index);
    /// Puts newShape in the place of oldShape, which stays alive; false when either is null or oldShape is not listed.
    /// Cost: O(N), and in a group's list the members of a group that is added.
    bool Replace(CShape* oldShape, CShape* newShape);

    // Removal without freeing.

    /// False beyond the count. Cost: O(N).
    bool Remove(unsigned int index);
    /// Removes the first entry with that shape; false when it is not listed. Cost: O(N).
    bool Remove(CShape* shape);
    /// Removes every entry. Cost: O(1).
    void RemoveAll();
    /// Removes the selected shapes; locked ones are not exempt. Cost: O(N) for all of them.
    void RemoveSelectedShapes();

    // Removal with freeing.

    /// Frees the shape and removes any further entry of it. False beyond the count.
    /// Cost: O(N); O(N log N) once, for the second of a row of deletions.
    bool Delete(unsigned int index);
    /// Frees front to back. Cost: O(N).
    void DeleteAll();
    /// Frees back to front; locked shapes are not exempt. Cost: O(N) for all of them.
    void DeleteSelectedShapes();

    // Queries.

    /// Whether there is no entry.
    bool IsEmpty();
    /// Number of entries, those of groups' members not counted.
    unsigned int GetCount();
    /// Null beyond the count.
    CShape* GetShape(unsigned int index);
    /// Index of the first entry with that shape; -1 for null or none. Cost: O(N).
    int FindShape(CShape* shape);
    /// The first shape that is selected and not locked; null when there is none. Cost: O(N).
    CShape* GetFirstSelectedShape();
    /// Shapes with the select bit, plus the selected cells of every array. Locked ones only when bWithLocked.
    /// Cost: O(N), and O(cells) for each array.
    unsigned int GetSelectedCount(bool bWithLocked);
    /// Appends the selected shapes that are not locked to out. Here and in the next two, null is ignored and out may be
    /// this list. Cost: O(N).
    void GetSelectedShapes(CShapeList* out);
    /// Appends the images to out; code images do not count. Cost: O(N).
    void GetAllImageShapes(CShapeList* out);
    /// Appends the shapes whose GetColor() is color to out. Cost: O(N).
    void GetShapesByColor(unsigned int color, CShapeList* out);
    /// Whether any shape has that colour. Cost: O(N).
    bool FindColor(unsigned int color);

    // Status of every shape.

    /// Selects every shape and every cell of arrays. Cost: O(N), members and cells counted.
    void Select(bool bSelect);
    /// Locks or unlocks every shape. Cost: O(N).
    void Lock(bool bLock);
    /// Hides or shows every shape. Cost: O(N).
    void Hide(bool bHide);
    /// Gives every shape that colour, groups' members included. Cost: O(N), members counted.
    void SetColor(unsigned int color);

    // Rectangles in model units: the smallest and largest edges of all rectangles that take part, empty ones included.

    /// Of all shapes, whose GetRect gets the flag; null for an empty list.
    /// Cost: O(N), and the paths and layouts that are missing.
    QRectF GetRect(bool bFlag);
    /// Of the selected shapes that are not locked. Cost: as GetRect.
    QRectF GetSelectedRect();
    /// Of the shapes that are not selected, locked or not. Cost: as GetRect.
    QRectF GetUnSelectedRect();
    /// Centre of GetRect(false). Cost: as GetRect.
    QPointF GetRectCenter();

    // Copies.

    /// Frees this list's shapes, then clones src's; clones first when both hold a shape in common. Shapes that the host
    /// adds meanwhile stay, behind the clones. False for null; true and no change for the list itself.
    /// Cost: O(N) clones.
    bool Copy(CShapeList* src);
    /// A new list with clones, both owned by the caller. Cost: O(N) clones.
    CShapeList* Clone();

    // Document stream (little-endian: uint32 count, then per shape its uint32 type tag and its record).

    /// Writes the list, as it is at the time of the call, at the file's position. Always 0; write errors show in the
    /// file's own state. A null file is ignored. Cost: O(bytes).
    int Save(QFile* file);
    /// Replaces the content (nothing is freed; pass an empty list) by what Save wrote under the host's document
    /// version. Texts up to version 1 and vectors up to version 2 become one vector shape per sub-path.
    /// Cost: O(bytes), whatever counts the stream claims.
    /// @return 0; 5 for an unknown type tag, an entry without tag or more than 256 nested groups; 1 when memory ran
    /// out;
    ///         else the error code of a shape. On an error everything read is freed and the list is empty. A null file
    ///         is ignored.
    int Read(QFile* file, int version);

    // Transforms of all shapes (model units, degrees). The shapes' own results are ignored. False for a list without
    // shapes, and, with nothing changed, for non-finite arguments.

    /// False also when both distances are below 1e-6. Texts stay where they are unless bWithText.
    /// Cost: O(N) calls of Offset.
    bool Offset(double dx, double dy, bool bWithText);
    /// Fits GetRect(false) onto target. Texts stay as they are unless both scales agree within 0.001. False for a
    /// negative target. Cost: O(N) calls of Resize, and each path built.
    bool Resize(QRectF target);
    /// Rotates by -90 degrees about centre. Cost: O(N) calls.
    bool RotateLeft(QPointF centre);
    /// Rotates by 90 degrees about centre. Cost: O(N) calls.
    bool RotateRight(QPointF centre);
    /// Turns by angle degrees, clockwise on screen, about centre; the axis is passed on. Cost: O(N) calls.
    bool Rotate(double angle, QPointF centre, Qt::Axis axis);
    /// Mirrors across x = axis. Among several shapes a text is also moved across the axis; alone it mirrors in place.
    /// Cost: O(N) calls.
    bool MirrorX(double axis);
    /// The same across y = axis. Cost: O(N) calls.
    bool MirrorY(double axis);
    /// Mirrors across the line through p1 and p2. While the user drags the line (not bFlag), images only show a
    /// temporary path. Cost: O(N) calls.
    bool MirrorFixedOrMovingLine(QPointF p1, QPointF p2, bool bFlag);
    /// Mirrors across x = value (bFlag) or y = value. Cost: O(N) calls.
    bool MirrorAttachLine(double value, bool bFlag);

    // Preparation for the machine.

    /// Rebuilds polylines, and free paths from their flattened form; unless bKeepVectorType, every vector shape is
    /// marked as polyline afterwards, curves included. With a curve-fitting plug-in, a free path keeps its points if it
    /// has curves or if fitting does not make them fewer, and a fitted outline is not fitted again until it is
    /// replaced. Does nothing while the configuration switches optimisation off.
    /// Cost: O(points), and the plug-in's time.
    void OptimizeShapeList(bool bKeepVectorType);
    /// Reading order (rows of 5 units), then enclosed shapes before the shapes that enclose them. Lists of 1000 shapes
    /// and more stay as they are. Shapes that the host adds meanwhile keep their places.
    /// Cost: O(N²) comparisons of rectangles at most, N being below 1000.
    void Sort();
    /// Removes shapes whose data has become unusable, groups' members included. Logs a line for each of the list's own
    /// shapes, and for each image in a group. Frees nothing. Cost: O(N), and the display image of each picture.
    void RemoveInvalidShapeItem();
    /// The same for the members of one group. Cost: as above, of its members.
    void RemoveInvalidShapeItem(CShapeGroup* group);

protected:
    CShapeList();
    /// Copies the pointers of other.
    CShapeList(CShapeList& other);

private:
    friend class CShapeGroup;
    friend struct ShapeListDeleter;

    /// What is known of shapes that stand in the list more than once.
    enum class Repeats : unsigned char
    {
        Unknown, ///< after every insertion
        Sought,  ///< looked for, but for one shape only
        None,
        Some
    };

    SHAPEMODEL_NO_EXPORT unsigned int ShapeCount() const;
    SHAPEMODEL_NO_EXPORT bool MayRepeat();
    template <class Visit>
    SHAPEMODEL_NO_EXPORT bool AnyShape(const CShapeList* sought, Visit visit) const;
    SHAPEMODEL_NO_EXPORT bool SharesShapes(const CShapeList& other) const;
    SHAPEMODEL_NO_EXPORT bool Reaches(const CShapeList* list) const;
    SHAPEMODEL_NO_EXPORT void DeletePaths() const;
    SHAPEMODEL_NO_EXPORT bool MayHold(CShape* shape) const;
    SHAPEMODEL_NO_EXPORT void AppendHoldable(const CShapeList& other, std::vector<CShape*>& held) const;
    SHAPEMODEL_NO_EXPORT static void DropRepeated(std::vector<CShape*>& doomed);
    SHAPEMODEL_NO_EXPORT int ReadEntries(QFile& file, int version, unsigned int count);

    /// Room for a pointer in later versions: hosts derive from this class, so its size may not change.
    [[maybe_unused]] std::uintptr_t m_nReserved = 0;
    std::vector<CShape*> m_listShapes;
    bool m_bMembers = false; ///< the list is a group's
    Repeats m_repeats = Repeats::Unknown;
};
